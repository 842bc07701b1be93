// When two shafts meet, seen from above, while each of their ends runs along a straight line.
#pragma once

#include <optional>
#include <vector>

#include "workbench/world/Geometry.h"

namespace workbench {

// A shaft over a stretch of time: where it is at the begin and at the end. Its ends run evenly
// between, so that the stretch is told as a share from 0 to 1.
struct MovingShaft {
    Shaft begin;
    Shaft end;
};

// A share of the stretch through which the two shafts have a point in common.
struct Meeting {
    double from = 0.0;
    double to = 0.0;
    PlanPoint place{};  // a common point at the begin of the meeting
};

// The shortest distance of two shafts in plan; 0 where they cross.
double PlanDistance(const Shaft& a, const Shaft& b);

// All meetings within the stretch, in the order of time. Shafts that touch, end on end or lying on
// one line, meet as well. Computed from the roots of the side functions and not by sampling, so that
// no meeting is too short to be seen.
std::vector<Meeting> MeetingsOf(const MovingShaft& a, const MovingShaft& b);

}  // namespace workbench
