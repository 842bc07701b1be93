// The way of the objective between the marks of a calibration and the needle in focus above them.
#pragma once

#include <cstdint>

#include "core/state/FailureHandler.h"
#include "devices/links/clsCommunication.h"

namespace travo {

// By the focus motor where its port is open; else the operator raises by hand, and nothing is lowered.
class CtlCalibrationRaise {
public:
    // Motor steps; 100 common Z units.
    static constexpr std::int32_t Distance = 10000;

    class Listener {
    public:
        virtual ~Listener() = default;
        // The objective has been raised more often than lowered, or no longer. Told at each raise and
        // lowering, behind the command and ahead of its box.
        virtual void ObjectiveRaised(bool isRaised) = 0;
    };

    // Each outlives this object.
    CtlCalibrationRaise(clsCommunication& communication, FailureHandler& failures, Listener& listener)
        : communication_(communication), failures_(failures), listener_(listener) {}

    // Raises by one distance and tells the operator what is left for him to do.
    void Raise();
    // Takes one raise back.
    void Lower();

private:
    void Move(int way);

    clsCommunication& communication_;
    FailureHandler& failures_;
    Listener& listener_;
    // Raises of this run less lowerings.
    int raises_ = 0;
};

}  // namespace travo
