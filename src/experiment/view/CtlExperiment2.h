// The panel of the daily work: what is to move, where to, and one button that does it.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "controls/PanelCanvas.h"
#include "controls/PanelSteps.h"
#include "controls/SkinImage.h"
#include "controls/usrKVButton.h"
#include "controls/usrKVCheckButton.h"
#include "core/ground/Positions.h"
#include "core/state/FailureHandler.h"
#include "core/state/LiveLink.h"
#include "core/state/NeedleReader.h"
#include "core/state/News.h"
#include "core/state/SharedState.h"
#include "devices/links/clsCommunication.h"
#include "experiment/view/FollowedView.h"
#include "experiment/view/SelectedNeedle.h"
#include "mirror/motion/clsMirrorMove.h"
#include "needle/clsEscape.h"
#include "needle/clsNeedleMove.h"
#include "needle/clsNeedleSynchro.h"
#include "platform/Clock.h"
#include "platform/MessageBoxes.h"

namespace travo {

// Nothing here handles failures: what the instruments, an index outside its table or a sum beyond 32 bits
// raise goes to the caller, or to the event loop where the operator's press is the cause. Nothing is rolled
// back. A press that would act on a needle looks first where the lit one may not be the one that the hardware
// has: the hardware moves the needle that it has, whatever is lit.
class CtlExperiment2 : public PanelCanvas,
                       public PanelSteps,
                       public HearsMagnification,
                       public HearsTick,
                       public HearsTotalManipulatorNumber,
                       public HearsManipulatorChange,
                       public HearsMirrorMotors {
    Q_OBJECT

public:
    // `intCellNo` for the centre of the present view, and what moves for the view.
    static constexpr std::int16_t PresentView = CellCount;
    static constexpr std::int16_t View = NeedleCount;
    // From one frame of the arrow to the next, in milliseconds.
    static constexpr int ArrowPeriod = 500;

    // Each outlives the panel.
    struct System {
        SharedState& state;
        clsCommunication& communication;
        clsNeedleMove& needleMove;
        clsNeedleSynchro& needleSynchro;
        clsEscape& escape;
        clsMirrorMove& mirrorMove;
        LiveLink& live;
        platform::MessageBoxes& boxes;
        platform::Timers& timers;
        FailureHandler& failures;
        NeedleReader& needle;
    };

    CtlExperiment2(const System& system, const QString& programFolder, QWidget* parent);

    // Where to: cell 0 to 7 (A to H), or PresentView.
    std::int16_t intCellNo() const { return intCellNo_; }
    // What moves: needle 0 to 3, or View.
    std::int16_t intMoveTarget() const { return intMoveTarget_; }

    // The needle, index 0 to 3, has been read as the one that the hardware has: it is shown as what moves.
    // BoundsFailure for an index that has no lamp.
    void ManipulatorChange(std::int16_t ManipulatorNumber) override;
    // The shared state has the magnification already. Does nothing in the synchronised mode.
    void ChangeMagnification(std::int16_t Magnification) override;
    // The synchronised step, to be called at every tick of the position loop with the view in the mirror
    // frame. Does nothing outside the synchronised mode.
    void ChangeCurrentXYZ(const PositionXYZ& CurrentXYZ) override;
    // The highest connected needle index, 0 to 4; any other is none, and the view alone moves. A fifth
    // manipulator has no button.
    void TotalManipulatorNumber(std::int16_t ManipulatorNumber) override;
    // The mirror's motors are on; every value but 0 is.
    void checkMotor(std::int16_t ONOFF) override;
    // Leaves the synchronised mode from code.
    void SynchroFalse();

    void Shown() override;
    void Hidden() override;

private:
    // Frames of `Image2`: 0 is the resting track, 1 to 3 run, the last says that needle and view are tied.
    static constexpr std::int16_t FirstFrame = 1;
    static constexpr std::int16_t LastFrame = 3;
    static constexpr std::size_t DoubleArrow = 4;

    void Place();
    void PlaceWhatMoves();
    void PlaceArrow();
    void PlaceWhereTo();
    void PlaceActions();
    void Connect();

    void MovePressed();
    void NeedlePressed(std::int16_t Index);
    void CellPressed(std::int16_t Index);
    void ViewPressed();
    void PresentViewPressed();
    void SynchroPressed();
    void DirectPressed();
    void ObjectiveEscapePressed();
    void NeedleEscapePressed();
    void ArrowTick();

    void StartAction();
    // The chosen place in the mirror frame. False, after the operator has been told, when it is not set.
    bool ReadTarget(PositionXYZ& target);
    // False, after the operator has been told, when the lit needle is not the one that the hardware has.
    bool MoveNeedle(const PositionXYZ& target);
    void MoveView(const PositionXYZ& target);
    void EnterSynchro();
    void LeaveSynchro();
    void Unlock();

    void ShowNeedle(std::int16_t ManipulatorNumber);
    // True also where the view is lit. May read the needle.
    bool LitNeedleIsSelected() { return intMoveTarget_ == View || selected_.Is(intMoveTarget_); }
    // The lamp goes from the lit needle to the one that the hardware has, as far as that is known.
    void LightSelectedNeedle();
    void RefuseNeedle();
    bool NeedleMayGoHome();
    bool NeedleCanFollow();

    bool MirrorCanMove() const;
    bool HasNeedles() const { return system_.state.intTotalManipulatorNumber != -1; }
    bool IsSet(std::int16_t cell) const { return system_.state.CellPosition(cell, 0) != NoPositionValue; }
    PositionXYZ Cell(std::int16_t cell) const;

    void EnableCells(bool allowed);
    void EnableViewButtons(bool enabled);
    // The dashed slot stands where the hidden button would.
    void ShowPresentView(bool visible);
    // The present frame, or none.
    void ShowArrow(bool visible);
    void ShowMoveLamp();
    // Of cell 0 to 7, or of the present view.
    void ShowTargetLamp(std::int16_t target);
    void SwitchDirectOff();

    const System system_;

    std::int16_t intCellNo_ = 0;
    // What moves: needle 0 to 3, or View.
    std::int16_t intMoveTarget_ = 0;
    bool bSynchroONOFF_ = false;
    bool bDirectONOFF_ = false;
    std::int16_t intArrowFrame_ = FirstFrame;
    SelectedNeedle selected_;
    FollowedView followed_;

    usrKVButton moveButton_;
    std::array<usrKVCheckButton, NeedleCount> needleButton_;
    std::array<usrKVCheckButton, CellCount> cellButton_;
    usrKVCheckButton viewButton_;
    usrKVCheckButton presentViewButton_;
    usrKVCheckButton synchroButton_;
    usrKVCheckButton directButton_;
    usrKVButton objectiveEscapeButton_;
    usrKVButton needleEscapeButton_;
    std::array<SkinImage, NeedleCount + 1> imgMManiNo_;
    std::array<SkinImage, CellCount + 1> imgMCellNo_;
    std::array<SkinImage, DoubleArrow + 1> Image2_;
    // Painted where `presentViewButton_` is hidden.
    int presentViewSlot_ = 0;
    std::unique_ptr<platform::Timer> Timer1_;
};

}  // namespace travo
