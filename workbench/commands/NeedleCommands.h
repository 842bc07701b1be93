// The commands that make needles imperfect.
#pragma once

#include <string>

#include "workbench/commands/Commands.h"
#include "workbench/instruments/Manipulators.h"
#include "workbench/world/World.h"

namespace workbench {

// Adds "needle ...". World and manipulators must outlive the commands.
void AddNeedleCommands(Commands& commands, World& world, Manipulators& manipulators);

// What is wrong with the needles, each with a blank before it, as "needle1:noise".
std::string NeedleFaults(const World& world, const Manipulators& manipulators);

}  // namespace workbench
