// A process beside the test, which may hold a terminal.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <QString>
#include <stdexcept>

namespace travo::test {

class OtherProcess {
public:
    enum class Holds { Nothing, OpenTerminal, ClaimedTerminal };

    // Has done it when this returns. Ends with this object.
    explicit OtherProcess(Holds holds = Holds::Nothing, const QString& terminal = QString()) {
        int ready[2] = {};
        if (::pipe(ready) != 0 || (process_ = ::fork()) < 0) {
            throw std::runtime_error("there is no other process");
        }
        if (process_ == 0) {
            BeTheOther(holds, QFile::encodeName(terminal), ready[1]);
        }
        ::close(ready[1]);
        char done = 0;
        const bool told = ::read(ready[0], &done, 1) == 1 && done == 'y';
        ::close(ready[0]);
        if (!told) {
            throw std::runtime_error("the other process does not hold the terminal");
        }
    }
    ~OtherProcess() {
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    QByteArray Number() const { return QByteArray::number(process_); }

private:
    [[noreturn]] static void BeTheOther(Holds holds, const QByteArray& terminal, int ready) {
        bool isSo = true;
        if (holds != Holds::Nothing) {
            const int opened = ::open(terminal.constData(), O_RDWR | O_NOCTTY);
            isSo = opened >= 0 && (holds != Holds::ClaimedTerminal || ::ioctl(opened, TIOCEXCL) == 0);
        }
        const char done = isSo ? 'y' : 'n';
        while (::write(ready, &done, 1) == 1) {
            ::pause();
        }
        ::_exit(0);
    }

    pid_t process_ = -1;
};

}  // namespace travo::test
