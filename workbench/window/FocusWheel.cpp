#include "workbench/window/FocusWheel.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "workbench/window/BenchPalette.h"

namespace workbench {

namespace {

constexpr int NotchCounts = 100;
constexpr int FineCounts = 10;
constexpr double PixelsANotch = 6;
constexpr int NotchAngle = 120;  // of a mouse wheel, in eighths of a degree
constexpr int Ribs = 10;         // on a quarter of the wheel
constexpr double Margin = 3;     // of the ribs, from the sides
constexpr double RibMargin = 5;  // from the upper and lower edge

// Angle of the wheel in ribs, so that in its middle it goes along with the pointer.
double RibsOf(int counts, double radius) {
    const double angle = counts / double(NotchCounts) * PixelsANotch / radius;
    return angle / (std::numbers::pi / 2) * Ribs;
}

}  // namespace

FocusWheel::FocusWheel(std::function<void(int)> jog, QWidget* parent)
    : QWidget(parent), jog_(std::move(jog)) {
    InstallBenchAccess();
    setObjectName(QStringLiteral("wheel"));
    setAccessibleName(QStringLiteral("Focus wheel"));
    setFocusPolicy(Qt::TabFocus);
    // It paints its corners as the plate is, so that the plate need not be painted with it.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::SizeHorCursor);
}

void FocusWheel::Show(int counts) {
    if (counts_ != counts) {
        counts_ = counts;
        update();
    }
}

QStringList FocusWheel::AccessibleActions() const {
    return {QAccessibleActionInterface::increaseAction(), QAccessibleActionInterface::decreaseAction()};
}

void FocusWheel::DoAccessibleAction(const QString& name) {
    jog_(name == QAccessibleActionInterface::increaseAction() ? NotchCounts : -NotchCounts);
}

void FocusWheel::Turn(int notches, Qt::KeyboardModifiers modifiers) {
    if (notches != 0) {
        jog_(notches * (modifiers.testFlag(Qt::ShiftModifier) ? FineCounts : NotchCounts));
    }
}

void FocusWheel::wheelEvent(QWheelEvent* event) {
    turned_ += event->angleDelta().y();
    const int notches = turned_ / NotchAngle;
    turned_ -= notches * NotchAngle;
    Turn(notches, event->modifiers());
    event->accept();
}

void FocusWheel::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    held_ = true;
    heldAt_ = event->position().x();
}

void FocusWheel::mouseMoveEvent(QMouseEvent* event) {
    if (!held_) {
        return;
    }
    const int notches = static_cast<int>((event->position().x() - heldAt_) / PixelsANotch);
    heldAt_ += notches * PixelsANotch;
    Turn(notches, event->modifiers());
}

void FocusWheel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        held_ = false;
    }
}

void FocusWheel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF place(rect());
    painter.fillRect(rect(), palette::Well);
    QLinearGradient fill(place.topLeft(), place.bottomLeft());
    fill.setColorAt(0, palette::WheelHigh);
    fill.setColorAt(1, palette::WheelLow);
    painter.setPen(palette::Edge);
    painter.setBrush(fill);
    painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
    const double radius = place.width() / 2 - Margin;
    const double turned = RibsOf(counts_, radius);
    const int first = static_cast<int>(std::ceil(-Ribs - turned));
    for (int rib = first; rib + turned < Ribs; ++rib) {
        const double angle = (rib + turned) / Ribs * std::numbers::pi / 2;
        const double x = place.width() / 2 + std::sin(angle) * radius;
        // One rib of a turn is marked.
        const bool isMark = rib % (4 * Ribs / 2) == 0;
        painter.setPen(QPen(isMark ? palette::SimDeep : palette::Slate,
                            isMark ? 1 + 2 * std::cos(angle) : 1 + 0.8 * std::cos(angle), Qt::SolidLine,
                            Qt::FlatCap));
        painter.drawLine(QPointF(x, RibMargin), QPointF(x, place.height() - RibMargin));
    }
}

}  // namespace workbench
