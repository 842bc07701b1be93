// The commands that look at the optics and work them by hand, and the camera's whole picture in one line.
#pragma once

#include "workbench/commands/Commands.h"
#include "workbench/world/World.h"

namespace workbench {

// Adds "mirror ...", "magnification", "focus ...", "gauge ..." and "camera state". The world must outlive
// the commands.
void AddOpticsCommands(Commands& commands, World& world);

}  // namespace workbench
