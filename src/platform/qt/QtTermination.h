// The end of the session: SIGTERM, SIGINT and SIGHUP as a call from the event loop.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace travo::platform::qt {

// One at a time in a process: signal dispositions belong to the process. A signal that comes again and that
// the event loop does not take up within a second ends the program with exit code 1: it hangs in foreign
// code.
class QtTermination {
public:
    explicit QtTermination(std::function<void()> procedure);
    ~QtTermination();
    QtTermination(const QtTermination&) = delete;
    QtTermination& operator=(const QtTermination&) = delete;

    // The system has asked the program to end, also where the event loop has not taken it up yet.
    static bool Asked();
    // Whoever has the program stand still on purpose says so: then it does not hang.
    static void StandsStill();

private:
    void TakeUp();

    int ends_[2] = {-1, -1};
    std::function<void()> procedure_;
    bool told_ = false;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace travo::platform::qt
