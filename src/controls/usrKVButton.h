// The skinned push button.
#pragma once

#include "controls/SkinButton.h"

namespace travo {

// Pictures <path>-up, -down (while held) and -disabled.
class usrKVButton : public SkinButton {
    Q_OBJECT

public:
    explicit usrKVButton(QWidget* parent = nullptr) : SkinButton(parent) {}

protected:
    QString PictureName() const override;
};

}  // namespace travo
