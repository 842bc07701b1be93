#include "needle/clsNeedleMove.h"

#include <QString>
#include <algorithm>
#include <utility>

namespace travo {

using platform::BoxButtons;
using platform::BoxIcon;

clsNeedleMove::clsNeedleMove(SharedState& state, clsCommunication& communication,
                             const clsObjectiveUpDown& objective, FailureHandler& failures,
                             platform::MessageBoxes& boxes)
    : state_(state),
      communication_(communication),
      objective_(objective),
      failures_(failures),
      boxes_(boxes),
      ownObjective_(communication, failures) {
    for (CalibrationMap::Points& points : calibrationPoints_) {
        points.fill(CalibrationMap::Unset);
    }
}

std::int32_t clsNeedleMove::ManipulatorCalibrationPosXYZ(std::int32_t ManipulatorNumber, std::int32_t XYZ,
                                                         std::int32_t Index) const {
    const CalibrationMap::Points& points =
        calibrationPoints_[Bounded(ManipulatorNumber, calibrationPoints_.size())];
    return points[Bounded(Index, points.size())][Axis(XYZ)];
}

void clsNeedleMove::ManipulatorCalibrationPosXYZ(std::int32_t ManipulatorNumber, std::int32_t XYZ,
                                                 std::int32_t Index, std::int32_t value) {
    CalibrationMap::Points& points =
        calibrationPoints_[Bounded(ManipulatorNumber, calibrationPoints_.size())];
    points[Bounded(Index, points.size())][Axis(XYZ)] = value;
}

void clsNeedleMove::ManiCenter(std::int32_t ManipulatorNumber, std::int32_t XYZ, std::int32_t value) {
    Map(ManipulatorNumber).ManiCenter[Axis(XYZ)] = value;
}

std::int32_t clsNeedleMove::PosZero(std::int32_t ManipulatorNumber, std::int32_t XYZ) const {
    return Map(ManipulatorNumber).PosZero()[Axis(XYZ)];
}

void clsNeedleMove::PosZero(std::int32_t ManipulatorNumber, std::int32_t XYZ, std::int32_t value) {
    Map(ManipulatorNumber).PosZero(Axis(XYZ), value);
}

void clsNeedleMove::CalibrationCalculation(std::int32_t ManipulatorNumber) {
    failures_.Handle(QStringLiteral("Calibration calculation failed"), [&] {
        CalibrationMap& map = Map(ManipulatorNumber);
        map.Calculate(calibrationPoints_[static_cast<std::size_t>(ManipulatorNumber)]);
    });
}

void clsNeedleMove::InverseCalculation(std::int32_t ManipulatorNumber) { Map(ManipulatorNumber).Invert(); }

void clsNeedleMove::ChangeZeroPosition() {
    constexpr std::int32_t Z = 2;
    for (std::int32_t needle = 0; needle <= state_.HighestNeedle(); ++needle) {
        PosZero(needle, Z, Difference(PosZero(needle, Z), state_.ZeroXYZ(Z)));
    }
}

bool clsNeedleMove::NeedleMove(std::int16_t ManipulatorNumber, const PositionXYZ& NeedleXYZPosition,
                               std::int16_t TotalManipulatorNumber, bool chkOffset, bool chkSynchro) {
    bool moved = false;
    failures_.Handle(QStringLiteral("Needle move failed"), [&] {
        moved = MoveWhenClear(ManipulatorNumber, NeedleXYZPosition, TotalManipulatorNumber, chkOffset,
                              chkSynchro);
    });
    return moved;
}

bool clsNeedleMove::MoveWhenClear(std::int16_t ManipulatorNumber, const PositionXYZ& NeedleXYZPosition,
                                  std::int16_t TotalManipulatorNumber, bool chkOffset, bool chkSynchro) {
    const bool clear = ContactEvasion(ManipulatorNumber, TotalManipulatorNumber, NeedleXYZPosition);
    if (!clear && !bContactEvasion_) {
        RefuseMove(chkSynchro);
        return false;
    }
    PositionXYZ now{};
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        now[Axis(axis)] = state_.Needle(ManipulatorNumber, axis);
    }
    PositionXYZ lngInXYZ = Map(ManipulatorNumber).ToManipulator(NeedleXYZPosition);
    const PositionXYZ lngNowXYZ = Map(ManipulatorNumber).ToManipulator(now);
    if (chkOffset) {
        // After the conversion, so that the needle stops short along its own shaft.
        lngInXYZ[0] = Difference(lngInXYZ[0], lngXYOffset);
    }
    // Last of all: the operator hears of a contact before hearing of a missing calibration.
    if (state_.CalibrationON(ManipulatorNumber)) {
        // In the synchronised mode the presses made meanwhile are the way out of it.
        communication_.SendManipulatorData(
            ManipulatorNumber, lngInXYZ, lngNowXYZ,
            chkSynchro ? clsManipulator::Presses::Kept : clsManipulator::Presses::Dropped);
    } else {
        failures_.Show(QStringLiteral("Please do the calibration. "));
    }
    return true;
}

