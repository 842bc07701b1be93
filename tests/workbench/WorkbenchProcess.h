// The real travo-workbench, started in a runtime folder of this test program's own.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace workbench {

// Makes the private runtime folder, once for the whole program, and puts it in the environment, where
// the driver library, the client and every child find it.
void UsePrivateRuntimeFolder();

class WorkbenchProcess {
public:
    static constexpr int StartLimit = 20000;  // ms
    static constexpr int EndLimit = 20000;

    // Starts it and waits for its line. It ends with this program, however that ends.
    explicit WorkbenchProcess(const QStringList& furtherOptions = {});
    // Ends it if it still runs.
    ~WorkbenchProcess();
    WorkbenchProcess(const WorkbenchProcess&) = delete;
    WorkbenchProcess& operator=(const WorkbenchProcess&) = delete;

    bool Ready() const { return readyLine_.contains(QStringLiteral("ready at")); }
    const QString& ReadyLine() const { return readyLine_; }
    QProcess& Process() { return process_; }

    // SIGKILL.
    void Kill();
    // Waits until it has ended by itself: its exit code, or -1 where it has not, or has crashed.
    int ExitCode();

private:
    QProcess process_;
    QString readyLine_;
};

}  // namespace workbench
