#include "mirror/view/CtlController.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "controls/PlainButton.h"
#include "controls/Pressable.h"

namespace travo {

namespace {

constexpr std::int16_t DisabledPicture = 18;

// No area for a key that is none of the pad's.
std::int16_t AreaOfKey(const QKeyEvent& event) {
    // The keys of the number block are as good as the others.
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    const bool outer = modifiers == Qt::ShiftModifier;
    if (modifiers != Qt::NoModifier && !outer) {
        return NoPadArea;
    }
    switch (event.key()) {
        case Qt::Key_Up:
            return outer ? 1 : 9;
        case Qt::Key_Right:
            return outer ? 3 : 11;
        case Qt::Key_Down:
            return outer ? 5 : 13;
        case Qt::Key_Left:
            return outer ? 7 : 15;
        case Qt::Key_Home:
            return outer ? NoPadArea : PadCentre;
        default:
            return NoPadArea;
    }
}

}  // namespace

CtlController::CtlController(const System& system, QWidget* parent)
    : QWidget(parent), system_(system), focusMark_(*this, *this) {
    DesignSize(QSizeF(PadSide, PadSide));
    resize(PadSide, PadSide);
    setFocusPolicy(Qt::StrongFocus);
    // To see that a release has been lost.
    setMouseTracking(true);
    InstallPadAccess();
}

void CtlController::inipath(const QString& folder) {
    pictures_.Folder(folder);
    update();
}

void CtlController::ChangeEnable(bool New_Enable) {
    if (!New_Enable) {
        Drop();
        // Qt would pass it on to the next control: a button that moves the objective.
        hadFocus_ = hadFocus_ || window()->focusWidget() == this;
        clearFocus();
    }
    setEnabled(New_Enable);
    // A window that has come to the front meanwhile has it itself.
    const QWidget* const focused = window()->focusWidget();
    if (New_Enable && std::exchange(hadFocus_, false) && (focused == nullptr || focused == window())) {
        setFocus(Qt::ActiveWindowFocusReason);
    }
    update();
}

std::int16_t CtlController::PictureShown() const { return isEnabled() ? area_ : DisabledPicture; }

std::int16_t CtlController::AreaAt(const QPointF& pointer) const {
    return PadArea(pointer, {static_cast<double>(Side()), system_.display.UnitsPerPixelHorizontal(),
                             system_.display.UnitsPerPixelVertical()});
}

int CtlController::Side() const { return std::min(width(), height()); }

void CtlController::Press(std::int16_t area, Hold hold) {
    area_ = area;
    hold_ = hold;
    update();
}

void CtlController::Release() {
    const std::int16_t area = area_;
    Drop();
    if (area == NoPadArea || !system_.cCommunication.MirrorPortOpenCheck()) {
        return;
    }
    if (area == PadCentre) {
        system_.cMirrorMove.MirrorMoveToCenter();
    }
    for (const PadMove& move : PadMoves(area)) {
        system_.cMirrorMove.MirrorMove(move.Index, move.Sign, move.MoveAmount);
    }
}

void CtlController::Drop() { Press(NoPadArea, Hold::None); }

void CtlController::PressArea(std::int16_t area) {
    if (!TakesPress(*this)) {
        return;
    }
    setFocus(Qt::MouseFocusReason);
    Press(area, Hold::None);
    Release();
}

void CtlController::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    Press(AreaAt(event->position()), Hold::Mouse);
}

void CtlController::mouseMoveEvent(QMouseEvent* event) {
    // The release is lost where a message box opens while the button is held.
    if (hold_ == Hold::Mouse && !event->buttons().testFlag(Qt::LeftButton)) {
        Drop();
    }
}

void CtlController::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && hold_ == Hold::Mouse) {
        Release();
    }
}

void CtlController::keyPressEvent(QKeyEvent* event) {
    const std::int16_t area = AreaOfKey(*event);
    if (area == NoPadArea) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (!event->isAutoRepeat() && hold_ == Hold::None) {
        key_ = event->key();
        Press(area, Hold::Key);
    }
}

void CtlController::keyReleaseEvent(QKeyEvent* event) {
    if (hold_ != Hold::Key || event->key() != key_) {
        QWidget::keyReleaseEvent(event);
        return;
    }
    if (!event->isAutoRepeat()) {
        Release();
    }
}

void CtlController::focusOutEvent(QFocusEvent* event) {
    Drop();
    QWidget::focusOutEvent(event);
}

void CtlController::hideEvent(QHideEvent* event) {
    Drop();
    QWidget::hideEvent(event);
}

void CtlController::DesignSizeChanged() {
    updateGeometry();
    update();
}

void CtlController::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int side = Side();
    const QString name = QStringLiteral("pad-%1").arg(PictureShown(), 2, 10, QLatin1Char('0'));
    const QPixmap picture = pictures_.Picture(name, QSize(side, side), devicePixelRatioF(), Scale());
    if (picture.isNull()) {
        PaintPlainPicture(painter, QRectF(0, 0, side, side), accessibleName(), Scale());
    } else {
        painter.drawPixmap(QPointF(0, 0), picture);
    }
}

}  // namespace travo
