// What a line of Marlin and its kin says; after the G-code pages of its documentation (M114, M115, M203,
// M211, M503, "Host Keepalive") and the printer's replies that they show.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "drivers/gcode/Units.h"

namespace gcode {

struct MarlinPosition {
    Millimetres projected{};           // where it was told to go last, in its own coordinates
    std::optional<Millimetres> steps;  // "Count": where the steppers are now
};

struct MarlinLine {
    enum class Kind {
        Ok,            // "ok", "ok N12 P15 B3", "ok T:44 /0"
        Busy,          // "busy: processing", "echo:busy: paused for user", "wait"
        Start,         // "start", "Marlin 1.1.0", "echo: External Reset": the controller has started
        Error,         // "Error:…", "!!"; text
        Resend,        // "Resend: 12", "rs 12"
        Unknown,       // echo:Unknown command: "…"
        HomeFirst,     // "echo:Home X/Y/Z First"
        Position,      // the answer of M114: position
        Broken,        // begins like a position and is none
        Setting,       // a line of M503, as "M92 X80.00 Y80.00 Z400.00": number (92) and text
        SoftEndstops,  // min and max where they are on
        Firmware,      // FIRMWARE_NAME:…; text
        Capability,    // "Cap:EMERGENCY_PARSER:1": text is the name, number 0 or 1
        Other
    };
    Kind kind = Kind::Other;
    int number = 0;
    std::string text;
    MarlinPosition position;
    std::optional<Millimetres> min, max;
};

// Never fails; a line of another form is Other.
MarlinLine ReadMarlin(std::string_view line);

// The number behind a letter of a command line, as X of "M92 X80.00 Y80.00".
std::optional<double> Word(std::string_view command, char letter);
// X, Y and Z of a command line, if it has all three.
std::optional<Millimetres> WordTriple(std::string_view command);

}  // namespace gcode
