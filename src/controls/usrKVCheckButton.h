// The skinned two-state button.
#pragma once

#include "controls/SkinButton.h"

namespace travo {

// A click toggles `Value` and then emits `clicked`: handlers find the new state. It does not release its
// neighbours; handlers keep a group exclusive by `SetRaised`. Starts raised.
// Pictures <path>-up, -down (pressed in), -disabled and -down-disabled.
class usrKVCheckButton : public SkinButton {
    Q_OBJECT

public:
    explicit usrKVCheckButton(QWidget* parent = nullptr);

    // True when pressed in.
    bool Value() const { return isChecked(); }
    // True raises the button, false presses it in. Silent: no signal, no handling.
    void SetRaised(bool Raised);

protected:
    QString PictureName() const override;
};

}  // namespace travo
