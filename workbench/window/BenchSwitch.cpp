#include "workbench/window/BenchSwitch.h"

#include <QPainter>
#include <utility>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {
constexpr double Raised = 1;
constexpr double BesideSlot = 4.5;     // the middle of the text lies so far right of the button's
constexpr double TextMargin = 18;      // slot and edges
constexpr double BelowMiddle = 0.357;  // of the em, from a line's middle to its baseline
constexpr double SecondPixels = 12;
}  // namespace

BenchSwitch::BenchSwitch(const ControlName& name, const QString& text, QWidget* parent)
    : BenchButton(name, text, parent), lit_(palette::SimLit) {
    setCheckable(true);
}

void BenchSwitch::TextPixels(double pixels) {
    pixels_ = pixels;
    update();
}

void BenchSwitch::ShowSecondLine(const QString& line) {
    if (second_ != line) {
        second_ = line;
        setAccessibleDescription(line);
        update();
    }
}

void BenchSwitch::Lit(const QColor& colour) { lit_ = colour; }

void BenchSwitch::Draw(Drawing drawing) {
    drawing_ = std::move(drawing);
    update();
}

void BenchSwitch::ShowLatched(bool latched) {
    if (isChecked() != latched) {
        setChecked(latched);
    }
}

void BenchSwitch::PaintButton(QPainter& painter) {
    const QRectF place(rect());
    if (IsDark()) {
        PaintLatched(painter, place, isEnabled());
    } else {
        PaintFace(painter, place, !isEnabled() ? Face::Off : isDown() ? Face::Down : Face::Up);
    }
    PaintSlot(painter, place, {place.height() < 30 ? 6.0 : 9.0, IsDark(), isEnabled(), lit_});
    const bool isUp = !IsDark() && isEnabled() && !isDown();
    const QPointF middle = place.center() + QPointF(BesideSlot, isUp ? -Raised : 0);
    if (drawing_) {
        drawing_(painter, middle, InkNow());
    } else {
        PaintText(painter, middle);
    }
}

void BenchSwitch::PaintText(QPainter& painter, const QPointF& middle) const {
    const double room = width() - TextMargin;
    const QFont font = TextFont(pixels_, QFont::DemiBold);
    if (second_.isEmpty()) {
        Write(painter,
              {text(), middle + QPointF(0, pixels_ * BelowMiddle), font, InkNow(), Anchor::Middle, room});
        return;
    }
    Write(painter, {text(), middle + QPointF(0, -2), font, InkNow(), Anchor::Middle, room});
    Write(painter, {second_, middle + QPointF(0, 13), TextFont(SecondPixels, QFont::Normal), InkNow(),
                    Anchor::Middle, room});
}

}  // namespace workbench
