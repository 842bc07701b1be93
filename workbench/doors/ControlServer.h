// The workbench's local socket: takes lines from any number of clients and gives the answers back.
#pragma once

#include <QLocalServer>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "workbench/commands/Commands.h"

class QLocalSocket;

namespace workbench {

// Raises std::runtime_error, with a sentence for the user, where the socket cannot be had.
class ControlServer {
public:
    // Clients beyond this number are turned away.
    static constexpr std::size_t MostClients = 64;
    // A client that has more unread answers, or more lines waiting, than this is dropped.
    static constexpr qint64 MostUnread = 1 << 20;
    static constexpr qint64 MostWaiting = 1 << 16;

    // The clock says what time it is in the world; wantsEnd is called once, after the answer to a
    // shutdown has been sent.
    ControlServer(Commands& commands, std::function<Time()> clock, std::function<void()> wantsEnd);
    ~ControlServer();
    ControlServer(const ControlServer&) = delete;
    ControlServer& operator=(const ControlServer&) = delete;

    // Listens at the path. A lock beside the socket, "<path>.lock", says who owns it: it is held as
    // long as this object lives and dies with the process, so that a socket without a holder is a
    // stale one and is replaced.
    void Listen(const std::string& path);

private:
    void AcceptClients();
    void Serve(QLocalSocket& client);
    void ServeAll();
    void Forget(QLocalSocket& client);

    Commands& commands_;
    std::function<Time()> clock_;
    std::function<void()> wantsEnd_;
    int lock_ = -1;
    QLocalServer server_;
    // While the driver hangs, its calls wait; this looks whether the hang is over.
    QTimer hangWatch_;
    std::vector<QLocalSocket*> clients_;
};

}  // namespace workbench
