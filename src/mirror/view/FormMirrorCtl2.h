// The small window with the magnification and the switch of the mirror's motors.
#pragma once

#include <QString>
#include <array>
#include <cstdint>

#include "controls/usrKVCheckButton.h"
#include "core/state/News.h"
#include "core/state/SharedState.h"
#include "core/view/FormSkinned.h"
#include "devices/links/clsCommunication.h"

namespace travo {

// Window 4 of the operator's settings: two groups of buttons of which one each is pressed in. A press sends
// a command; what the controller then reports comes back by ChangeMagnification and checkMotor. Failures of
// what a press does go up to the caller.
class FormMirrorCtl2 : public FormSkinned, public HearsMagnification, public HearsMirrorMotors {
    Q_OBJECT

public:
    // Alive when the window is made and whenever one of its steps is called or something is pressed.
    struct System {
        FormSkinned::System window;
        SharedState& state;
        clsCommunication& cCommunication;
    };

    // Acts as if the button On had been pressed: with the mirror's port open that switches its motors on.
    // programFolder holds the folder skin.
    FormMirrorCtl2(const System& system, const QString& programFolder);

    // Presses in the button of that magnification: 1 is 0.35x, 2 is 2x, 3 is 4x; any other raises all three.
    void ChangeMagnification(std::int16_t Magnification) override;
    // 1 shows the motors on, 0 off; any other leaves On and Off as they are. The magnification is locked
    // while they are off (0) and free otherwise.
    void checkMotor(std::int16_t ONOFF) override;

    // All five buttons go by the mirror's port, those of the magnification also by the motors. A present
    // magnification of 2x or 4x is pressed in; 0.35x and none known leave the buttons as they are.
    void Activated() override;

private:
    // Of usrKVCheckButton1.
    static constexpr std::size_t MagnificationCount = 3;
    static constexpr std::size_t On = 3;
    static constexpr std::size_t Off = 4;
    static constexpr std::size_t ButtonCount = 5;

    void PlaceControls();
    void EnableMagnification(bool enabled);
    void Pressed(std::size_t index);
    void MotorsShown(bool on);

    SharedState& state_;
    clsCommunication& cCommunication_;
    std::array<usrKVCheckButton, ButtonCount> usrKVCheckButton1_;
};

}  // namespace travo
