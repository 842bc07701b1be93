// The quantities that go through the driver. A machine position is in mm in the controller's own machine
// coordinates, in the order X, Y, Z; counts are TRAVO's, in the order of its axes.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>

namespace gcode {

using Millimetres = std::array<double, 3>;
using Counts = std::array<std::int32_t, 3>;
// Since an origin that does not matter; in the program the steady clock, in tests whatever they say.
using Time = std::chrono::microseconds;

}  // namespace gcode
