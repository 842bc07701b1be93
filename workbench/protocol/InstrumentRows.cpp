// The commands that work the instruments on the wires, the optics behind them, and the camera program.
#include <array>

#include "workbench/protocol/Rows.h"

namespace workbench::rows {

namespace {

constexpr std::array<CommandRow, 11> OpticsRows = {{
    {"mirror state", "counts now x y; at rest x y; motors on; limit X; limit Y", "The mirror as it stands."},
    {"mirror move <x:whole> <y:whole>", "",
     "To counts; beyond 180 to its limit, and the limit flag is raised; refused with the motors off."},
    {"mirror jog <dx:whole> <dy:whole>", "",
     "The same by a distance; an axis that is not jogged goes on as it goes."},
    {"mirror motors on|off", "", "The mirror's motors; off, it stops where it is."},
    {"magnification", "index", "1 is 0.35x, 2 is 2x, 3 is 4x, 0 between two objectives."},
    {"magnification <index>", "", "Changes the objective."},
    {"focus state", "Z now; Z at rest; motor counts now; at rest", "The focal plane."},
    {"focus move <counts:focus>", "", "To motor counts, 100 to a unit of Z."},
    {"focus jog <counts:whole>", "",
     "By motor counts from where it comes to rest, 0 stops it; refused beyond 4000000 to either side."},
    {"gauge state", "reading in Z units; Z at which it shows 0", "The gauge."},
    {"camera state",
     "view centre X Y; magnification index; width and height of the view; Z of the focal plane; number of "
     "needles, and for each: "
     "connected, tip X Y Z, end of the shaft in plan X Y; number of cells, and for each: X Y Z, radius",
     "All that a picture of the view needs, in one line."},
}};

constexpr std::array<CommandRow, 12> WireRows = {{
    {"wire list", "for each wire: name, port, whether the cable is in, whether anybody has the port open",
     "The wires."},
    {"wire counters <wire>", "for each command received: name, number; unknown, number",
     "What never came is not there."},
    {"wire counters <wire> forget", "", "Starts to count anew."},
    {"wire log <wire> off", "", "Ends the log."},
    {"wire log <wire> <file>", "", "Logs the wire; the file is begun anew."},
    {"wire replay <wire> off", "", "Ends the replay."},
    {"wire replay <wire> <file>", "", "Replays a log."},
    {"ergo together <line>", "", "A line of the Ergo unit in one write with a status line behind it."},
    {"ergo <line>", "", "A line of the Ergo unit, which begins with RZ, MZ, RE, WZ or ZE."},
    {"gauge keys", "1 or 0", "Whether the gauge's keys are enabled."},
    {"gauge zero", "", "Presses the gauge's zero key; refused while the keys are disabled."},
    {"traffic <serial>", "serial to ask for next; number of records lost; up to 40 records, each one word",
     "What went over the wires and through the driver, from that serial on (see \"Traffic\")."},
}};

constexpr std::array<CommandRow, 6> CameraRows = {{
    {"camera running", "1 or 0", "Whether a camera program runs; one that hangs does."},
    {"camera hide", "", "As by its button."},
    {"camera close", "", "As by its button."},
    {"camera kill", "", "It ends at once and tells nobody."},
    {"camera hang <seconds:pause>", "", "It answers nothing for so long."},
    {"camera fail <calls:failures>", "", "Its next so many calls are answered with an error and do nothing."},
}};

}  // namespace

const CommandSection Optics{
    "Optics", "As by the hardware's own handles; nothing of it goes through the control program.",
    OpticsRows};
const CommandSection Wires{"Wires", "", WireRows};
const CommandSection Camera{"Camera program",
                            "Handed on to the camera program's own socket. The answer is awaited for 20 ms: "
                            "`ok` says that the line has gone there, also to a "
                            "program that hangs and takes it up later.",
                            CameraRows};

}  // namespace workbench::rows
