// Pointer and display on Qt's.
#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/Display.h"
#include "platform/Pointer.h"

namespace travo::platform::qt {

class QtPointer : public Pointer {
public:
    // The window whose pointer is set by MainWindow; none before it is there.
    void Window(QWidget* window) { window_ = window; }

    void Screen(PointerShape shape) override;
    void MainWindow(PointerShape shape) override;

private:
    QPointer<QWidget> window_;
    bool overridden_ = false;
};

// Qt gives sizes in device-independent pixels already, so the scale is always 1.
class QtDisplay : public Display {
public:
    double UnitsPerPixelVertical() const override { return 15.0; }
    double UnitsPerPixelHorizontal() const override { return 15.0; }
};

}  // namespace travo::platform::qt
