// The commands that write the settings file of the control program.
#pragma once

#include <string>

#include "workbench/commands/Commands.h"
#include "workbench/wires/Instruments.h"
#include "workbench/world/World.h"

namespace workbench {

// Adds "write-settings" and "as-new". The folder is the program folder of the control program, or empty:
// where they write if they are told no file. World and instruments must outlive the commands.
void AddSettingsCommands(Commands& commands, const World& world, const Instruments& instruments,
                         const std::string& programFolder);

}  // namespace workbench
