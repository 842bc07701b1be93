// The commands that look at the world and reach into it: true places, joysticks, mounts, settings.
#pragma once

#include <string>

#include "workbench/commands/Commands.h"
#include "workbench/world/World.h"

namespace workbench {

// Adds "world ...", "mount" and "write-settings". The folder is the program folder of the control
// program, or empty: where write-settings writes if it is told no file. The world must outlive the
// commands.
void AddWorldCommands(Commands& commands, World& world, const std::string& programFolder);

}  // namespace workbench
