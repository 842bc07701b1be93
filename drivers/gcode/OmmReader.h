// What a line of the Open Micro-Manipulator says; after the section "G-Code Interface" of its README: every
// command is answered with what it tells and then "ok" or "error". Its log lines have a letter and a bracket
// in front.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "drivers/gcode/Units.h"

namespace gcode {

struct OmmLine {
    enum class Kind {
        Ok,
        Error,  // "error", and whatever stands behind it
        Busy,   // "busy": the command was not taken
        Log,    // "D) ", "I) ", "W) ", "E) "; text without them
        Data    // anything else: what a command tells
    };
    Kind kind = Kind::Data;
    std::string text;
};

OmmLine ReadOmm(std::string_view line);

// The answer of M50. The README does not show its form: taken are the letters X, Y and Z, each once and in
// this order, each with its decimal right behind or behind ':' or '=', with blanks or commas between; behind
// them at most the rotation, A, B and C, likewise. Anything else is no pose.
std::optional<Millimetres> OmmPose(std::string_view text);

// The answer of M53: "1 = finished, 0 = not finished".
std::optional<bool> OmmFinished(std::string_view text);

// What a line of M57 tells of homing: whether its word "homed", with ':' or '=' or blanks, is followed by 1,
// yes or true, or by 0, no or false. Nothing where the line does not speak of it so.
std::optional<bool> OmmHomed(std::string_view text);

}  // namespace gcode
