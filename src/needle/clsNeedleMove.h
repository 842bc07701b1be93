// The calibration maps of the needles and the one gate for all automatic needle motion.
#pragma once

#include <array>
#include <cstdint>

#include "core/ground/Arithmetic.h"
#include "core/ground/Positions.h"
#include "core/state/FailureHandler.h"
#include "core/state/SharedState.h"
#include "devices/links/clsCommunication.h"
#include "needle/CalibrationMap.h"
#include "needle/ContactCheck.h"
#include "needle/clsObjectiveUpDown.h"
#include "platform/MessageBoxes.h"

namespace travo {

// Frames: the manipulator frame of each needle (driver counts, 0 to 25000) and the common frame of
// needles, cells and view. One manipulator count is one common unit. Needle n is 0 to 3, axis XYZ 0
// to 2, calibration point 0 to 3; an index outside raises BoundsFailure. All integer arithmetic is
// 32-bit, floating results round to nearest with ties to even, and what does not fit raises
// OverflowFailure.
class clsNeedleMove {
public:
    clsNeedleMove(SharedState& state, clsCommunication& communication, const clsObjectiveUpDown& objective,
                  FailureHandler& failures, platform::MessageBoxes& boxes);
    clsNeedleMove(const clsNeedleMove&) = delete;
    clsNeedleMove& operator=(const clsNeedleMove&) = delete;

    // Stand-off along the manipulator's own X axis, in counts. Persisted.
    std::int32_t lngXYOffset = 0;
    // Lowest stand-off that the user panel accepts.
    std::int32_t lngMinimumXYOffset = 0;

    // Manipulator position of calibration point Index; NoPositionValue until measured.
    std::int32_t ManipulatorCalibrationPosXYZ(std::int32_t ManipulatorNumber, std::int32_t XYZ,
                                              std::int32_t Index) const;
    void ManipulatorCalibrationPosXYZ(std::int32_t ManipulatorNumber, std::int32_t XYZ, std::int32_t Index,
                                      std::int32_t value);
    // Reference point of the needle in the manipulator frame. A written one is whole; the one that
    // CalibrationCalculation computes keeps its fraction.
    void ManiCenter(std::int32_t ManipulatorNumber, std::int32_t XYZ, std::int32_t value);
    // Reference point in the common frame: the view's centre when the needle was calibrated.
    std::int32_t PosZero(std::int32_t ManipulatorNumber, std::int32_t XYZ) const;
    void PosZero(std::int32_t ManipulatorNumber, std::int32_t XYZ, std::int32_t value);

    // Derives the maps of one needle from its four points and overwrites its ManiCenter. Reports
    // "Calibration calculation failed" itself; what was stored by then stays.
    void CalibrationCalculation(std::int32_t ManipulatorNumber);
    // Inverts the matrix of one needle; a singular one gives an inverse of zeros.
    void InverseCalculation(std::int32_t ManipulatorNumber);
    // Takes the present ZeroXYZ(2) from the Z reference of every connected needle.
    void ChangeZeroPosition();

    // Manipulator frame to common frame, one output axis. Allocates nothing.
    std::int32_t Calibration(std::int32_t ManipulatorNumber, std::int32_t XYZ,
                             const PositionXYZ& InXYZ) const {
        return Map(ManipulatorNumber).ToCommon(Axis(XYZ), InXYZ);
    }
    // Common frame to manipulator frame, one output axis. Allocates nothing.
    std::int32_t InverseCalibration(std::int32_t ManipulatorNumber, std::int32_t XYZ,
                                    const PositionXYZ& InXYZ) const {
        return Map(ManipulatorNumber).ToManipulator(Axis(XYZ), InXYZ);
    }

    // Sends a needle to a target in the common frame, through the contact check. TotalManipulatorNumber
    // is the highest connected index. chkOffset asks for the XY stand-off, chkSynchro for the gentler
    // refusal of a synchronised move. True when the move was sent or the needle is not calibrated,
    // false when it was refused or failed; both have been told to the operator.
    bool NeedleMove(std::int16_t ManipulatorNumber, const PositionXYZ& NeedleXYZPosition,
                    std::int16_t TotalManipulatorNumber, bool chkOffset, bool chkSynchro);
    // Sends a needle to the place above a cell in the common frame, with both stand-offs. An overflow
    // of the Z stand-off raises OverflowFailure; all else is told by NeedleMove.
    void NeedleMoveCellPosition(std::int16_t ManipulatorNumber, const PositionXYZ& CellPositionXYZ,
                                std::int16_t TotalManipulatorNumber);

    // True: a predicted contact does not stop a move. The check itself always runs.
    void ContactEvasionONOFF(bool Check) { bContactEvasion_ = Check; }
    // True when the move of needle lngMoveNeedle to a common-frame target is clear of all other
    // calibrated needles in plan view, false when a contact is possible. Changes nothing.
    bool ContactEvasion(std::int16_t lngMoveNeedle, std::int16_t TotalManipulatorNumber,
                        const PositionXYZ& NeedleXYZPosition) const;

    // Handedness of the needle's calibration: no sign change in the maps.
    bool ManiDirect(std::int32_t ManipulatorNumber) const { return Map(ManipulatorNumber).ManiDirect; }

private:
    static std::size_t Axis(std::int32_t XYZ) { return Bounded(XYZ, AxisCount); }
    const CalibrationMap& Map(std::int32_t ManipulatorNumber) const {
        return maps_[Bounded(ManipulatorNumber, maps_.size())];
    }
    CalibrationMap& Map(std::int32_t ManipulatorNumber) {
        return maps_[Bounded(ManipulatorNumber, maps_.size())];
    }

    // The body of NeedleMove, without its handler.
    bool MoveWhenClear(std::int16_t ManipulatorNumber, const PositionXYZ& NeedleXYZPosition,
                       std::int16_t TotalManipulatorNumber, bool chkOffset, bool chkSynchro);
    void RefuseMove(bool chkSynchro);
    // The plan-view shaft of a needle as it stands in the common frame.
    Shaft PresentShaft(std::int32_t ManipulatorNumber) const;
    // The same for the needle that is to move, extended along its own X axis to the manipulator X of
    // its target where that lies further forward.
    Shaft MovingShaft(std::int32_t ManipulatorNumber, std::int32_t targetManipulatorX) const;

    SharedState& state_;
    clsCommunication& communication_;
    // Shared, and perhaps not constructed before this object: read in moves only.
    const clsObjectiveUpDown& objective_;
    FailureHandler& failures_;
    platform::MessageBoxes& boxes_;
    // Lives and ends with this object. Cell moves take their stand-off from the shared one.
    [[maybe_unused]] clsObjectiveUpDown ownObjective_;

    std::array<CalibrationMap, NeedleCount> maps_;
    std::array<CalibrationMap::Points, NeedleCount> calibrationPoints_;
    bool bContactEvasion_ = false;
};

}  // namespace travo
