#include "mirror/view/FormMirrorCtl.h"

#include "controls/ControlNames.h"
#include "core/ground/Magnification.h"

namespace travo {

namespace {

// Design pixels.
constexpr QRectF PadPlace(12, 45, PadSide, PadSide);
constexpr QRectF FirstFocusPlace(191, 45, 73, 36);
constexpr double FocusDistance = 43;

struct FocusButton {
    const char* skin;
    std::int32_t way;  // in the motor unit's counts
    const char* human;
    const char* toolTip;
};
constexpr std::array<FocusButton, 4> FocusButtons{
    {{"MirrorUp2", 1000, "Focus up 1000", "Focus up by 1000"},
     {"MirrorUp", 100, "Focus up 100", "Focus up by 100"},
     {"MirrorDown", -100, "Focus down 100", "Focus down by 100"},
     {"MirrorDown2", -1000, "Focus down 1000", "Focus down by 1000"}}};

}  // namespace

FormMirrorCtl::FormMirrorCtl(const System& system, const QString& programFolder)
    : FormSkinned(system.window,
                  {QStringLiteral("FormMirrorCtl"), QStringLiteral("Mirror and focus"), QStringLiteral("2"),
                   QSize(276, 222)},
                  programFolder),
      CtlController1({system.cCommunication, system.cMirrorMove, system.display}, programFolder, &Body()),
      state_(system.state),
      cCommunication_(system.cCommunication) {
    Identify(CtlController1, QStringLiteral("CtlController1"), QStringLiteral("Mirror pad"),
             QStringLiteral("Outer ring 10 steps, inner ring 1 step, middle: to the centre"));
    AddControl(CtlController1, PadPlace);
    BuildFocusButtons(programFolder);
}

void FormMirrorCtl::BuildFocusButtons(const QString& programFolder) {
    for (std::size_t index = 0; index < FocusCount; ++index) {
        const FocusButton& named = FocusButtons.at(index);
        usrKVButton& button = usrKVButton2_.at(index);
        button.setParent(&Body());
        button.path(QLatin1String(named.skin));
        button.inipath(programFolder);
        Identify(button, Indexed(QStringLiteral("usrKVButton2"), static_cast<int>(index)),
                 QLatin1String(named.human), QLatin1String(named.toolTip));
        AddControl(button, FirstFocusPlace.translated(0, FocusDistance * static_cast<double>(index)));
        connect(&button, &usrKVButton::clicked, this, [this, way = named.way] { FocusPressed(way); });
    }
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
