#include "workbench/window/MirrorPad.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSvgRenderer>
#include <utility>

// Of the pictures that stand in this library; Qt wants it called from outside of every namespace.
static void InstallPadPictures() { Q_INIT_RESOURCE(workbench_pad); }

namespace workbench {

namespace {

constexpr int DisabledPicture = 18;

// No area for a key that is none of the pad's.
int AreaOfKey(const QKeyEvent& event) {
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
            return outer ? NoPadArea : PadMiddle;
        default:
            return NoPadArea;
    }
}

QPixmap PictureOf(int number, const QSize& size, double ratio) {
    QPixmap picture(size * ratio);
    picture.fill(Qt::transparent);
    QSvgRenderer drawing(QStringLiteral(":/workbench/pad-%1.svg").arg(number, 2, 10, QLatin1Char('0')));
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    picture.setDevicePixelRatio(ratio);
    return picture;
}

}  // namespace

MirrorPad::MirrorPad(std::function<void(int)> press, QWidget* parent)
    : QWidget(parent), press_(std::move(press)) {
    InstallBenchAccess();
    InstallPadPictures();
    setObjectName(QStringLiteral("pad"));
    setAccessibleName(QStringLiteral("Mirror pad"));
    setFocusPolicy(Qt::StrongFocus);
}

int MirrorPad::PictureShown() const { return isEnabled() ? area_ : DisabledPicture; }

QStringList MirrorPad::AccessibleActions() const {
    QStringList names;
    for (int area = 1; area <= PadAreaCount; ++area) {
        names << PadAreaName(area);
    }
    return names;
}

void MirrorPad::DoAccessibleAction(const QString& name) {
    press_(static_cast<int>(AccessibleActions().indexOf(name)) + 1);
}

void MirrorPad::AddToState(QAccessible::State& state) const { state.pressed = area_ != NoPadArea; }

void MirrorPad::Hold(int area, int key) {
    key_ = key;
    if (area_ != area) {
        area_ = area;
        update();
    }
}

void MirrorPad::Release() {
    const int area = area_;
    Hold(NoPadArea, 0);
    if (area != NoPadArea) {
        press_(area);
    }
}

void MirrorPad::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    Hold(PadAreaAt(event->position(), width()), 0);
}

// The release is lost where a box opens while the button is held.
void MirrorPad::mouseMoveEvent(QMouseEvent* event) {
    if (key_ == 0 && !event->buttons().testFlag(Qt::LeftButton)) {
        Hold(NoPadArea, 0);
    }
}

void MirrorPad::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && key_ == 0) {
        Release();
    }
}

void MirrorPad::keyPressEvent(QKeyEvent* event) {
    const int area = AreaOfKey(*event);
    if (area == NoPadArea) {
        QWidget::keyPressEvent(event);
    } else if (!event->isAutoRepeat() && area_ == NoPadArea) {
        Hold(area, event->key());
    }
}

void MirrorPad::keyReleaseEvent(QKeyEvent* event) {
    if (key_ == 0 || event->key() != key_) {
        QWidget::keyReleaseEvent(event);
    } else if (!event->isAutoRepeat()) {
        Release();
    }
}

void MirrorPad::focusOutEvent(QFocusEvent* event) {
    Hold(NoPadArea, 0);
    QWidget::focusOutEvent(event);
}

void MirrorPad::hideEvent(QHideEvent* event) {
    Hold(NoPadArea, 0);
    QWidget::hideEvent(event);
}

void MirrorPad::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        Hold(NoPadArea, 0);
        update();
    }
    QWidget::changeEvent(event);
}

void MirrorPad::paintEvent(QPaintEvent*) {
    const QSize wanted = size() * devicePixelRatioF();
    if (pictured_ != PictureShown() || picture_.size() != wanted) {
        pictured_ = PictureShown();
        picture_ = PictureOf(pictured_, size(), devicePixelRatioF());
    }
    QPainter(this).drawPixmap(QPointF(0, 0), picture_);
}

}  // namespace workbench
