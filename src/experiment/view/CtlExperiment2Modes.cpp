// The modes of the experiment panel: direct, in which the view goes to a cell as soon as it is chosen, and
// synchronised, in which the lit needle goes with the view.
#include "core/ground/Arithmetic.h"
#include "experiment/view/CtlExperiment2.h"

namespace travo {

void CtlExperiment2::DirectPressed() { bDirectONOFF_ = directButton_.Value(); }

void CtlExperiment2::SynchroPressed() {
    if (synchroButton_.Value() && !NeedleCanFollow()) {
        synchroButton_.SetRaised(true);
        return;
    }
    bSynchroONOFF_ = synchroButton_.Value();
    Image2_[DoubleArrow].setVisible(bSynchroONOFF_);
    if (bSynchroONOFF_) {
        EnterSynchro();
    } else {
        LeaveSynchro();
    }
}

bool CtlExperiment2::NeedleCanFollow() {
    if (!selected_.IsKnown()) {
        return false;
    }
    if (LitNeedleIsSelected()) {
        return true;
    }
    LightSelectedNeedle();
    return false;
}

void CtlExperiment2::EnterSynchro() {
    SwitchDirectOff();
    if (intMoveTarget_ == View) {
        viewButton_.SetRaised(true);
        needleButton_[Bounded(selected_.Index(), needleButton_.size())].SetRaised(false);
        intMoveTarget_ = selected_.Index();
        ShowMoveLamp();
    }
    objectiveEscapeButton_.Enabled(false);
    needleEscapeButton_.Enabled(false);
    directButton_.Enabled(false);
    EnableViewButtons(false);
    moveButton_.Enabled(false);
    EnableCells(false);
    Timer1_->Enabled(false);
    ShowArrow(false);
    // The needle goes with the view; `intCellNo` waits for the end of the mode.
    ShowTargetLamp(PresentView);
    followed_.Begin(system_.state.CurrentXYZ());
}

void CtlExperiment2::LeaveSynchro() {
    Unlock();
    ShowTargetLamp(intCellNo_);
    Timer1_->Enabled(true);
}

void CtlExperiment2::SynchroFalse() {
    synchroButton_.SetRaised(true);
    bSynchroONOFF_ = false;
    Image2_[DoubleArrow].setVisible(false);
    Unlock();
    if (intCellNo_ == PresentView) {
        intCellNo_ = 0;
    }
    ShowTargetLamp(intCellNo_);
    usrKVCheckButton& chosen = cellButton_[Bounded(intCellNo_, cellButton_.size())];
    if (chosen.Enabled()) {
        chosen.SetRaised(false);
        presentViewButton_.SetRaised(true);
    }
    Timer1_->Enabled(true);
}

void CtlExperiment2::Unlock() {
    objectiveEscapeButton_.Enabled(system_.communication.MotorPortOpenCheck());
    if (HasNeedles()) {
        needleEscapeButton_.Enabled(true);
    }
    directButton_.Enabled(true);
    EnableViewButtons(true);
    moveButton_.Enabled(true);
    EnableCells(true);
}

void CtlExperiment2::ChangeCurrentXYZ(const PositionXYZ& CurrentXYZ) {
    if (!bSynchroONOFF_ || intMoveTarget_ == View) {
        return;
    }
    // Magnification and mirror motors may have enabled them since the mode began.
    EnableViewButtons(false);
    directButton_.Enabled(false);
    SwitchDirectOff();
    objectiveEscapeButton_.Enabled(false);
    needleEscapeButton_.Enabled(false);

    const PositionXYZ needle = selected_.Place();
    const PositionXYZ displacement = followed_.GoneTo(CurrentXYZ);
    if (!system_.needleSynchro.NeedleSynchroMove(selected_.Index(), needle, CurrentXYZ, displacement,
                                                 system_.state.intTotalManipulatorNumber)) {
        SynchroFalse();
    }
}

void CtlExperiment2::SwitchDirectOff() {
    bDirectONOFF_ = false;
    directButton_.SetRaised(true);
}

}  // namespace travo
