// The commands that are handed on to the camera program.
#pragma once

#include "workbench/commands/Commands.h"
#include "workbench/socket/Exchange.h"

namespace workbench {

// Adds "camera running" and the camera program's faults. The exchange leads to the camera program's own
// socket and must outlive the commands.
void AddCameraCommands(Commands& commands, Exchange& camera);

}  // namespace workbench
