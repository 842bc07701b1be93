#include "controls/usrKVButton.h"

namespace travo {

QString usrKVButton::PictureName() const {
    if (!isEnabled()) {
        return path() + QStringLiteral("-disabled");
    }
    return path() + (isDown() ? QStringLiteral("-down") : QStringLiteral("-up"));
}

}  // namespace travo
