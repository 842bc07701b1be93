// Clock and timers on Qt's.
#pragma once

#include <QElapsedTimer>

#include "platform/Clock.h"

namespace travo::platform::qt {

class QtClock : public Clock {
public:
    QtClock() { started_.start(); }
    std::int64_t TickCount() const override { return started_.elapsed(); }
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
    void Sleep(std::int64_t milliseconds) override;

private:
    QElapsedTimer started_;
};

class QtTimers : public Timers {
public:
    std::unique_ptr<Timer> Create(std::function<void()> tick) override;
};

}  // namespace travo::platform::qt
