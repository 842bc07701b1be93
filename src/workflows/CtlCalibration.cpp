#include "workflows/CtlCalibration.h"

#include <QString>
#include <algorithm>

#include "core/ground/Arithmetic.h"
#include "core/ground/Magnification.h"
#include "core/state/SettingsKeys.h"

namespace travo {

namespace {

constexpr QSizeF Design(486, 520);
// Whose time it is.
constexpr std::int16_t OfCalibration = 0;
constexpr std::int16_t OfReCalibration = 1;

const QString CaptureFailed = QStringLiteral("Error : Manipulator calibration position setting");
const QString SettingFailed = QStringLiteral("Error : Calibration Setting");
const QString AdjustMagnification = QStringLiteral("Please adjust the magnification to 2X.");

}  // namespace

CtlCalibration::CtlCalibration(const System& system, const QString& programFolder, QWidget* parent)
    : PanelCanvas(Design, programFolder, parent),
      system_(system),
      values_({system.needleMove, system.iniEdit, system.clock}),
      recording_({system.state, system.communication, system.live}, values_),
      raise_(system.communication, system.failures, system.owner),
      Timer1_(system.timers.Create([this] { lblWaring_.setVisible(lblWaring_.isHidden()); })) {
    setObjectName(QStringLiteral("CtlCalibration1"));
    Place();
    Connect();
    PressOnly(modeButton_, FullCalibration);
    lblWaring_.setText(AdjustMagnification);
    lblWaring_.setAccessibleDescription(AdjustMagnification);
    lblWaring_.hide();
    Timer1_->Interval(BlinkPeriod);
    ShowStep(Step::Marks);
}

void CtlCalibration::Connect() {
    const auto onClick = [this](SkinButton& button, auto press) {
        connect(&button, &SkinButton::clicked, this, press);
    };
    for (std::size_t mode = 0; mode < modeButton_.size(); ++mode) {
        onClick(modeButton_[mode], [this, mode] { ModePressed(mode); });
    }
    for (std::int16_t needle = 0; needle < NeedleCount; ++needle) {
        onClick(needleButton_[static_cast<std::size_t>(needle)], [this, needle] { NeedlePressed(needle); });
    }
    for (std::size_t point = 0; point < captureButton_.size(); ++point) {
        onClick(captureButton_[point], [this, point] { CapturePressed(point); });
    }
    for (std::size_t index = 0; index < confirmButton_.size(); ++index) {
        onClick(confirmButton_[index], [this, index] { ConfirmPressed(index); });
    }
}

// Recording.

void CtlCalibration::CapturePressed(std::size_t Index) {
    usrKVCheckButton& button = captureButton_.at(Index);
    if (!At2x()) {
        // As it stood: only what has been captured is down.
        button.SetRaised(!recording_.IsCaptured(Index));
        system_.failures.Show(AdjustMagnification);
        return;
    }
    if (recording_.IsCaptured(Index)) {
        button.SetRaised(false);
        return;
    }
    if (!LitNeedleIsSelected()) {
        Free(Index);
        const bool isUnknown = system_.state.intManipulatorNumber == NoNeedle;
        system_.failures.Report(isUnknown ? CaptureFailed : SettingFailed);
        return;
    }
    bool isOfLitNeedle = true;
    const bool done = system_.failures.Handle(CaptureFailed, [this, Index, &isOfLitNeedle] {
        try {
            isOfLitNeedle = Capture(Index);
        } catch (...) {
            // Before the box: what the operator sees behind it is how things stand.
            Free(Index);
            throw;
        }
    });
    if (!isOfLitNeedle) {
        Free(Index);
        system_.failures.Report(SettingFailed);
    }
    if (!done || !isOfLitNeedle) {
        system_.live.LiveActionEnd();
    }
}

void CtlCalibration::Free(std::size_t Index) {
    recording_.Free(Index);
    captureButton_.at(Index).SetRaised(true);
}

bool CtlCalibration::Capture(std::size_t Index) {
    usrKVCheckButton& button = captureButton_.at(Index);
    if (button.isHidden()) {
        throw Failure("the needle that was read has ended the step");
    }
    // A needle that was read for this press has raised it.
    button.SetRaised(false);
    const CtlCalibrationRecording::Tip tip = recording_.Read(Index);
    if (LitNeedle() != NoNeedle && LitNeedle() != tip.needle) {
        ShowNeedle(tip.needle);
        return false;
    }
    recording_.Keep(Index, tip);
    GoOnAfter(Index);
    return true;
}

void CtlCalibration::GoOnAfter(std::size_t Index) {
    if (Index == PointZ || Index == PointCenter) {
        confirmButton_[SetButton].Enabled(true);
        return;
    }
    if (recording_.MarksStand()) {
        ChangeCalibrationStep(Step::RaisedFocus);
    }
}

// Keeping and clearing.

void CtlCalibration::ConfirmPressed(std::size_t Index) {
    system_.failures.Handle(SettingFailed, [this, Index] {
        if (Index != AllResetButton && !LitNeedleIsSelected()) {
            throw Failure("another needle is selected than the one that is lit");
        }
        const std::int16_t needle = system_.state.intManipulatorNumber;
        if (Index == SetButton) {
            Confirm(needle);
            return;
        }
        if (Index == ResetButton) {
            Clear(needle);
        } else {
            for (std::int16_t each = 0; each <= system_.state.HighestNeedle(); ++each) {
                Clear(each);
            }
        }
        ChangeCalibrationStep(StepOfMode());
    });
}

void CtlCalibration::Confirm(std::int16_t needle) {
    if (modeButton_[FullCalibration].Value()) {
        values_.KeepFullCalibration(needle);
        system_.owner.SetCalibTime(needle, values_.KeepTime(needle), OfCalibration);
        // A calculation that fails tells so itself; the needle counts as calibrated all the same.
        system_.needleMove.CalibrationCalculation(needle);
        system_.state.CalibrationON(needle, true);
        ChangeCalibrationStep(Step::AfterFullCalibration);
    } else {
        values_.KeepReCalibration(needle);
        system_.owner.SetCalibTime(needle, values_.KeepReTime(needle), OfReCalibration);
        ChangeCalibrationStep(Step::Center);
    }
}

void CtlCalibration::Clear(std::int16_t needle) {
    values_.Clear(needle);
    system_.owner.SetCalibTime(needle, settings::NoTime, OfCalibration);
    system_.owner.SetCalibTime(needle, settings::NoTime, OfReCalibration);
    // The references that the maps hold stay: nothing uses them while this is off.
    system_.state.CalibrationON(needle, false);
}

// Mode and needle.

void CtlCalibration::ModePressed(std::size_t Index) {
    PressOnly(modeButton_, Index);
    EnterStepOfMode();
}

void CtlCalibration::NeedlePressed(std::int16_t Index) {
    ManipulatorChange(Index);
    if (system_.state.intManipulatorNumber != Index) {
        system_.communication.ChangeManipulator(ToInteger16(Index + 1));
    }
    EnterStepOfMode();
}

void CtlCalibration::ManipulatorChange(std::int16_t ManipulatorNumber) {
    system_.communication.RequestMagnescaleData();
    system_.communication.RequestMirrorData();
    ShowNeedle(ManipulatorNumber);
}

void CtlCalibration::ShowNeedle(std::int16_t ManipulatorNumber) {
    PressOnly(needleButton_, Bounded(ManipulatorNumber, needleButton_.size()));
    for (std::size_t mark = 0; mark < MarkCount; ++mark) {
        captureButton_.at(mark).SetRaised(true);
    }
    if (!isHidden()) {
        EnterStepOfMode();
    }
}

std::int16_t CtlCalibration::LitNeedle() const {
    const auto lit = std::find_if(needleButton_.begin(), needleButton_.end(),
                                  [](const usrKVCheckButton& button) { return button.Value(); });
    return lit == needleButton_.end() ? NoNeedle : static_cast<std::int16_t>(lit - needleButton_.begin());
}

bool CtlCalibration::LitNeedleIsSelected() {
    const std::int16_t& selected = system_.state.intManipulatorNumber;
    const std::int16_t lit = LitNeedle();
    if (lit == NoNeedle || lit == selected) {
        return true;
    }
    system_.needle.ManipulatorReload();
    if (lit != selected && selected >= 0 && selected < NeedleCount) {
        ShowNeedle(selected);
    }
    return lit == selected;
}

// Coming and going.

void CtlCalibration::Shown() {
    EnterStepOfMode();
    if (!At2x()) {
        Timer1_->Enabled(true);
    }
    // Every recorded view needs the gauge.
    const bool gauge = system_.communication.MagnescalePortOpenCheck();
    EnableRecording(gauge);
    confirmButton_[SetButton].Enabled(false);
    EnableNeedles(system_.state.intTotalManipulatorNumber, gauge);
}

void CtlCalibration::Hidden() {
    if (!At2x()) {
        Timer1_->Enabled(false);
    }
}

void CtlCalibration::ChangeMagnification(std::int16_t Magnification) {
    const bool is2x = Magnification == Magnification2x;
    Timer1_->Enabled(!is2x);
    if (is2x) {
        lblWaring_.hide();
    }
}

void CtlCalibration::TotalManipulatorNumber(std::int16_t ManipulatorNumber) {
    if (ManipulatorNumber < 0 || ManipulatorNumber > HighestManipulatorNumber) {
        for (usrKVCheckButton& mode : modeButton_) {
            mode.Enabled(false);
        }
        EnableRecording(false);
        confirmButton_[SetButton].Enabled(false);
    }
    EnableNeedles(ManipulatorNumber, true);
}

// Small questions and steps that the rules above are put together from.

bool CtlCalibration::At2x() const { return system_.state.intMagnification() == Magnification2x; }

void CtlCalibration::EnableRecording(bool enabled) {
    for (usrKVCheckButton& capture : captureButton_) {
        capture.Enabled(enabled);
    }
    confirmButton_[ResetButton].Enabled(enabled);
    confirmButton_[AllResetButton].Enabled(enabled);
}

void CtlCalibration::EnableNeedles(std::int16_t highest, bool enabled) {
    for (usrKVCheckButton& button : needleButton_) {
        button.Enabled(false);
    }
    for (std::int32_t needle = 0; needle <= highest && needle < NeedleCount; ++needle) {
        needleButton_[static_cast<std::size_t>(needle)].Enabled(enabled);
    }
}

template <std::size_t Count>
void CtlCalibration::PressOnly(std::array<usrKVCheckButton, Count>& group, std::size_t pressed) {
    for (std::size_t index = 0; index < Count; ++index) {
        group[index].SetRaised(index != pressed);
    }
}

}  // namespace travo
