// The whole workbench without its doors: the world, its instruments, and the commands that work them.
#pragma once

#include <string>

#include "workbench/commands/Commands.h"
#include "workbench/commands/TrafficCommands.h"
#include "workbench/instruments/Manipulators.h"
#include "workbench/socket/Exchange.h"
#include "workbench/socket/SocketPath.h"
#include "workbench/wires/Instruments.h"
#include "workbench/wires/Traffic.h"
#include "workbench/world/World.h"

namespace workbench {

struct Bench {
    // With all commands. The folder is the program folder of the control program, or empty: see
    // AddSettingsCommands. The socket is the one on which a camera program is looked for.
    explicit Bench(const std::string& programFolder = {},
                   const std::string& cameraSocket = CameraSocketPath());
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    World world;
    Traffic traffic;
    WorldTap worldTap{traffic};
    Manipulators manipulators{world};
    Instruments instruments{world};
    Exchange camera;
    Commands commands{world, manipulators};
};

}  // namespace workbench
