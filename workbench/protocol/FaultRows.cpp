// The commands that make things fail.
#include <array>

#include "workbench/protocol/Rows.h"

namespace workbench::rows {

namespace {

constexpr std::array<CommandRow, 7> DriverFaultRows = {{
    {"fault driver fail off", "", "Driver calls do not fail any more."},
    {"fault driver fail <n:calls>|always [<call>]", "",
     "The next n calls, or those of that name, answer -1 and do nothing."},
    {"fault driver hang off", "", "Driver calls are answered again."},
    {"fault driver hang <seconds:hang>", "", "No driver call is answered meanwhile; all else is."},
    {"fault count <n:connected>", "",
     "The first n manipulators are connected; needles that are not cross nothing."},
    {"fault range off", "", "No position is out of range."},
    {"fault range <needle>", "", "This manipulator reports 30000 as its X; the needle stays where it is."},
}};

constexpr std::array<CommandRow, 14> WireFaultRows = {{
    {"fault <wire> silent on|off", "", "The instrument hears and acts, but says nothing."},
    {"fault <wire> vanish", "", "The cable is pulled out: the port hangs up and its link is gone."},
    {"fault <wire> return", "", "The cable is plugged in again: it is a new port."},
    {"fault <wire> noise <bytes:noise>", "", "So many bytes of any value, now."},
    {"fault <wire> garble <lines:garbled>", "",
     "One byte of each of the next lines becomes another one; 0 ends it."},
    {"fault <wire> cut off", "", "Ends the cut that waits for its line."},
    {"fault <wire> cut <bytes:kept>", "",
     "Of the next line only so many bytes come, its end lost with the rest."},
    {"fault <wire> flood <lines:flood>", "", "So many lines that nobody asked for, at the rate of the wire."},
    {"fault mirror error <error> [<commands>|always]", "",
     "The next command, or so many, are answered with that error and not carried out; 0 commands end it."},
    {"fault mirror fields <fields> [<lines>|always]", "",
     "The next status line, or so many, has so many fields; 0 lines end it."},
    {"fault mirror limit <axis> on|off", "", "The flag of that axis is up, wherever the mirror stands."},
    {"fault mirror motors on|off", "",
     "The motors are switched at the controller; it is a state, and fault clear leaves it."},
    {"fault motor refuse [<commands>|always]", "",
     "The next command, or so many, is answered N and not carried out; 0 ends it."},
    {"fault gauge garbage on|off", "", "Readings are eight characters that are no number."},
}};

constexpr std::array<CommandRow, 3> AllFaultRows = {{
    {"fault list", "names of the faults that are on",
     "fail, hang, count, range; those of the wires, as mirror:silent; those of the needles, as "
     "needle1:noise. A flag held up stands "
     "there twice: mirror:limit, and behind it mirror:limitx, mirror:limity or both."},
    {"fault left", "for each counting fault that is on: name, number left (-1: always)",
     "fail, mirror:garble and so on, mirror:error, mirror:fields, motor:refuse."},
    {"fault clear", "",
     "Ends them all; four are connected, the cables are in, needles are perfect; the selection stays."},
}};

}  // namespace

const CommandSection DriverFaults{"Faults of the needles", "", DriverFaultRows};
const CommandSection WireFaults{"Faults of the wires", "`1` and `0` may stand for `on` and `off` everywhere.",
                                WireFaultRows};
const CommandSection AllFaults{"All faults", "", AllFaultRows};

}  // namespace workbench::rows
