// How fast a move must be fed to arrive in time.
#pragma once

#include <optional>

#include "drivers/gcode/Units.h"

namespace gcode {

// What a machine can do on each of its axes; both above 0.
struct MachineLimits {
    Millimetres speed{};         // mm/s
    Millimetres acceleration{};  // mm/s²
};

// Of a straight move from rest to rest.
struct FedMove {
    double length = 0;     // mm along the vector
    double feed = 0;       // mm/s along the vector; 0 for a move of no length
    double duration = 0;   // s that it takes with its ramps
    bool isInTime = true;  // whether it takes no longer than was asked for
};

// The slowest feed along the vector with which the move takes at most `wanted` s (above 0), ramps included,
// or, where the machine is slower, the fastest that no axis exceeds. Both ramps have the acceleration that
// the axis that is weakest for this direction allows: a controller scales the vector so (grbl, Marlin), and
// one with an acceleration along the vector alone (Open Micro-Manipulator) is no slower for equal axes.
FedMove Feed(const Millimetres& from, const Millimetres& to, double wanted, const MachineLimits& limits);

// Seconds that a move of that length takes from rest to rest at that feed and acceleration: a trapezoid, or a
// triangle where the feed is not reached.
double TravelTime(double length, double feed, double acceleration);

}  // namespace gcode
