// Time: the millisecond tick count, the date, and timers of the event loop.
#pragma once

#include <QDateTime>
#include <cstdint>
#include <functional>
#include <memory>

namespace travo::platform {

class Clock {
public:
    virtual ~Clock() = default;
    // Milliseconds since some moment before the program's start; never goes back.
    virtual std::int64_t TickCount() const = 0;
    // Local date and time of day.
    virtual QDateTime Now() const = 0;
    // Stands still for that time and serves no event.
    virtual void Sleep(std::int64_t milliseconds) = 0;
};

// A repeating timer, off at first. Its tick comes from the event loop, never from within a call here.
class Timer {
public:
    virtual ~Timer() = default;
    virtual void Interval(int milliseconds) = 0;
    // Switching on what is on already changes nothing; switching on after off starts a full period.
    virtual void Enabled(bool on) = 0;
    virtual bool Enabled() const = 0;
};

class Timers {
public:
    virtual ~Timers() = default;
    virtual std::unique_ptr<Timer> Create(std::function<void()> tick) = 0;
};

}  // namespace travo::platform
