// The commands that make the wires and the instruments on them fail.
#pragma once

#include <string>

#include "workbench/commands/Commands.h"
#include "workbench/wires/Instruments.h"

namespace workbench {

// Adds "fault mirror ...", "fault motor ...", "fault gauge ...". The instruments must outlive the commands.
void AddWireFaultCommands(Commands& commands, Instruments& instruments);

// The faults of the wires that are on, each with a blank before it, as "mirror:silent".
std::string WireFaults(const Instruments& instruments);
// Of the counting ones among them: name, and how many lines or commands are left, -1 for always.
std::string WireFaultsLeft(const Instruments& instruments);
// Ends them all, and plugs the cables in again.
void ClearWireFaults(Instruments& instruments, Time now);

}  // namespace workbench
