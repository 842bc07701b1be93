// The command that tells the traffic, and what fills it.
#pragma once

#include "workbench/commands/Commands.h"
#include "workbench/wires/Instruments.h"
#include "workbench/wires/Traffic.h"
#include "workbench/world/World.h"

namespace workbench {

// Tells the traffic what happens in the world: "crossing A B X Y", "arrived N CELL DISTANCE HEIGHT", "arrived
// N".
class WorldTap : public World::Listener {
public:
    explicit WorldTap(Traffic& traffic) : traffic_(traffic) {}
    void Crossed(const Crossing& crossing) override;
    void Arrived(std::int32_t needle, Time time, const std::optional<Landing>& landing) override;

private:
    Traffic& traffic_;
};

// Adds "traffic", and lets the wires tell it what goes over them. Both must outlive the commands, the traffic
// the wires.
void AddTrafficCommands(Commands& commands, Traffic& traffic, Instruments& instruments);

// The cell of a landing as it is told: 1 to 6, 0 for the view.
std::int32_t CellNumber(const Landing& landing);

}  // namespace workbench
