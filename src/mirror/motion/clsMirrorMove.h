// Moves of the tilting mirror: the one limit of its range, and the way to a stored cell.
#pragma once

#include <cstdint>

#include "core/ground/Positions.h"
#include "core/state/FailureHandler.h"
#include "core/state/SharedState.h"
#include "devices/links/clsCommunication.h"
#include "needle/clsObjectiveUpDown.h"

namespace travo {

// Positions are the mirror controller's counts, zero at the centre of the tilt. Every command is an
// absolute one and returns at once; with the mirror's port closed none goes out.
class clsMirrorMove {
public:
    // A step move goes no further than this to either side.
    static constexpr std::int32_t Range = 180;

    clsMirrorMove(SharedState& state, clsCommunication& communication, clsObjectiveUpDown& objective,
                  FailureHandler& failures)
        : state_(state), communication_(communication), objective_(objective), failures_(failures) {}

    // Index 0 is X, 1 is Y; Sign 0 adds, 1 subtracts; any other value of either does nothing. From the
    // place last reported, not the one last commanded. Beyond the range nothing is sent and
    // "Movement limit X" or "Movement limit Y" is shown. Raises OverflowFailure beyond 32 bits.
    void MirrorMove(std::int16_t Index, std::int16_t Sign, std::int32_t MoveAmount);

    // The mirror to the cell's X and Y, without a test of the range, and the objective to its Z, in
    // common Z units. Raises OverflowFailure where the objective's way does not fit 32 bits.
    void MirrorMoveToCell(const PositionXYZ& CellXYZ);

    void MirrorMoveToCenter();

private:
    SharedState& state_;
    clsCommunication& communication_;
    // Shared, and perhaps not constructed before this object: used in moves only.
    clsObjectiveUpDown& objective_;
    FailureHandler& failures_;
};

}  // namespace travo
