// The commands that work the manipulators: driver calls, their faults, and the keys at the hardware.
#pragma once

#include <string>

#include "workbench/commands/Commands.h"
#include "workbench/instruments/Manipulators.h"
#include "workbench/wires/Traffic.h"

namespace workbench {

// Adds the driver calls, each of which is told to the traffic, their faults, "hardware ..." and "counters".
// All three must outlive the commands.
void AddManipulatorCommands(Commands& commands, Manipulators& manipulators, World& world, Traffic& traffic);

// The faults of the manipulators that are on, by the words that set them, with a blank before each.
std::string ManipulatorFaults(const Manipulators& manipulators, Time now);

}  // namespace workbench
