// What is set for one needle.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "drivers/gcode/Units.h"

namespace gcode {

inline constexpr int MostNeedles = 4;

enum class DialectName { Grbl, Marlin, Omm };

// As it is written in the settings.
const char* Name(DialectName dialect);

// The controller's axis (0 X, 1 Y, 2 Z) that one of TRAVO's axes is, and with which sign.
struct AxisChoice {
    std::size_t axis = 0;
    int sign = 1;
};

struct NeedleSettings {
    int number = 0;  // 1 to 4
    std::string port;
    DialectName dialect = DialectName::Grbl;
    int baud = 0;
    double countsPerMm = 0;
    std::array<AxisChoice, 3> axes{};  // of TRAVO's X, Y, Z
    Millimetres zero{};
    std::optional<double> speedLimit;    // mm/s
    std::optional<double> acceleration;  // mm/s²
    std::optional<Millimetres> min, max;
    bool homingRequired = true;
    bool quickStopKeepsPosition = false;
};

// The rate of a dialect for which no other is given, in baud.
int UsualBaud(DialectName dialect);

}  // namespace gcode
