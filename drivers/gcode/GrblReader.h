// What a line of grbl 1.1 says; after its documents "Grbl Interface Basics" and "Grbl v1.1 Commands".
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "drivers/gcode/Units.h"

namespace gcode {

// The machine states of a status report; with Unknown for a word that the document does not have.
enum class GrblState { Idle, Run, Jog, Hold, Home, Door, Alarm, Check, Sleep, Unknown };

struct GrblStatus {
    GrblState state = GrblState::Unknown;
    std::string stateText;                     // with its sub-state, as "Hold:1"
    std::optional<Millimetres> machine, work;  // MPos or WPos: just one of them
    std::optional<Millimetres> workOffset;     // WCO, where the report has it
};

struct GrblLine {
    enum class Kind {
        Ok,
        Error,    // number
        Alarm,    // number
        Status,   // status
        Broken,   // begins like a status report and is none
        Banner,   // "Grbl 1.1h ['$' for help]": the controller has started; text is the version
        Setting,  // "$110=500.000": number and value
        Message,  // "[MSG:…]" and its kin: text is what stands between the brackets
        Startup,  // ">G54G20:ok": never the answer to a command
        Other
    };
    Kind kind = Kind::Other;
    int number = 0;
    double value = 0;
    std::string text;
    GrblStatus status;
};

// Never fails; a line of another form is Other, or Broken where it might have been a position.
GrblLine ReadGrbl(std::string_view line);

// One sentence for an alarm's number; empty for a number that the document does not have.
std::string_view GrblAlarmText(int number);

}  // namespace gcode
