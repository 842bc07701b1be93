#include "controls/Pressable.h"

#include <QApplication>
#include <QWidget>

namespace travo {

bool TakesPress(const QWidget& control) {
    if (!control.isEnabled() || !control.isVisible()) {
        return false;
    }
    const QWidget* const modal = QApplication::activeModalWidget();
    return modal == nullptr || modal == control.window() || modal->isAncestorOf(&control);
}

bool HasGoneOff(const QWidget& control) {
    return !control.isEnabled() || !control.isVisibleTo(control.window());
}

}  // namespace travo
