// The retreat: raises the objective and brings the selected needle home.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "core/ground/Positions.h"
#include "core/state/FailureHandler.h"
#include "core/state/SharedState.h"
#include "needle/clsNeedleMove.h"
#include "needle/clsObjectiveUpDown.h"
#include "platform/Clock.h"
#include "platform/EventLoop.h"

namespace travo {

class clsEscape {
public:
    // How long a needle waits for the objective, in milliseconds, and from how far below the
    // objective's escape position it need not wait any more, in common Z units.
    static constexpr std::int64_t WaitLimit = 5000;
    static constexpr std::int32_t ArrivalMargin = 10;

    // What the wait needs of the machine.
    struct Machine {
        platform::Clock& clock;
        platform::EventLoop& eventLoop;
    };

    clsEscape(const Machine& machine, SharedState& state, clsCommunication& communication,
              clsNeedleMove& needleMove, FailureHandler& failures);
    clsEscape(const clsEscape&) = delete;
    clsEscape& operator=(const clsEscape&) = delete;

    // The present Z, in common Z units; kept up to date by the owner at each change of the view.
    std::int32_t NowCurrentZPos = 0;

    // Home position of a needle in the common frame, needle 0 to 3, axis 0 to 2; NoPositionValue while
    // not set. BoundsFailure for an index outside. Not kept between runs.
    std::int32_t NeedleEscape(std::int32_t ManipulatorNumber, std::int32_t XYZ) const;
    void NeedleEscape(std::int32_t ManipulatorNumber, std::int32_t XYZ, std::int32_t value);

    // Escape height of the objective, in common Z units; NoPositionValue while not set.
    std::int32_t ZEscapePosition() const { return zEscapePosition_; }
    void ZEscapePosition(std::int32_t value) { zEscapePosition_ = value; }

    // Starts the objective towards its escape height. A CurrentZ that is not set becomes 0. Raises
    // OverflowFailure where the way does not fit 32 bits.
    void ZEscape(std::int32_t& CurrentZ);

    // Raises the objective, waits for it, serving events, and sends the needle that is selected at the
    // hardware home: also when the objective has not arrived after WaitLimit. Told to the operator:
    // a needle without a home, which stays, and every failure. NeedleMayGo, where given, is asked after the
    // wait: false, which it has told by then where there is something to tell, and the needle stays.
    void HomePositionEscape(const PositionXYZ& NeedleXYZ, std::int32_t& CurrentZ,
                            std::int16_t TotalManipulatorNumber,
                            const std::function<bool()>& NeedleMayGo = {});

private:
    void WaitForObjective();
    // False, after the operator has been told, where the selected needle has no home.
    bool ReadHome(PositionXYZ& home);

    Machine machine_;
    SharedState& state_;
    clsNeedleMove& needleMove_;
    FailureHandler& failures_;
    // Its own: its stand-off is not the shared one.
    clsObjectiveUpDown objective_;
    std::array<PositionXYZ, NeedleCount> needleEscape_;
    std::int32_t zEscapePosition_ = NoPositionValue;
};

}  // namespace travo
