// The event loop of the one thread, as waits inside operations serve it.
#pragma once

#include <cstdint>
#include <functional>

namespace travo::platform {

class EventLoop {
public:
    virtual ~EventLoop() = default;
    // Serves the events that are pending and returns.
    virtual void Serve() = 0;
    // Serves events, sleeping while there are none, until something has been served or the time is over.
    virtual void ServeUntilEventOr(std::int64_t milliseconds) = 0;
    // Calls the procedure from the event loop, not from within this call.
    virtual void Queue(std::function<void()> procedure) = 0;
    // Calls the procedure from the event loop once no operation of the system waits any more: neither
    // in one of the calls above nor in a message box.
    virtual void QueueAfterWaits(std::function<void()> procedure) = 0;
    // An operation of the system waits at this moment.
    virtual bool Waiting() const = 0;
    // The system has asked the program to end; true as soon as it has, also where the loop has not run since.
    virtual bool EndAsked() const { return false; }
    // The program stands still, serving no event, from the first call to the second. What the operator
    // presses and types meanwhile is made at a picture that holds no more: it is dropped, presses and keys
    // with the releases that belong to them. Not dropped: the release of what was pressed before, the word
    // to close, and what assistive programs do. Neither raises; they do not nest.
    virtual void BeginStandStill() = 0;
    virtual void EndStandStill() = 0;
};

// A stand-still for as long as it lives.
class StandStill {
public:
    explicit StandStill(EventLoop& loop) : loop_(loop) { loop_.BeginStandStill(); }
    ~StandStill() { loop_.EndStandStill(); }
    StandStill(const StandStill&) = delete;
    StandStill& operator=(const StandStill&) = delete;

private:
    EventLoop& loop_;
};

}  // namespace travo::platform
