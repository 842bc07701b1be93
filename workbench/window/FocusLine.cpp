#include "workbench/window/FocusLine.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

#include "workbench/window/BenchPalette.h"

namespace workbench {

namespace {

constexpr int Outside = 4;  // gap and line
constexpr double Width = 2;
constexpr double Radius = 8;

bool IsKeyboard(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

// The joystick's keys say nothing of what has the focus.
bool IsPress(const QKeyEvent& event) {
    return event.key() == Qt::Key_Space || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

FocusLine::FocusLine(QWidget& window) : QWidget(&window) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void FocusLine::Watch(QWidget& control) { control.installEventFilter(this); }

bool FocusLine::eventFilter(QObject* watched, QEvent* event) {
    auto* const control = static_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::FocusIn:
            if (IsKeyboard(static_cast<QFocusEvent*>(event)->reason())) {
                Bear(control);
            }
            break;
        case QEvent::KeyPress:
            if (IsPress(*static_cast<QKeyEvent*>(event))) {
                Bear(control);
            }
            break;
        case QEvent::MouseButtonPress:
        case QEvent::FocusOut:
        case QEvent::Hide:
            if (control == control_) {
                Bear(nullptr);
            }
            break;
        case QEvent::Move:
        case QEvent::Resize:
            Follow();
            break;
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

void FocusLine::Bear(QWidget* control) {
    control_ = control;
    Follow();
    setVisible(control != nullptr);
}

void FocusLine::Follow() {
    if (control_ == nullptr) {
        return;
    }
    const QPoint corner = control_->mapTo(parentWidget(), QPoint(0, 0));
    setGeometry(QRect(corner, control_->size()).adjusted(-Outside, -Outside, Outside, Outside));
    raise();
}

void FocusLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette::Ink, Width));
    painter.drawRoundedRect(QRectF(rect()).adjusted(Width / 2, Width / 2, -Width / 2, -Width / 2), Radius,
                            Radius);
}

}  // namespace workbench
