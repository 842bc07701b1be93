#include "mirror/motion/clsMirrorMove.h"

#include "core/ground/Arithmetic.h"

namespace travo {

void clsMirrorMove::MirrorMove(std::int16_t Index, std::int16_t Sign, std::int32_t MoveAmount) {
    const bool knownAxis = Index == 0 || Index == 1;
    const bool knownSign = Sign == 0 || Sign == 1;
    if (!knownAxis || !knownSign) {
        return;
    }
    const std::int32_t present = state_.CurrentXYZ(Index);
    const std::int32_t target = Sign == 0 ? Sum(present, MoveAmount) : Difference(present, MoveAmount);
    if (AbsoluteValue(target) <= Range) {
        communication_.SendMirrorData(Index, target);
    } else {
        failures_.Show(Index == 0 ? QStringLiteral("Movement limit X") : QStringLiteral("Movement limit Y"));
    }
}

void clsMirrorMove::MirrorMoveToCell(const PositionXYZ& CellXYZ) {
    communication_.SendMirrorData(0, CellXYZ[0]);
    communication_.SendMirrorData(1, CellXYZ[1]);
    // A copy: a height that is not set becomes 0 for this move alone.
    std::int32_t currentZ = state_.CurrentXYZ(2);
    objective_.ObjectiveUpDown(currentZ, CellXYZ[2]);
}

void clsMirrorMove::MirrorMoveToCenter() {
    communication_.SendMirrorData(0, 0);
    communication_.SendMirrorData(1, 0);
}

}  // namespace travo
