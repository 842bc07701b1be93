#include "workbench/commands/Bench.h"

#include "workbench/commands/ManipulatorCommands.h"
#include "workbench/commands/OpticsCommands.h"
#include "workbench/commands/WireCommands.h"
#include "workbench/commands/WireFaultCommands.h"
#include "workbench/commands/WorldCommands.h"

namespace workbench {

Bench::Bench(const std::string& programFolder) {
    AddManipulatorCommands(commands, manipulators);
    AddWorldCommands(commands, world, programFolder);
    AddOpticsCommands(commands, world);
    AddWireCommands(commands, instruments);
    AddWireFaultCommands(commands, instruments);
    commands.Add("fault list", [this](const Words& words, Time now) {
        ExpectWords(words, 0, 0);
        return ManipulatorFaults(manipulators, now) + WireFaults(instruments);
    });
    commands.Add("fault clear", [this](const Words& words, Time now) {
        ExpectWords(words, 0, 0);
        manipulators.ClearFaults(now);
        ClearWireFaults(instruments, now);
        return std::string();
    });
}

}  // namespace workbench
