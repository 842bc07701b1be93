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

}  // namespace travo
