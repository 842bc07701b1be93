// The objective's moves and the Z stand-off of cell moves.
#pragma once

#include <cstdint>

#include "core/state/FailureHandler.h"
#include "devices/links/clsCommunication.h"

namespace travo {

class clsObjectiveUpDown {
public:
    // Steps of the focus motor for each common Z unit.
    static constexpr std::int32_t MotorStepsPerUnit = 100;

    clsObjectiveUpDown(clsCommunication& communication, FailureHandler& failures)
        : communication_(communication), failures_(failures) {}

    // Lowest Z stand-off that the user panel accepts.
    std::int32_t lngMinimumOffset = 100;
    // Z stand-off in common Z units; also the lower limit of a needle's Z in synchronised moves. Persisted.
    std::int32_t lngOffset = 100;
    // Z difference of the last move of the objective, in common Z units.
    std::int32_t lngAmountZMove = 0;

    // Starts the objective from CurrentZ towards AfterPosition, both in common Z units, and does not
    // wait. A CurrentZ that is not set becomes 0 in the caller's variable. An AfterPosition that is not
    // set is told in a box, without a log line. Nothing moves while the motor's port is closed. Raises
    // OverflowFailure where the way does not fit 32 bits.
    void ObjectiveUpDown(std::int32_t& CurrentZ, std::int32_t AfterPosition);

private:
    clsCommunication& communication_;
    FailureHandler& failures_;
};

}  // namespace travo
