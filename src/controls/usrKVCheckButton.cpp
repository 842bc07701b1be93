#include "controls/usrKVCheckButton.h"

#include <QSignalBlocker>

namespace travo {

usrKVCheckButton::usrKVCheckButton(QWidget* parent) : SkinButton(parent) { setCheckable(true); }

void usrKVCheckButton::SetRaised(bool Raised) {
    const QSignalBlocker silence(this);
    setChecked(!Raised);
}

QString usrKVCheckButton::PictureName() const {
    if (!isEnabled()) {
        return path() + (isChecked() ? QStringLiteral("-down-disabled") : QStringLiteral("-disabled"));
    }
    return path() + (isChecked() || isDown() ? QStringLiteral("-down") : QStringLiteral("-up"));
}

}  // namespace travo
