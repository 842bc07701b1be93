#include "needle/clsObjectiveUpDown.h"

#include "core/ground/Arithmetic.h"
#include "core/ground/Positions.h"

namespace travo {

void clsObjectiveUpDown::ObjectiveUpDown(std::int32_t& CurrentZ, std::int32_t AfterPosition) {
    if (CurrentZ == NoPositionValue) {
        CurrentZ = 0;
    }
    if (AfterPosition == NoPositionValue) {
        failures_.Show(QStringLiteral("Escape : Prease setting objective escape position"));
        return;
    }
    lngAmountZMove = Difference(AfterPosition, CurrentZ);
    const bool open = communication_.MotorPortOpenCheck();
    if (lngAmountZMove != 0 && open) {
        communication_.MotorMoveRZ(Product(lngAmountZMove, MotorStepsPerUnit));
    }
}

}  // namespace travo
