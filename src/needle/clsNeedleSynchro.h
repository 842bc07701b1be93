// Keeps a needle in step with the view.
#pragma once

#include <cstdint>

#include "core/ground/Positions.h"
#include "core/state/FailureHandler.h"
#include "needle/clsNeedleMove.h"
#include "needle/clsObjectiveUpDown.h"

namespace travo {

class clsNeedleSynchro {
public:
    clsNeedleSynchro(clsNeedleMove& needleMove, const clsObjectiveUpDown& objective, FailureHandler& failures)
        : needleMove_(needleMove), objective_(objective), failures_(failures) {}

    // Moves a needle by a change of the view. NeedleXYZ is its present place in the common frame,
    // CurrentXYZ the new view in the mirror frame, bufMoveXYZ the change of view in the common frame.
    // False when the step was refused or failed, which has been told; true without a move when
    // nothing changed.
    bool NeedleSynchroMove(std::int16_t ManipulatorNumber, const PositionXYZ& NeedleXYZ,
                           const PositionXYZ& CurrentXYZ, const PositionXYZ& bufMoveXYZ,
                           std::int16_t TotalManipulatorNumber);

private:
    // The step itself, once it is allowed. OverflowFailure when the target does not fit 32 bits.
    bool Follow(std::int16_t ManipulatorNumber, const PositionXYZ& NeedleXYZ, const PositionXYZ& CurrentXYZ,
                const PositionXYZ& bufMoveXYZ, std::int16_t TotalManipulatorNumber);

    clsNeedleMove& needleMove_;
    const clsObjectiveUpDown& objective_;
    FailureHandler& failures_;
};

}  // namespace travo
