#include "workbench/window/BenchSegment.h"

#include <QPainter>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {
constexpr double Radius = 4;
constexpr double BarMargin = 5;  // of the lit bar, from the button's sides
constexpr double BarHeight = 3;
constexpr double BelowMiddle = 0.357;  // of the em, from a line's middle to its baseline
constexpr double Margin = 4;           // of the text, both sides together
}  // namespace

BenchSegment::BenchSegment(const ControlName& name, const QString& text, QWidget* parent)
    : BenchButton(name, text, parent) {
    setCheckable(true);
}

void BenchSegment::TextPixels(double pixels) {
    pixels_ = pixels;
    update();
}

void BenchSegment::ShowLatched(bool latched) {
    if (isChecked() != latched) {
        setChecked(latched);
    }
}

void BenchSegment::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF place(rect());
    double up = 0;
    if (IsDark()) {
        PaintLatched(painter, place, isEnabled(), Radius);
        painter.setPen(Qt::NoPen);
        painter.setBrush(isEnabled() ? palette::SimLit : palette::SlotOff);
        painter.drawRoundedRect(QRectF(BarMargin, place.height() - 6, place.width() - 2 * BarMargin, BarHeight),
                                BarHeight / 2, BarHeight / 2);
        up = 1.5;
    } else {
        PaintFace(painter, place, !isEnabled() ? Face::Off : isDown() ? Face::Down : Face::Up);
        up = isEnabled() && !isDown() ? 1 : 0;
    }
    Write(painter, {text(), place.center() + QPointF(0, pixels_ * BelowMiddle - up),
                    TextFont(pixels_, QFont::DemiBold), InkNow(), Anchor::Middle, place.width() - Margin});
}

}  // namespace workbench
