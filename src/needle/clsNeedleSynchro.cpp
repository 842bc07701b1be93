#include "needle/clsNeedleSynchro.h"

#include <QString>

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

constexpr std::size_t Z = 2;
// The furthest downward step of one change of the view, in common Z units.
constexpr std::int32_t LargestDownwardStep = -1000;

}  // namespace

bool clsNeedleSynchro::NeedleSynchroMove(std::int16_t ManipulatorNumber, const PositionXYZ& NeedleXYZ,
                                         const PositionXYZ& CurrentXYZ, const PositionXYZ& bufMoveXYZ,
                                         std::int16_t TotalManipulatorNumber) {
    bool followed = false;
    failures_.Handle(QStringLiteral("Error: Synchronization faild"), [&] {
        if (CurrentXYZ[Z] == NoPositionValue) {
            failures_.Report(QStringLiteral("Prease connect magnescale"));
            return;
        }
        if (bufMoveXYZ[Z] < LargestDownwardStep) {
            failures_.Report(QStringLiteral("Amount of the movement once is too large"));
            return;
        }
        followed = Follow(ManipulatorNumber, NeedleXYZ, CurrentXYZ, bufMoveXYZ, TotalManipulatorNumber);
    });
    return followed;
}

bool clsNeedleSynchro::Follow(std::int16_t ManipulatorNumber, const PositionXYZ& NeedleXYZ,
                              const PositionXYZ& CurrentXYZ, const PositionXYZ& bufMoveXYZ,
                              std::int16_t TotalManipulatorNumber) {
    PositionXYZ target{};
    int changedAxes = 0;
    for (std::size_t axis = 0; axis < target.size(); ++axis) {
        target[axis] = Sum(bufMoveXYZ[axis], NeedleXYZ[axis]);
        changedAxes += bufMoveXYZ[axis] != 0;
    }
    // A downward step never brings the needle below the Z stand-off.
    const bool downward = bufMoveXYZ[Z] < 0;
    if (downward && (CurrentXYZ[Z] < objective_.lngOffset || target[Z] < objective_.lngOffset)) {
        target[Z] = objective_.lngOffset;
    }
    if (changedAxes == 0) {
        return true;
    }
    return needleMove_.NeedleMove(ManipulatorNumber, target, TotalManipulatorNumber, false, true);
}

}  // namespace travo
