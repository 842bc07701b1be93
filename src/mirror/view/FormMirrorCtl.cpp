#include "mirror/view/FormMirrorCtl.h"

#include "core/ground/Magnification.h"

namespace travo {

namespace {

// Design pixels.
constexpr QRectF PadPlace(12, 45, PadSide, PadSide);
constexpr QRectF FirstFocusPlace(191, 45, 73, 36);
constexpr double FocusDistance = 43;

// In the motor unit's counts.
constexpr std::array<std::int32_t, 4> FocusWays{1000, 100, -100, -1000};

QRectF FocusPlace(int button) { return FirstFocusPlace.translated(0, FocusDistance * button); }

}  // namespace

FormMirrorCtl::FormMirrorCtl(const System& system, const QString& programFolder)
    : FormSkinned(system.window,
                  {QStringLiteral("FormMirrorCtl"), QStringLiteral("Mirror and focus"), QStringLiteral("2"),
                   QSize(276, 222)},
                  programFolder),
      CtlController1({system.cCommunication, system.cMirrorMove, system.display}),
      state_(system.state),
      cCommunication_(system.cCommunication) {
    PlaceControls();
    for (std::size_t index = 0; index < FocusCount; ++index) {
        connect(&usrKVButton2_.at(index), &usrKVButton::clicked, this,
                [this, way = FocusWays.at(index)] { FocusPressed(way); });
    }
}

// The order of placing is the order of the Tab key.
void FormMirrorCtl::PlaceControls() {
    PutControl(CtlController1, {"CtlController1", "Mirror pad", PadPlace, NoSkin,
                                "Outer ring 10 steps, inner ring 1 step, middle: to the centre"});
    PutControl(usrKVButton2_[0],
               {"usrKVButton2(0)", "Focus up 1000", FocusPlace(0), "MirrorUp2", "Focus up by 1000"});
    PutControl(usrKVButton2_[1],
               {"usrKVButton2(1)", "Focus up 100", FocusPlace(1), "MirrorUp", "Focus up by 100"});
    PutControl(usrKVButton2_[2],
               {"usrKVButton2(2)", "Focus down 100", FocusPlace(2), "MirrorDown", "Focus down by 100"});
    PutControl(usrKVButton2_[3],
               {"usrKVButton2(3)", "Focus down 1000", FocusPlace(3), "MirrorDown2", "Focus down by 1000"});
}

void FormMirrorCtl::Activated() {
    const bool motorOpen = cCommunication_.MotorPortOpenCheck();
    for (usrKVButton& button : usrKVButton2_) {
        button.Enabled(motorOpen);
    }
    CtlController1.ChangeEnable(cCommunication_.MirrorPortOpenCheck() && state_.bMirrorMotorONOFF &&
                                state_.intMagnification() != Magnification035x);
}

void FormMirrorCtl::ChangeMagnification(std::int16_t Magnification) {
    CtlController1.ChangeEnable(state_.bMirrorMotorONOFF && Magnification != Magnification035x);
}

void FormMirrorCtl::checkMotor(std::int16_t ONOFF) {
    CtlController1.ChangeEnable(ONOFF != 0 && state_.intMagnification() != Magnification035x);
}

void FormMirrorCtl::FocusPressed(std::int32_t way) {
    if (cCommunication_.MotorPortOpenCheck()) {
        cCommunication_.MotorMoveRZ(way);
    }
}

}  // namespace travo
