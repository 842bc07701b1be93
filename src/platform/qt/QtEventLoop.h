// The event loop on Qt's.
#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "platform/EventLoop.h"
#include "platform/qt/QtPresses.h"

namespace travo::platform::qt {

class QtEventLoop : public EventLoop {
public:
    // Marks that an operation waits, for as long as it lives.
    class Wait {
    public:
        explicit Wait(QtEventLoop& loop) : loop_(loop) { ++loop_.depth_; }
        ~Wait() { loop_.Leave(); }
        Wait(const Wait&) = delete;
        Wait& operator=(const Wait&) = delete;

    private:
        QtEventLoop& loop_;
    };

    void Serve() override;
    void ServeUntilEventOr(std::int64_t milliseconds) override;
    void Queue(std::function<void()> procedure) override;
    void QueueAfterWaits(std::function<void()> procedure) override;
    bool Waiting() const override { return depth_ > 0; }
    bool EndAsked() const override;
    void BeginStandStill() override { presses_.BeginStandStill(); }
    void EndStandStill() override { presses_.EndStandStill(); }

private:
    void Leave();

    QObject context_;
    QtPresses presses_;
    int depth_ = 0;
    std::vector<std::function<void()>> afterWaits_;
};

}  // namespace travo::platform::qt
