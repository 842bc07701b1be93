// The camera program's own small local socket: its operator and its faults, by command.
#pragma once

#include <QLocalServer>
#include <functional>
#include <string>

class QLocalSocket;

namespace workbench::live {

class ControlSocket {
public:
    // Answers a line, both without LF.
    using Answer = std::function<std::string(const std::string& line)>;

    explicit ControlSocket(Answer answer);

    // Listens at the path. A socket that a killed program has left there is replaced; one that another
    // program serves stays, and this one does without: false.
    bool Listen(const QString& path);

private:
    void Accept();
    void Serve(QLocalSocket& client);

    Answer answer_;
    QLocalServer server_;
};

}  // namespace workbench::live
