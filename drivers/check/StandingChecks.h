// What can be seen of a library while every needle stands still.
#pragma once

#include <vector>

#include "drivers/check/Session.h"

namespace check {

struct StandingNeedle {
    std::int32_t number = 0;  // by which it is selected
    std::int32_t said = 0;    // by which its readings call it; the same in a library as it should be
    Counts place{};
};

// What the checks of moves begin with.
struct Standing {
    std::vector<StandingNeedle> needles;  // each that is connected, from number 1 on
    std::int32_t selectedAtFirst = 0;     // 0 where it is not known
    std::int32_t settling = 0;            // ms
    bool hasStop = false;
};

// Loads the library, and calls all that moves nothing.
Standing CheckStanding(Session& session, Report& report);
// Looks whether each needle stands where it stood, and selects the one that was selected at first.
void CheckThatAllStand(const Standing& standing, Session& session, Report& report);

}  // namespace check
