#include "needle/clsEscape.h"

#include <cstddef>

#include "core/ground/Arithmetic.h"

namespace travo {

clsEscape::clsEscape(const Machine& machine, SharedState& state, clsCommunication& communication,
                     clsNeedleMove& needleMove, FailureHandler& failures)
    : machine_(machine),
      state_(state),
      needleMove_(needleMove),
      failures_(failures),
      objective_(communication, failures) {
    needleEscape_.fill({NoPositionValue, NoPositionValue, NoPositionValue});
}

std::int32_t clsEscape::NeedleEscape(std::int32_t ManipulatorNumber, std::int32_t XYZ) const {
    return needleEscape_[Bounded(ManipulatorNumber, needleEscape_.size())][Bounded(XYZ, AxisCount)];
}

void clsEscape::NeedleEscape(std::int32_t ManipulatorNumber, std::int32_t XYZ, std::int32_t value) {
    needleEscape_[Bounded(ManipulatorNumber, needleEscape_.size())][Bounded(XYZ, AxisCount)] = value;
}

void clsEscape::ZEscape(std::int32_t& CurrentZ) { objective_.ObjectiveUpDown(CurrentZ, zEscapePosition_); }

void clsEscape::HomePositionEscape(const PositionXYZ&, std::int32_t& CurrentZ,
                                   std::int16_t TotalManipulatorNumber,
                                   const std::function<bool()>& NeedleMayGo) {
    failures_.Handle(QStringLiteral("Escape : Communication failed"), [&] {
        ZEscape(CurrentZ);
        WaitForObjective();
        if (NeedleMayGo && !NeedleMayGo()) {
            return;
        }
        PositionXYZ home{};
        if (ReadHome(home)) {
            needleMove_.NeedleMove(state_.intManipulatorNumber, home, TotalManipulatorNumber, false, false);
        }
    });
}

void clsEscape::WaitForObjective() {
    const std::int64_t start = machine_.clock.TickCount();
    machine_.eventLoop.Serve();
    while (NowCurrentZPos < Difference(zEscapePosition_, ArrivalMargin)) {
        const std::int64_t gone = machine_.clock.TickCount() - start;
        if (gone > WaitLimit) {
            return;
        }
        machine_.eventLoop.ServeUntilEventOr(WaitLimit + 1 - gone);
    }
}

bool clsEscape::ReadHome(PositionXYZ& home) {
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        const std::int32_t value = NeedleEscape(state_.intManipulatorNumber, axis);
        if (value == NoPositionValue) {
            failures_.Report(QStringLiteral("Escape : Please set manipulator escape position."));
            return false;
        }
        home[static_cast<std::size_t>(axis)] = value;
    }
    return true;
}

}  // namespace travo
