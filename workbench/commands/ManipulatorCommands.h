// The commands that work the manipulators: driver calls, their faults, and the keys at the hardware.
#pragma once

#include <string>

#include "workbench/commands/Commands.h"
#include "workbench/instruments/Manipulators.h"

namespace workbench {

// Adds "driver ...", "fault driver", "fault count", "fault range", "hardware select" and "counters". The
// manipulators must outlive the commands.
void AddManipulatorCommands(Commands& commands, Manipulators& manipulators);

// The faults of the manipulators that are on, by the words that set them, with a blank before each.
std::string ManipulatorFaults(const Manipulators& manipulators, Time now);

}  // namespace workbench
