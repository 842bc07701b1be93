#include "platform/qt/QtScreen.h"

#include <QGuiApplication>

namespace travo::platform::qt {

void QtPointer::Screen(PointerShape shape) {
    const bool wait = shape == PointerShape::Hourglass;
    if (wait == overridden_) {
        return;
    }
    overridden_ = wait;
    if (wait) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QGuiApplication::restoreOverrideCursor();
    }
}

void QtPointer::MainWindow(PointerShape shape) {
    if (!window_) {
        return;
    }
    if (shape == PointerShape::Hourglass) {
        window_->setCursor(Qt::WaitCursor);
    } else {
        window_->unsetCursor();
    }
}

}  // namespace travo::platform::qt
