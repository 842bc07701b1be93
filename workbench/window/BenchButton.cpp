#include "workbench/window/BenchButton.h"

#include <QKeyEvent>
#include <QPainter>

#include "workbench/window/BenchPalette.h"

namespace workbench {

namespace {

bool IsPressKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    return (event.key() == Qt::Key_Space || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
           (modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier);
}

// Of the ring under the pointer, which lies inside the outline.
constexpr double RingWidth = 3;
constexpr double RingInset = 2.5;
constexpr double RingRadius = 4;

QString PressAction() { return QStringLiteral("Press"); }

}  // namespace

BenchButton::BenchButton(const ControlName& name, const QString& text, QWidget* parent)
    : QAbstractButton(parent), keys_(name.keys) {
    InstallBenchAccess();
    setObjectName(name.object);
    setAccessibleName(name.accessible);
    setText(text);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

void BenchButton::ShowText(const QString& newText) {
    if (text() != newText) {
        setText(newText);
    }
}

// There is no role for a two-state push button, and of a plain button no assistive program tells the state.
QAccessible::Role BenchButton::AccessibleRole() const {
    return isCheckable() ? QAccessible::CheckBox : QAccessible::Button;
}

QStringList BenchButton::AccessibleActions() const { return {PressAction()}; }

void BenchButton::DoAccessibleAction(const QString&) { click(); }

void BenchButton::AddToState(QAccessible::State& state) const {
    state.checkable = isCheckable();
    state.checked = isChecked();
    state.pressed = isDown();
}

// The arrows, which Qt would use to walk through the buttons, belong to the joystick.
void BenchButton::keyPressEvent(QKeyEvent* event) {
    if (!IsPressKey(*event)) {
        event->ignore();
    } else if (!event->isAutoRepeat() && !isDown()) {
        setDown(true);
        pressed();
    }
}

void BenchButton::keyReleaseEvent(QKeyEvent* event) {
    if (!IsPressKey(*event)) {
        event->ignore();
    } else if (!event->isAutoRepeat() && isDown()) {
        setDown(false);
        released();
        clicked(isChecked());
    }
}

void BenchButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintButton(painter);
    if (isEnabled() && underMouse() && !isDown()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette::Ring, RingWidth));
        painter.setBrush(Qt::NoBrush);
        const double lip = IsDark() ? 0 : 2;
        painter.drawRoundedRect(QRectF(rect()).adjusted(RingInset, RingInset, -RingInset, -RingInset - lip),
                                RingRadius, RingRadius);
    }
}

QColor BenchButton::InkNow() const {
    if (IsDark()) {
        return isEnabled() ? palette::OnSlate : palette::OnSlateOff;
    }
    return isEnabled() ? palette::Ink : palette::Off;
}

}  // namespace workbench
