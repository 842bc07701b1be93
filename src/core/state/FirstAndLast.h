// News that may come faster than it can be worked off, where only the last of it counts.
#pragma once

#include <functional>
#include <memory>

#include "platform/Clock.h"

namespace travo {

// The first is worked off at once; what comes within a period after that counts as one, which is worked
// off at the end of the period. So the last is always worked off, and between two there is time for others.
class FirstAndLast {
public:
    // The period in milliseconds.
    FirstAndLast(platform::Timers& timers, int period, std::function<void()> work);
    FirstAndLast(const FirstAndLast&) = delete;
    FirstAndLast& operator=(const FirstAndLast&) = delete;

    // There is news. What the work raises goes to the caller, or else to the event loop.
    void Tell();

private:
    void Tick();
    void Work();

    std::function<void()> work_;
    std::unique_ptr<platform::Timer> period_;
    bool isMore_ = false;
};

}  // namespace travo
