// What the steps of a calibration show, tell the camera and move.
#include <QString>
#include <array>

#include "workflows/CtlCalibration.h"

namespace travo {

namespace {

// What a step shows: a row of capture buttons and a picture.
struct Look {
    std::size_t firstCapture;
    std::size_t lastCapture;
    std::size_t picture;
};
// By step.
constexpr std::array<Look, 4> Looks{{{0, 2, 0}, {3, 3, 1}, {4, 4, 2}, {0, 2, 0}}};

}  // namespace

void CtlCalibration::ChangeCalibrationStep(Step step) {
    ShowStep(step);
    if (!system_.state.LiveOpen) {
        return;
    }
    switch (step) {
        case Step::RaisedFocus:
            system_.live.LiveCalibZ();
            break;
        case Step::Center:
            system_.live.LiveCalibCenter();
            break;
        case Step::Marks:
        case Step::AfterFullCalibration:
            system_.live.LiveCalibPoints();
            break;
    }
}

void CtlCalibration::EnterStepOfMode() {
    const Step step = StepOfMode();
    ShowStep(step);
    if (step == Step::Center) {
        system_.live.AnnounceCalibCenter();
    } else {
        system_.live.AnnounceCalibPoints();
    }
}

void CtlCalibration::ShowStep(Step step) {
    const Look& look = Looks.at(static_cast<std::size_t>(step));
    recording_.Begin();
    for (std::size_t point = look.firstCapture; point <= look.lastCapture; ++point) {
        captureButton_.at(point).SetRaised(true);
        captureButton_.at(point).show();
    }
    confirmButton_[SetButton].Enabled(false);
    for (std::size_t point = 0; point < captureButton_.size(); ++point) {
        if (point < look.firstCapture || point > look.lastCapture) {
            captureButton_.at(point).SetRaised(true);
            captureButton_.at(point).hide();
        }
    }
    for (std::size_t picture = 0; picture < imgCalibPos_.size(); ++picture) {
        imgCalibPos_[picture].setVisible(picture == look.picture);
    }
    if (step == Step::RaisedFocus) {
        raise_.Raise();
    } else if (step == Step::AfterFullCalibration) {
        raise_.Lower();
    }
}

CtlCalibration::Step CtlCalibration::StepOfMode() const {
    return modeButton_[FullCalibration].Value() ? Step::Marks : Step::Center;
}

}  // namespace travo
