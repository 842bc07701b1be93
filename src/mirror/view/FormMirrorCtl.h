// The small window with the pad for the mirror and the buttons of the focus motor.
#pragma once

#include <QString>
#include <array>
#include <cstdint>

#include "controls/usrKVButton.h"
#include "core/state/News.h"
#include "core/state/SharedState.h"
#include "core/view/FormSkinned.h"
#include "devices/links/clsCommunication.h"
#include "mirror/motion/clsMirrorMove.h"
#include "mirror/view/CtlController.h"
#include "platform/Display.h"

namespace travo {

// Window 2 of the operator's settings. The mirror cannot be moved from it at 0.35x, nor once its motors have
// been reported off. Failures of what a press does go up to the caller.
class FormMirrorCtl : public FormSkinned, public HearsMagnification, public HearsMirrorMotors {
    Q_OBJECT

public:
    // Alive when the window is made and whenever one of its steps is called or something is pressed.
    struct System {
        FormSkinned::System window;
        SharedState& state;
        clsCommunication& cCommunication;
        clsMirrorMove& cMirrorMove;
        platform::Display& display;
    };

    // programFolder holds the folder skin.
    FormMirrorCtl(const System& system, const QString& programFolder);

    // Enables or disables the pad: with the motors reported on and a Magnification other than 1 (0.35x) it
    // is enabled. To be told of every report of the magnification, the shared state first.
    void ChangeMagnification(std::int16_t Magnification) override;
    // Likewise; ONOFF is 0 for motors off, anything else on. To be told of every report of the motors.
    void checkMotor(std::int16_t ONOFF) override;

    // The focus buttons go by the motor's port; the pad by the mirror's port, the motors as they were last
    // reported and the present magnification.
    void Activated() override;

    // The pad.
    CtlController CtlController1;

private:
    static constexpr std::size_t FocusCount = 4;

    void PlaceControls();
    void FocusPressed(std::int32_t way);

    SharedState& state_;
    clsCommunication& cCommunication_;

    std::array<usrKVButton, FocusCount> usrKVButton2_;
};

}  // namespace travo
