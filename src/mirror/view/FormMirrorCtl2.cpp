#include "mirror/view/FormMirrorCtl2.h"

#include "controls/PanelItems.h"
#include "core/ground/Magnification.h"

namespace travo {

namespace {

// Design pixels.
constexpr double CaptionLeft = 12;
constexpr double ObjectiveTop = 38;
constexpr double MotorsTop = 114;

const QString MagnificationHelp = QStringLiteral("Change to this magnification");

}  // namespace

FormMirrorCtl2::FormMirrorCtl2(const System& system, const QString& programFolder)
    : FormSkinned(system.window,
                  {QStringLiteral("FormMirrorCtl2"), QStringLiteral("Magnification"), QStringLiteral("4"),
                   QSize(276, 192)},
                  programFolder),
      state_(system.state),
      cCommunication_(system.cCommunication) {
    PlaceControls();
    for (std::size_t index = 0; index < ButtonCount; ++index) {
        connect(&usrKVCheckButton1_.at(index), &usrKVCheckButton::clicked, this,
                [this, index] { Pressed(index); });
    }
    Pressed(On);
}

// The order of placing is the order of the Tab key.
void FormMirrorCtl2::PlaceControls() {
    Body().Paint(CaptionText(CaptionLeft, ObjectiveTop, QStringLiteral("Objective")));
    Body().Paint(CaptionText(CaptionLeft, MotorsTop, QStringLiteral("Mirror motors")));
    PutControl(usrKVCheckButton1_[0], {"usrKVCheckButton1(0)", "Magnification 0.35x", QRectF(12, 58, 80, 50),
                                       "ctlmag035", MagnificationHelp});
    PutControl(usrKVCheckButton1_[1], {"usrKVCheckButton1(1)", "Magnification 2x", QRectF(98, 58, 80, 50),
                                       "ctlmag2", MagnificationHelp});
    PutControl(usrKVCheckButton1_[2], {"usrKVCheckButton1(2)", "Magnification 4x", QRectF(184, 58, 80, 50),
                                       "ctlmag4", MagnificationHelp});
    PutControl(usrKVCheckButton1_[On], {"usrKVCheckButton1(3)", "Motors on", QRectF(12, 134, 123, 46), "On",
                                        "Switch the mirror motors on"});
    PutControl(usrKVCheckButton1_[Off], {"usrKVCheckButton1(4)", "Motors off", QRectF(141, 134, 123, 46),
                                         "Off", "Switch the mirror motors off"});
}

void FormMirrorCtl2::Activated() {
    const bool open = cCommunication_.MirrorPortOpenCheck();
    for (usrKVCheckButton& button : usrKVCheckButton1_) {
        button.Enabled(open);
    }
    if (!state_.bMirrorMotorONOFF) {
        EnableMagnification(false);
    }
    // At 0.35x the operator's last choice stays in view.
    if (state_.intMagnification() >= Magnification2x) {
        ChangeMagnification(state_.intMagnification());
    }
}

void FormMirrorCtl2::ChangeMagnification(std::int16_t Magnification) {
    for (std::size_t index = 0; index < MagnificationCount; ++index) {
        usrKVCheckButton1_.at(index).SetRaised(Magnification != static_cast<std::int16_t>(index + 1));
    }
}

void FormMirrorCtl2::checkMotor(std::int16_t ONOFF) {
    if (ONOFF == 0 || ONOFF == 1) {
        MotorsShown(ONOFF == 1);
    }
    EnableMagnification(ONOFF != 0);
    usrKVCheckButton1_.at(On).Enabled(true);
    usrKVCheckButton1_.at(Off).Enabled(true);
}

// The click has toggled the button already.
void FormMirrorCtl2::Pressed(std::size_t index) {
    if (!cCommunication_.MirrorPortOpenCheck()) {
        usrKVCheckButton1_.at(index).SetRaised(true);
        return;
    }
    if (index < MagnificationCount) {
        const auto magnification = static_cast<std::int16_t>(index + 1);
        ChangeMagnification(magnification);
        cCommunication_.SendMirrorMagnificationData(magnification);
        return;
    }
    MotorsShown(index == On);
    cCommunication_.SendMotorLock(usrKVCheckButton1_.at(On).Value() ? 1 : 0);
}

void FormMirrorCtl2::MotorsShown(bool on) {
    usrKVCheckButton1_.at(On).SetRaised(!on);
    usrKVCheckButton1_.at(Off).SetRaised(on);
}

void FormMirrorCtl2::EnableMagnification(bool enabled) {
    for (std::size_t index = 0; index < MagnificationCount; ++index) {
        usrKVCheckButton1_.at(index).Enabled(enabled);
    }
}

}  // namespace travo
