// The commands that look at the world and reach into it: true places, joysticks, score, mounts.
#pragma once

#include "workbench/commands/Commands.h"
#include "workbench/world/World.h"

namespace workbench {

// Adds "world ..." and "mount". The world must outlive the commands.
void AddWorldCommands(Commands& commands, World& world);

}  // namespace workbench
