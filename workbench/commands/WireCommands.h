// The commands that look at the wires and log them, and the keys of the instruments on them.
#pragma once

#include "workbench/commands/Commands.h"
#include "workbench/wires/Instruments.h"

namespace workbench {

// Adds "wire ...", "ergo", "gauge keys" and "gauge zero". The instruments must outlive the commands.
void AddWireCommands(Commands& commands, Instruments& instruments);

}  // namespace workbench