void clsNeedleMove::RefuseMove(bool chkSynchro) {
    if (chkSynchro) {
        failures_.Show(
            QStringLiteral("There is a possibility the needles will come in contact while moving."));
        return;
    }
    boxes_.Show(QStringLiteral("WARNING!\r\n"
                               "There is a possibility  the needles will come in contact.\r\n"
                               "Movement is discontinued.  Please move the needles manually."),
                BoxButtons::OK, BoxIcon::Stop);
}

void clsNeedleMove::NeedleMoveCellPosition(std::int16_t ManipulatorNumber, const PositionXYZ& CellPositionXYZ,
                                           std::int16_t TotalManipulatorNumber) {
    const PositionXYZ above{CellPositionXYZ[0], CellPositionXYZ[1],
                            Sum(CellPositionXYZ[2], objective_.lngOffset)};
    NeedleMove(ManipulatorNumber, above, TotalManipulatorNumber, true, false);
}

bool clsNeedleMove::ContactEvasion(std::int16_t lngMoveNeedle, std::int16_t TotalManipulatorNumber,
                                   const PositionXYZ& NeedleXYZPosition) const {
    const CalibrationMap& moving = Map(lngMoveNeedle);
    PositionXYZ rear = moving.ToManipulator(NeedleXYZPosition);
    const std::int32_t targetX = std::exchange(rear[0], 0);
    const Shaft ShaftTarget = PlanShaft(NeedleXYZPosition, moving.ToCommon(rear));

    // All shafts before any test: a needle whose numbers overflow is a failure also when an earlier
    // one would refuse the move.
    std::array<bool, NeedleCount> calibrated{};
    std::array<Shaft, NeedleCount> ShaftAll{};
    // A fifth manipulator has no place in the tables, and so no shaft.
    const std::int32_t highest = std::min<std::int32_t>(TotalManipulatorNumber, NeedleCount - 1);
    for (std::int32_t needle = 0; needle <= highest; ++needle) {
        if (!state_.CalibrationON(needle)) {
            continue;
        }
        const auto row = static_cast<std::size_t>(needle);
        calibrated[row] = true;
        ShaftAll[row] = needle == lngMoveNeedle ? MovingShaft(needle, targetX) : PresentShaft(needle);
    }

    const Shaft& ShaftNow = ShaftAll[static_cast<std::size_t>(lngMoveNeedle)];
    const Shaft ShaftSwept = SweptShaft(ShaftNow, ShaftTarget);
    for (std::size_t needle = 0; needle < ShaftAll.size(); ++needle) {
        if (calibrated[needle] && needle != static_cast<std::size_t>(lngMoveNeedle) &&
            NeedleCrossCheck(ShaftNow, ShaftSwept, ShaftAll[needle])) {
            return false;
        }
    }
    return true;
}

Shaft clsNeedleMove::PresentShaft(std::int32_t ManipulatorNumber) const {
    const CalibrationMap& map = Map(ManipulatorNumber);
    const PositionXYZ& tip = state_.Needles()[Bounded(ManipulatorNumber, state_.Needles().size())];
    PositionXYZ rear = map.ToManipulator(tip);
    rear[0] = 0;
    return PlanShaft(tip, map.ToCommon(rear));
}

Shaft clsNeedleMove::MovingShaft(std::int32_t ManipulatorNumber, std::int32_t targetManipulatorX) const {
    const CalibrationMap& map = Map(ManipulatorNumber);
    PositionXYZ front = map.ToManipulator(state_.Needles()[Bounded(ManipulatorNumber, NeedleCount)]);
    PositionXYZ rear = front;
    front[0] = std::max(front[0], targetManipulatorX);
    rear[0] = 0;
    return PlanShaft(map.ToCommon(front), map.ToCommon(rear));
}

}  // namespace travo
