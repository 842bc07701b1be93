// The commands of travo-gcode. Each gives the exit code: 0 when all is well, 1 when something is not.
#pragma once

#include "drivers/gcode/tool/Desk.h"

namespace gcode {

// Serial ports with what answers there. Ports of the settings are asked in their dialect; the others only
// where `asksOthers`, since a question may mean something else to another instrument.
int List(Desk& desk, bool asksOthers);
// Settings, controllers, states, limits, pace.
int Check(Desk& desk);
// Position of one needle, or of all with number 0.
int Where(Desk& desk, int number);
// Moves one of TRAVO's axes (0 X, 1 Y, 2 Z) by so many counts, at most MostJogCounts, and waits for the
// arrival.
inline constexpr int MostJogCounts = 1000;
int Jog(Desk& desk, int number, std::size_t axis, int counts);
// Both say what will happen, and do it when the answer on the standard input is "yes".
int Home(Desk& desk, int number);
int Unlock(Desk& desk, int number);
// Positions of all needles, twice a second, for so many seconds or until it is ended.
int Watch(Desk& desk, int seconds);

}  // namespace gcode
