// One move, looked at from its command until it stands.
#pragma once

#include "drivers/check/Session.h"

namespace check {

struct Journey {
    Counts from{};
    Counts to{};
    std::int32_t settling = 0;  // ms, as the library states it

    // Counts of the axis with the longest way.
    std::int32_t Longest() const;
    // ms that the way may take, without the settling time.
    double Allowed() const;
};

// A way of so many counts takes long enough for a look at what happens on it.
inline constexpr std::int32_t CountsToLookAt = 400;

// Sends the selected manipulator on its way, reads until it stands there, and reports. False where it does
// not come to stand there: then it is left alone.
bool CheckJourney(const Journey& journey, Session& session, Report& report);
// Waits until it stands there; false where it does not.
bool AwaitArrival(const Journey& journey, std::int64_t since, Session& session);

}  // namespace check
