#include "workbench/commands/Bench.h"

#include "workbench/commands/CameraCommands.h"
#include "workbench/commands/ManipulatorCommands.h"
#include "workbench/commands/NeedleCommands.h"
#include "workbench/commands/OpticsCommands.h"
#include "workbench/commands/SettingsCommands.h"
#include "workbench/commands/WireCommands.h"
#include "workbench/commands/WireFaultCommands.h"
#include "workbench/commands/WorldCommands.h"

namespace workbench {

namespace {

void AddFaultCommands(Bench& bench) {
    bench.commands.Add("fault list", [&bench](const Words&, Time now) {
        return ManipulatorFaults(bench.manipulators, now) + WireFaults(bench.instruments) +
               NeedleFaults(bench.world, bench.manipulators);
    });
    bench.commands.Add("fault left", [&bench](const Words&, Time) {
        const std::int32_t calls = bench.manipulators.FailingCalls();
        return (calls == 0 ? std::string() : Blanked({"fail", std::to_string(calls)})) +
               WireFaultsLeft(bench.instruments);
    });
    bench.commands.Add("fault clear", [&bench](const Words&, Time now) {
        bench.manipulators.ClearFaults(now);
        ClearWireFaults(bench.instruments, now);
        return std::string();
    });
}

}  // namespace

Bench::Bench(const std::string& programFolder, const std::string& cameraSocket) : camera(cameraSocket) {
    world.Listen(&worldTap);
    AddManipulatorCommands(commands, manipulators, world, traffic);
    AddNeedleCommands(commands, world, manipulators);
    AddWorldCommands(commands, world);
    AddSettingsCommands(commands, world, instruments, programFolder);
    AddOpticsCommands(commands, world);
    AddWireCommands(commands, instruments);
    AddTrafficCommands(commands, traffic, instruments);
    AddWireFaultCommands(commands, instruments);
    AddCameraCommands(commands, camera);
    AddFaultCommands(*this);
}

}  // namespace workbench
