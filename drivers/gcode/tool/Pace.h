// Whether an axis keeps the pace that TRAVO counts on: 0.25 ms a count.
#pragma once

#include <string>

#include "drivers/gcode/Feed.h"
#include "drivers/gcode/NeedleSettings.h"

namespace gcode {

struct Pace {
    bool isFastEnough = false;  // for the whole travel of 25000 counts
    int inTimeFrom = 0;         // the shortest way in counts that is in time; 0 where none is
    double wholeTravel = 0;     // s for 25000 counts
    double jogLate = 0;         // ms that the 50 counts of the connection panel's jog are late
};

// Of one of the controller's axes alone, from 0 to 2.
Pace PaceOf(const NeedleSettings& needle, const MachineLimits& limits, std::size_t axis);

// One line for it: what the axis can do and what is needed.
std::string PaceText(const NeedleSettings& needle, const MachineLimits& limits, std::size_t axis);

}  // namespace gcode
