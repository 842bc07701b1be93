// Keys, and how the window comes, goes and closes.
#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>

#include "workbench/window/FocusPlate.h"
#include "workbench/window/JoystickPlate.h"
#include "workbench/window/WorkbenchWindow.h"

namespace workbench {

// A key comes here when what has the focus has no use for it.
void WorkbenchWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Shift) {
        parts_.joystick->HoldShift(true);
        return;
    }
    const WindowKey key = KeyOf(*event);
    if (key.does == WindowKey::Does::Nothing) {
        QWidget::keyPressEvent(event);
        return;
    }
    // What repeats while a key is held is paced here, and not by the keyboard.
    if (event->isAutoRepeat()) {
        return;
    }
    if (key.IsHeld()) {
        LetKeyGo();
        heldKey_ = event->key();
        held_ = key;
    }
    const bool fine = event->modifiers().testFlag(Qt::ShiftModifier);
    parts_.joystick->HoldShift(fine);
    DoKey(key, fine);
}

void WorkbenchWindow::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat()) {
        return;
    }
    if (event->key() == Qt::Key_Shift) {
        parts_.joystick->HoldShift(false);
    } else if (event->key() == heldKey_) {
        LetKeyGo();
    } else {
        QWidget::keyReleaseEvent(event);
    }
}

void WorkbenchWindow::DoKey(const WindowKey& key, bool fine) {
    auto* const button = findChild<QAbstractButton*>(key.object);
    switch (key.does) {
        case WindowKey::Does::Press:
            button->click();
            break;
        case WindowKey::Does::Hold:
            if (button->isEnabled()) {
                button->setDown(true);
                Q_EMIT button->pressed();
            }
            break;
        case WindowKey::Does::WheelUp:
        case WindowKey::Does::WheelDown:
            parts_.focus->HoldWheel(key.does == WindowKey::Does::WheelUp, fine);
            break;
        case WindowKey::Does::Longer:
            parts_.joystick->Longer();
            break;
        case WindowKey::Does::Shorter:
            parts_.joystick->Shorter();
            break;
        case WindowKey::Does::Nothing:
            break;
    }
}

void WorkbenchWindow::LetKeyGo() {
    heldKey_ = 0;
    if (auto* const button = findChild<QAbstractButton*>(held_.object);
        held_.does == WindowKey::Does::Hold && button != nullptr && button->isDown()) {
        button->setDown(false);
        Q_EMIT button->released();
    }
    parts_.focus->LetGo();
    held_ = {};
}

// A release that goes to another window is never told here.
void WorkbenchWindow::LetAllGo() {
    LetKeyGo();
    parts_.joystick->LetGo();
    parts_.joystick->HoldShift(false);
}

void WorkbenchWindow::showEvent(QShowEvent*) { Refresh(); }

void WorkbenchWindow::hideEvent(QHideEvent*) { timer_.stop(); }

void WorkbenchWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange) {
        if (isMinimized()) {
            timer_.stop();
        } else if (isVisible()) {
            Refresh();
        }
    } else if (event->type() == QEvent::ActivationChange && !isActiveWindow()) {
        LetAllGo();
    }
    QWidget::changeEvent(event);
}

void WorkbenchWindow::closeEvent(QCloseEvent* event) {
    if (!MayClose()) {
        event->ignore();
        return;
    }
    Keep();
    event->accept();
}

bool WorkbenchWindow::MayClose() {
    Refresh();
    if (AllShut(scene_)) {
        return true;
    }
    QMessageBox box(QMessageBox::Question, windowTitle(),
                    QStringLiteral("TRAVO is connected. End the instruments?"),
                    QMessageBox::Yes | QMessageBox::No, this);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

}  // namespace workbench
