// What the operator has written about each needle in manipulators.ini: one section "[needle 1]" to "[needle
// 4]". A needle with a mistake is absent: it is better not to have it than to move another axis than was
// meant.
//
//   [needle 1]
//   port = /dev/serial/by-id/usb-…      absolute path of the device
//   dialect = grbl                      grbl, marlin or omm
//   baud = 115200                       optional; 115200 for grbl, 250000 for marlin, 921600 for omm
//   counts-per-mm = 1000                above 0, to 1000000
//   x = +X                              the controller's axis that TRAVO's X is, with its sign; each axis
//   once y = -Y z = +Z zero = 0, 0, 0                      machine position of count 0 in mm, controller's X,
//   Y, Z speed-limit = 8                     optional; mm/s that no axis may exceed acceleration = 100 mm/s²
//   of each axis; needed where the controller does not tell it min = 0, 0, 0                       optional;
//   machine positions that are never commanded: below these, max = 20, 20, 20                    or above
//   these, beside the controller's own soft limits homing = required                   required or none:
//   whether a position counts before homing quick-stop = distrust               distrust or keep: what a stop
//   without a ramp leaves (marlin)
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/gcode/NeedleSettings.h"

namespace gcode {

struct Mistake {
    int line = 0;    // 1-based
    int needle = 0;  // the needle that is absent for it; 0 where it belongs to none
    std::string text;
};

struct Settings {
    std::array<std::optional<NeedleSettings>, MostNeedles> needles;
    std::vector<Mistake> mistakes;  // in the order of their lines
};

// Never fails: what is wrong is among the mistakes. Lines end with LF or CR LF; a line whose first character
// is # or ; is a comment. Of a text beyond 64 kB nothing is read.
Settings ReadSettings(std::string_view text);

}  // namespace gcode
