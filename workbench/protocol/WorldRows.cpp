// The commands that reach the needles: by the driver, and as the world truly is.
#include <array>

#include "workbench/protocol/Rows.h"

namespace workbench::rows {

namespace {

constexpr std::array<CommandRow, 5> DriverRows = {{
    {"driver getposition", "status 0 <number> <x> <y> <z>",
     "Number and counts of the selected manipulator, also while it moves."},
    {"driver moveto <x:whole> <y:whole> <z:whole>", "status 0",
     "Starts the selected manipulator; a target outside 0 to 25000 is answered with -3 and moves nothing."},
    {"driver select <number:whole>", "status 0 1",
     "Selects a manipulator; for a number that is not connected it answers status 0 0, and nothing changes."},
    {"driver getcount", "status 0 <count>", "How many manipulators are connected."},
    {"driver reconnect", "status 0",
     "Finds the manipulators anew; where the selected one is gone, number 1 is selected."},
}};

constexpr std::array<CommandRow, 23> WorldRows = {{
    {"world tip <needle>", "X Y Z now; X Y Z at rest", "The true tip, and where it will come to rest."},
    {"world counts <needle>", "x y z", "The counts now."},
    {"world aim <needle> <X:place> <Y:place> <Z:place>", "x y z",
     "The whole counts whose tip is nearest to a place, of a needle that is perfect; they may lie out of "
     "reach."},
    {"world move <needle> <x:count> <y:count> <z:count>", "", "The joystick, to counts."},
    {"world jog <needle> <dx:whole> <dy:whole> <dz:whole>", "",
     "The joystick, by a distance; it stops at the ends of the range."},
    {"world moving", "for each needle 1 or 0", "Which needles move."},
    {"world view", "X Y now; X Y at rest", "The view's centre, and where it will come to rest."},
    {"world view <x:mirror> <y:mirror>", "X Y", "The view's centre for mirror counts."},
    {"world cells", "for each cell: mirror counts x y, place X Y Z", "The cells, number 1 first."},
    {"world crossings", "number in all; pairs crossed now; for each of the last 200: two needles, ms, X Y",
     "The true crossings of shafts."},
    {"world crossings forget", "", "Starts to count anew."},
    {"world landing",
     "number in all; worst distance in plan; where there is one, of the last: needle, cell (1 to 6 as in "
     "world cells, 0: the view), "
     "distance in plan, height above the centre, ms, X Y of the centre meant",
     "How well the driver's moves landed."},
    {"world landing forget", "", "Starts to count anew."},
    {"world clock", "ms", "The time since the start, from which crossings, landings and traffic count."},
    {"hardware select <number:whole>", "", "Selects a manipulator, as by its key."},
    {"hardware selected", "number", "Which manipulator is selected."},
    {"mount <needle>", "heading, yaw, tilt, T in X Y Z", "How a needle is mounted, angles in degrees."},
    {"mount <needle> <heading:angle> [<yaw:angle> [<tilt:angle>]]", "",
     "Mounts a needle anew, home staying on the origin."},
    {"mount <needle> <heading:angle> <yaw:angle> <tilt:angle> <TX:place> <TY:place> <TZ:place>", "",
     "The same with T, the tip at counts of 0."},
    {"counters", "for each driver call: name, number; refused, number",
     "The driver calls received, and how many were refused."},
    {"counters forget", "", "Starts to count anew."},
    {"ping", "", "Nothing further."},
    {"shutdown", "", "Ends the workbench."},
}};

constexpr std::array<CommandRow, 5> ImperfectionRows = {{
    {"needle noise <needle> <counts:deviation>", "",
     "Readings of the driver differ from the counts on each axis by chance, normal with this standard "
     "deviation, in whole counts; "
     "the chance is the same in every run and begins anew with this command."},
    {"needle backlash <needle> <x:play> <y:play> <z:play>", "",
     "The play of each axis: going up, the carriage stays behind the counts by it once it is taken up; going "
     "down, it stands where "
     "the counts say. It begins with none taken up."},
    {"needle drift <needle> <x:drift> <y:drift> <z:drift>", "",
     "So the carriage leaves the place that the counts say, from now on."},
    {"needle bend <needle> <X:bend> <Y:bend> <Z:bend>", "",
     "The true tip is displaced so in the common frame; the rear end of the shaft is not."},
    {"needle state <needle>", "noise; backlash x y z; drift x y z; bend X Y Z", "What is set."},
}};

constexpr std::array<CommandRow, 3> SettingsRows = {{
    {"write-settings ports [<file>]", "", "As write-settings, with the numbers of the three serial ports."},
    {"write-settings [<file>]", "",
     "Writes the settings of all four needles with offsets of 0, into the program folder where no file is "
     "named; the file is "
     "replaced whole."},
    {"as-new [<file>]", "",
     "Writes calibrations and settings as the desk begins with them (see \"The desk\"); refused while "
     "anybody has a port open."},
}};

}  // namespace

const CommandSection Driver{"Driver calls", "Their statuses stand under \"What the driver answers\".",
                            DriverRows};
const CommandSection World{"World", "Needles, view and cells as they truly are, and the joystick.",
                           WorldRows};
const CommandSection Imperfections{
    "Needles that are not perfect",
    "Off at the start; ended by 0 or `fault clear`; listed by `fault list` as `needle1:noise`.",
    ImperfectionRows};
const CommandSection Settings{"Settings", "", SettingsRows};

}  // namespace workbench::rows
