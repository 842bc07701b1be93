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

void BenchSegment::PaintButton(QPainter& painter) { PaintSegment(painter, *this, pixels_); }

void PaintSegment(QPainter& painter, const BenchButton& button, double pixels) {
    const QRectF place(button.rect());
    const bool isUp = button.isEnabled() && !button.isDown() && !button.IsDark();
    if (button.IsDark()) {
        PaintLatched(painter, place, button.isEnabled(), Radius);
        painter.setPen(Qt::NoPen);
        painter.setBrush(button.isEnabled() ? palette::SimLit : palette::SlotOff);
        painter.drawRoundedRect(
            QRectF(BarMargin, place.height() - 6, place.width() - 2 * BarMargin, BarHeight), BarHeight / 2,
            BarHeight / 2);
    } else {
        PaintFace(painter, place, !button.isEnabled() ? Face::Off : isUp ? Face::Up : Face::Down);
    }
    const double up = button.IsDark() ? 1.5 : isUp ? 1 : 0;
    Write(painter,
          {button.text(), place.center() + QPointF(0, pixels * BelowMiddle - up),
           TextFont(pixels, QFont::DemiBold), button.InkNow(), Anchor::Middle, place.width() - Margin});
}

}  // namespace workbench
