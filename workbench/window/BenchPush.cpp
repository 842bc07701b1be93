#include "workbench/window/BenchPush.h"

#include <QPainter>
#include <utility>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {
constexpr double Raised = 1;           // what stands on a raised face stands so much higher
constexpr double BelowMiddle = 0.357;  // of the em, from a line's middle to its baseline
constexpr double Margin = 8;           // of the text, both sides together
}  // namespace

BenchPush::BenchPush(const ControlName& name, const QString& text, QWidget* parent)
    : BenchButton(name, text, parent) {}

void BenchPush::TextPixels(double pixels) {
    pixels_ = pixels;
    update();
}

void BenchPush::Draw(Drawing drawing) {
    drawing_ = std::move(drawing);
    update();
}

void BenchPush::Bare() { bare_ = true; }

void BenchPush::Clears() { clears_ = true; }

void BenchPush::PaintButton(QPainter& painter) {
    const QRectF place(rect());
    const bool isUp = isEnabled() && !isDown();
    if (!bare_) {
        PaintFace(painter, place,
                  !isEnabled() ? Face::Off
                  : isUp       ? Face::Up
                               : Face::Down,
                  clears_ && isEnabled() ? Tone::Retreat : Tone::Plain);
    }
    const QColor ink = clears_ && isEnabled() ? palette::CoralDeepText : InkNow();
    const QPointF middle = place.center() - QPointF(0, isUp ? Raised : 0);
    if (drawing_) {
        drawing_(painter, middle, ink);
    } else {
        Write(painter, {text(), middle + QPointF(0, pixels_ * BelowMiddle),
                        TextFont(pixels_, clears_ ? QFont::Bold : QFont::DemiBold), ink, Anchor::Middle,
                        place.width() - Margin});
    }
}

}  // namespace workbench
