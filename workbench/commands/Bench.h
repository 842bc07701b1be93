// The whole workbench without any transport: the world, its instruments, and the commands that work them.
#pragma once

#include <string>

#include "workbench/commands/Commands.h"
#include "workbench/instruments/Manipulators.h"
#include "workbench/wires/Instruments.h"
#include "workbench/world/World.h"

namespace workbench {

struct Bench {
    // With all commands. The folder is the program folder of the control program, or empty: see
    // AddWorldCommands.
    explicit Bench(const std::string& programFolder = {});
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    World world;
    Manipulators manipulators{world};
    Instruments instruments{world};
    Commands commands{world, manipulators};
};

}  // namespace workbench
