#include "experiment/view/CtlExperiment2.h"

#include <QString>

#include "core/ground/Arithmetic.h"
#include "core/ground/Magnification.h"

namespace travo {

namespace {

constexpr QSizeF Design(486, 520);

}  // namespace

CtlExperiment2::CtlExperiment2(const System& system, const QString& programFolder, QWidget* parent)
    : PanelCanvas(Design, programFolder, parent),
      system_(system),
      selected_({system.state, system.communication, system.needle}),
      Timer1_(system.timers.Create([this] { ArrowTick(); })) {
    setObjectName(QStringLiteral("CtlExperiment1"));
    Place();
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
        ViewPressed();
    } else if (MoveNeedle(target)) {
        // So that a needle never moves twice on repeated presses.
        ViewPressed();
    }
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

bool CtlExperiment2::MoveNeedle(const PositionXYZ& target) {
    if (!LitNeedleIsSelected()) {
        RefuseNeedle();
        return false;
    }
    constexpr std::size_t Z = 2;
    PositionXYZ common = MirrorToCommon(target);
    if (common[Z] == NoPositionValue) {
        common[Z] = 0;
    }
    system_.needleMove.NeedleMoveCellPosition(selected_.Index(), common,
                                              system_.state.intTotalManipulatorNumber);
    return true;
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
    ShowNeedle(Index);
    selected_.Choose(Index);
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
    selected_.HasBeenRead();
    ShowNeedle(ManipulatorNumber);
}

void CtlExperiment2::ShowNeedle(std::int16_t ManipulatorNumber) {
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
    for (std::int32_t needle = 0; needle <= ManipulatorNumber && needle < NeedleCount; ++needle) {
        needleButton_[static_cast<std::size_t>(needle)].Enabled(true);
    }
    if (ManipulatorNumber >= 0 && ManipulatorNumber <= HighestManipulatorNumber) {
        NeedlePressed(0);
        return;
    }
    if (bSynchroONOFF_) {
        // The mode is left in full first: the buttons that it locks are all that the operator has left.
        SynchroFalse();
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

// What the instruments allow.

void CtlExperiment2::ChangeMagnification(std::int16_t) {
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

void CtlExperiment2::checkMotor(std::int16_t ONOFF) {
    const bool areOn = ONOFF != 0;
    EnableCells(areOn);
    if (MirrorCanMove() && !bSynchroONOFF_) {
        directButton_.Enabled(areOn);
        EnableViewButtons(areOn);
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
    if (!selected_.IsKnown()) {
        system_.failures.Report(QStringLiteral("Escape : Communication failed"));
        return;
    }
    std::int32_t z = system_.state.CurrentXYZ(2);
    // A copy: the wait for the objective serves events, and the needle is read anew in them.
    const PositionXYZ needle = selected_.Place();
    system_.escape.HomePositionEscape(needle, z, system_.state.intTotalManipulatorNumber,
                                      [this] { return NeedleMayGoHome(); });
}

// The needle that is lit is the needle that acts.

void CtlExperiment2::LightSelectedNeedle() {
    if (selected_.IsKnown()) {
        ShowNeedle(selected_.Index());
    }
}

void CtlExperiment2::RefuseNeedle() {
    LightSelectedNeedle();
    system_.failures.Report(QStringLiteral("Needle move failed"));
}

bool CtlExperiment2::NeedleMayGoHome() {
    // A needle that is not known any more is the escape's own failure.
    if (!selected_.IsKnown() || LitNeedleIsSelected()) {
        return true;
    }
    RefuseNeedle();
    return false;
}

// Small questions and steps that the rules above are put together from.

// At 0.35x the tilting mirror cannot move.
bool CtlExperiment2::MirrorCanMove() const { return system_.state.intMagnification() != Magnification035x; }

PositionXYZ CtlExperiment2::Cell(std::int16_t cell) const {
    const SharedState& state = system_.state;
    return {state.CellPosition(cell, 0), state.CellPosition(cell, 1), state.CellPosition(cell, 2)};
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

}  // namespace travo
