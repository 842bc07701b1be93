#include "platform/qt/QtTermination.h"

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>

namespace travo::platform::qt {

namespace {

constexpr std::array<int, 3> Signals{SIGTERM, SIGINT, SIGHUP};

// A signal handler has no other way to learn where to write.
std::atomic<int> writeEnd{-1};

void OnSignal(int) {
    const int before = errno;
    const char byte = 1;
    // A full socket means that the news is on its way already.
    [[maybe_unused]] const ssize_t written = write(writeEnd.load(), &byte, 1);
    errno = before;
}

void Dispose(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : Signals) {
        sigaction(number, &action, nullptr);
    }
}

}  // namespace

QtTermination::QtTermination(std::function<void()> procedure) {
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends_) != 0) {
        return;
    }
    writeEnd = ends_[0];
    notifier_ = std::make_unique<QSocketNotifier>(ends_[1], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this, procedure = std::move(procedure)] {
        notifier_->setEnabled(false);
        procedure();
    });
    Dispose(OnSignal);
}

QtTermination::~QtTermination() {
    if (!notifier_) {
        return;
    }
    Dispose(SIG_DFL);
    notifier_.reset();
    writeEnd = -1;
    close(ends_[0]);
    close(ends_[1]);
}

}  // namespace travo::platform::qt
