// The commands that work the manipulators: driver calls, their faults, and the keys at the hardware.
#pragma once

#include "workbench/Commands.h"
#include "workbench/Manipulators.h"

namespace workbench {

// Adds "driver ...", "fault ...", "hardware select" and "counters". The manipulators must outlive the
// commands.
void AddManipulatorCommands(Commands& commands, Manipulators& manipulators);

}  // namespace workbench
