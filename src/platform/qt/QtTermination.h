// The end of the session: SIGTERM, SIGINT and SIGHUP as a call from the event loop.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace travo::platform::qt {

// One at a time in a process: signal dispositions belong to the process.
class QtTermination {
public:
    explicit QtTermination(std::function<void()> procedure);
    ~QtTermination();
    QtTermination(const QtTermination&) = delete;
    QtTermination& operator=(const QtTermination&) = delete;

private:
    int ends_[2] = {-1, -1};
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace travo::platform::qt
