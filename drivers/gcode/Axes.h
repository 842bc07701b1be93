// Between TRAVO's counts and the controller's machine coordinates.
#pragma once

#include <optional>

#include "drivers/gcode/NeedleSettings.h"
#include "drivers/gcode/Units.h"

namespace gcode {

// Where the counts are in machine coordinates: zero + sign * count / countsPerMm on the axis that each is.
Millimetres MachinePosition(const NeedleSettings& needle, const Counts& counts);

// The nearest whole counts; nothing where they do not fit 32 bits.
std::optional<Counts> NearestCounts(const NeedleSettings& needle, const Millimetres& machine);

}  // namespace gcode
