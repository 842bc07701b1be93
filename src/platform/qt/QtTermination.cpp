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

constexpr unsigned PatienceSeconds = 1;

// A signal handler has no other way to learn where to write.
std::atomic<int> writeEnd{-1};
std::atomic<bool> asked{false};
std::atomic<bool> standsStill{false};

void OnSignal(int) {
    const int before = errno;
    if (asked.exchange(true)) {
        standsStill = false;
        alarm(PatienceSeconds);
    }
    const char byte = 1;
    // A full socket means that the news is on its way already.
    [[maybe_unused]] const ssize_t written = write(writeEnd.load(), &byte, 1);
    errno = before;
}

void OnAlarm(int) {
    if (standsStill.exchange(false)) {
        alarm(PatienceSeconds);
    } else {
        _exit(1);
    }
}

void Dispose(int number, void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, nullptr);
}

void DisposeAll(void (*onSignal)(int), void (*onAlarm)(int)) {
    for (const int number : Signals) {
        Dispose(number, onSignal);
    }
    Dispose(SIGALRM, onAlarm);
}

}  // namespace

QtTermination::QtTermination(std::function<void()> procedure) : procedure_(std::move(procedure)) {
    asked = false;
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends_) != 0) {
        return;
    }
    writeEnd = ends_[0];
    notifier_ = std::make_unique<QSocketNotifier>(ends_[1], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { TakeUp(); });
    DisposeAll(OnSignal, OnAlarm);
}

bool QtTermination::Asked() { return asked; }

void QtTermination::StandsStill() { standsStill = true; }

void QtTermination::TakeUp() {
    std::array<char, 64> bytes{};
    while (read(ends_[1], bytes.data(), bytes.size()) > 0) {
        // How often it was asked says nothing.
    }
    alarm(0);
    if (!std::exchange(told_, true)) {
        procedure_();
    }
}

QtTermination::~QtTermination() {
    if (!notifier_) {
        return;
    }
    alarm(0);
    DisposeAll(SIG_DFL, SIG_DFL);
    asked = false;
    notifier_.reset();
    writeEnd = -1;
    close(ends_[0]);
    close(ends_[1]);
}

}  // namespace travo::platform::qt
