#include "experiment/CtlExperiment2.h"

#include <QString>

#include "core/Arithmetic.h"

namespace travo {

namespace {

constexpr QSizeF Design(486, 520);
// At 0.35x the tilting mirror cannot move.
constexpr std::int16_t Magnification035 = 1;

}  // namespace

CtlExperiment2::CtlExperiment2(const System& system, const QString& programFolder, QWidget* parent)
    : PanelCanvas(Design, parent), system_(system), Timer1_(system.timers.Create([this] { ArrowTick(); })) {
    setObjectName(QStringLiteral("CtlExperiment1"));
    Place(programFolder);
    Connect();
    for (usrKVCheckButton& button : cellButton_) {
        button.Enabled(false);
    }
    cellButton_.front().SetRaised(false);
    objectiveEscapeButton_.Enabled(false);
    needleEscapeButton_.Enabled(false);
    ShowPresentView(true);
    ShowMoveLamp();
    ShowTargetLamp(intCellNo_);
    ShowArrow(true);
    Image2_[DoubleArrow].setVisible(false);
    Timer1_->Interval(ArrowPeriod);
    Timer1_->Enabled(true);
}

void CtlExperiment2::Connect() {
    const auto onClick = [this](SkinButton& button, auto press) {
        connect(&button, &SkinButton::clicked, this, press);
    };
    onClick(moveButton_, [this] { MovePressed(); });
    for (std::int16_t needle = 0; needle < NeedleCount; ++needle) {
        onClick(needleButton_[static_cast<std::size_t>(needle)], [this, needle] { NeedlePressed(needle); });
    }
    for (std::int16_t cell = 0; cell < CellCount; ++cell) {
        onClick(cellButton_[static_cast<std::size_t>(cell)], [this, cell] { CellPressed(cell); });
    }
    onClick(viewButton_, [this] { ViewPressed(); });
    onClick(presentViewButton_, [this] { PresentViewPressed(); });
    onClick(synchroButton_, [this] { SynchroPressed(); });
    onClick(directButton_, [this] { DirectPressed(); });
    onClick(objectiveEscapeButton_, [this] { ObjectiveEscapePressed(); });
    onClick(needleEscapeButton_, [this] { NeedleEscapePressed(); });
}

// The move.

void CtlExperiment2::MovePressed() {
    StartAction();
    PositionXYZ target{};
    if (!ReadTarget(target)) {
        // The needle stays chosen, and the action stays open for the camera.
        return;
    }
    if (intMoveTarget_ == View) {
        MoveView(target);
    } else {
        MoveNeedle(target);
    }
    // So that a needle never moves twice on repeated presses.
    ViewPressed();
    system_.live.LiveActionEnd();
}

void CtlExperiment2::StartAction() {
    system_.live.LiveActionStart();
    system_.communication.RequestMagnescaleData();
    system_.communication.RequestMirrorData();
}

bool CtlExperiment2::ReadTarget(PositionXYZ& target) {
    target = {0, 0, 0};
    if (intCellNo_ == PresentView) {
        target = system_.state.CurrentXYZ();
    } else if (cellButton_[Bounded(intCellNo_, cellButton_.size())].Value()) {
        if (!IsSet(intCellNo_)) {
            system_.boxes.Show(QStringLiteral("Please set cell position."), platform::BoxButtons::OK,
                               platform::BoxIcon::None);
            return false;
        }
        target = Cell(intCellNo_);
    }
    return true;
}

void CtlExperiment2::MoveNeedle(const PositionXYZ& target) {
    constexpr std::size_t Z = 2;
    PositionXYZ common = MirrorToCommon(target);
    if (common[Z] == NoPositionValue) {
        common[Z] = 0;
    }
    system_.needleMove.NeedleMoveCellPosition(system_.state.intManipulatorNumber, common,
                                              system_.state.intTotalManipulatorNumber);
}

void CtlExperiment2::MoveView(const PositionXYZ& target) {
    if (MirrorCanMove()) {
        system_.mirrorMove.MirrorMoveToCell(target);
    } else {
        system_.boxes.Show(QStringLiteral("Tiltig mirror doesn't move at 0.35x."), platform::BoxButtons::OK,
                           platform::BoxIcon::None);
    }
}

// What moves.

void CtlExperiment2::NeedlePressed(std::int16_t Index) {
    ManipulatorChange(Index);
    if (system_.state.intManipulatorNumber != Index) {
        system_.communication.ChangeManipulator(ToInteger16(Index + 1));
    }
    ShowPresentView(true);
    if (MirrorCanMove()) {
        synchroButton_.Enabled(true);
    }
    if (HasNeedles()) {
        needleEscapeButton_.Enabled(true);
    }
    if (bSynchroONOFF_) {
        SynchroFalse();
    }
}

void CtlExperiment2::ManipulatorChange(std::int16_t ManipulatorNumber) {
    for (std::size_t needle = 0; needle < needleButton_.size(); ++needle) {
        needleButton_[needle].SetRaised(static_cast<std::int32_t>(needle) != ManipulatorNumber);
    }
    viewButton_.SetRaised(true);
    intMoveTarget_ = ManipulatorNumber;
    ShowMoveLamp();
}

void CtlExperiment2::ViewPressed() {
    StartAction();
    viewButton_.SetRaised(false);
    ShowPresentView(false);
    synchroButton_.Enabled(false);
    for (usrKVCheckButton& button : needleButton_) {
        button.SetRaised(true);
    }
    intMoveTarget_ = View;
    ShowMoveLamp();
    if (intCellNo_ == PresentView) {
        // The view cannot be its own target.
        presentViewButton_.SetRaised(true);
        intCellNo_ = 0;
        cellButton_.front().SetRaised(false);
        ShowTargetLamp(intCellNo_);
    }
    needleEscapeButton_.Enabled(false);
    system_.live.LiveActionEnd();
}

void CtlExperiment2::TotalManipulatorNumber(std::int16_t ManipulatorNumber) {
    for (usrKVCheckButton& button : needleButton_) {
        button.Enabled(false);
    }
    for (std::int32_t needle = 0; needle <= ManipulatorNumber; ++needle) {
        needleButton_[Bounded(needle, needleButton_.size())].Enabled(true);
    }
    if (ManipulatorNumber >= 0) {
        NeedlePressed(0);
        return;
    }
    // ViewOnly: the needle buttons keep their looks, the lamp says what moves.
    synchroButton_.Enabled(false);
    needleEscapeButton_.Enabled(false);
    intMoveTarget_ = View;
    ShowMoveLamp();
    viewButton_.SetRaised(false);
    ShowPresentView(false);
}

// Where to.

void CtlExperiment2::CellPressed(std::int16_t Index) {
    for (std::size_t cell = 0; cell < cellButton_.size(); ++cell) {
        cellButton_[cell].SetRaised(static_cast<std::int32_t>(cell) != Index);
    }
    presentViewButton_.SetRaised(true);
    intCellNo_ = Index;
    ShowTargetLamp(intCellNo_);
    if (MirrorCanMove() && intMoveTarget_ == View && bDirectONOFF_) {
        system_.mirrorMove.MirrorMoveToCell(Cell(intCellNo_));
    }
}

void CtlExperiment2::PresentViewPressed() {
    StartAction();
    presentViewButton_.SetRaised(false);
    for (usrKVCheckButton& button : cellButton_) {
        button.SetRaised(true);
    }
    intCellNo_ = PresentView;
    ShowTargetLamp(intCellNo_);
    system_.live.LiveActionEnd();
}

// The modes.

void CtlExperiment2::DirectPressed() { bDirectONOFF_ = directButton_.Value(); }

void CtlExperiment2::SynchroPressed() {
    bSynchroONOFF_ = synchroButton_.Value();
    Image2_[DoubleArrow].setVisible(bSynchroONOFF_);
    if (bSynchroONOFF_) {
        EnterSynchro();
    } else {
        LeaveSynchro();
    }
}

void CtlExperiment2::EnterSynchro() {
    SwitchDirectOff();
    if (intMoveTarget_ == View) {
        const std::int16_t selected = system_.state.intManipulatorNumber;
        viewButton_.SetRaised(true);
        needleButton_[Bounded(selected, needleButton_.size())].SetRaised(false);
        intMoveTarget_ = selected;
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
    lngSynchroXYZ_ = system_.state.CurrentXYZ();
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

    const PositionXYZ needle = SelectedNeedle();
    PositionXYZ change{};
    for (std::size_t axis = 0; axis < change.size(); ++axis) {
        change[axis] = Difference(CurrentXYZ[axis], lngSynchroXYZ_[axis]);
    }
    // Each change is rounded by itself and no remainder is carried.
    const PositionXYZ displacement = MirrorToCommon(change);
    lngSynchroXYZ_ = CurrentXYZ;
    if (!system_.needleSynchro.NeedleSynchroMove(system_.state.intManipulatorNumber, needle, CurrentXYZ,
                                                 displacement, system_.state.intTotalManipulatorNumber)) {
        SynchroFalse();
    }
}

// What the instruments allow.

void CtlExperiment2::ChangeMagnification() {
    if (bSynchroONOFF_) {
        return;
    }
    const bool needleMoves = HasNeedles() && intMoveTarget_ != View;
    EnableViewButtons(MirrorCanMove());
    directButton_.Enabled(MirrorCanMove());
    if (needleMoves) {
        synchroButton_.Enabled(MirrorCanMove());
    }
    if (!MirrorCanMove()) {
        SwitchDirectOff();
        if (needleMoves) {
            synchroButton_.SetRaised(true);
        }
    }
    objectiveEscapeButton_.Enabled(system_.communication.MotorPortOpenCheck());
    if (HasNeedles()) {
        needleEscapeButton_.Enabled(true);
    }
}

void CtlExperiment2::checkMotor(bool ONOFF) {
    EnableCells(ONOFF);
    if (MirrorCanMove() && !bSynchroONOFF_) {
        directButton_.Enabled(ONOFF);
        EnableViewButtons(ONOFF);
    }
}

void CtlExperiment2::Shown() {
    const bool portOpen = system_.communication.MirrorPortOpenCheck();
    const bool mirrorReady = portOpen && system_.state.bMirrorMotorONOFF;
    moveButton_.Enabled(portOpen);
    EnableCells(mirrorReady);
    directButton_.Enabled(mirrorReady);
    EnableViewButtons(mirrorReady);
    objectiveEscapeButton_.Enabled(system_.communication.MotorPortOpenCheck());
    if (HasNeedles()) {
        needleEscapeButton_.Enabled(true);
    }
}

void CtlExperiment2::Hidden() {
    if (bSynchroONOFF_) {
        SynchroFalse();
    }
}

// The retreat.

void CtlExperiment2::ObjectiveEscapePressed() {
    std::int32_t z = system_.state.CurrentXYZ(2);
    system_.escape.ZEscape(z);
}

void CtlExperiment2::NeedleEscapePressed() {
    std::int32_t z = system_.state.CurrentXYZ(2);
    // A copy: the wait for the objective serves events, and the needle is read anew in them.
    const PositionXYZ needle = SelectedNeedle();
    system_.escape.HomePositionEscape(needle, z, system_.state.intTotalManipulatorNumber);
}

// The words that the rules above are written in.

bool CtlExperiment2::MirrorCanMove() const { return system_.state.intMagnification() != Magnification035; }

PositionXYZ CtlExperiment2::Cell(std::int16_t cell) const {
    const SharedState& state = system_.state;
    return {state.CellPosition(cell, 0), state.CellPosition(cell, 1), state.CellPosition(cell, 2)};
}

const PositionXYZ& CtlExperiment2::SelectedNeedle() const {
    return system_.state.Needles()[Bounded(system_.state.intManipulatorNumber, NeedleCount)];
}

void CtlExperiment2::EnableCells(bool allowed) {
    for (std::int16_t cell = 0; cell < CellCount; ++cell) {
        cellButton_[static_cast<std::size_t>(cell)].Enabled(allowed && IsSet(cell));
    }
}

void CtlExperiment2::EnableViewButtons(bool enabled) {
    viewButton_.Enabled(enabled);
    presentViewButton_.Enabled(enabled);
}

void CtlExperiment2::SwitchDirectOff() {
    bDirectONOFF_ = false;
    directButton_.SetRaised(true);
}

}  // namespace travo
