#include "workbench/window/FaultChip.h"

#include <QLinearGradient>
#include <QPainter>

#include "workbench/window/BenchFace.h"
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {

constexpr double TextLeft = 15;
constexpr double TextRight = 4;
constexpr double BelowMiddle = 0.357;  // of the em, from a line's middle to its baseline
constexpr double Radius = 4;
constexpr double SlotWidth = 4;
constexpr double SlotMargin = 5;  // from the chip's upper and lower edge

void PaintOn(QPainter& painter, const QRectF& place) {
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient fill(place.topLeft(), place.bottomLeft());
    fill.setColorAt(0, palette::FaultHigh);
    fill.setColorAt(1, palette::Fault);
    painter.setPen(palette::FaultEdge);
    painter.setBrush(fill);
    painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
}

}  // namespace

FaultChip::FaultChip(const ControlName& name, const QString& text, bool lasts, QWidget* parent)
    : BenchButton(name, text, parent), lasts_(lasts) {
    setCheckable(lasts);
    dark_.setSingleShot(true);
    QObject::connect(&dark_, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

void FaultChip::TextPixels(double pixels) {
    pixels_ = pixels;
    update();
}

void FaultChip::ShowOn(bool on, const QString& left) {
    const QString newLeft = on ? left : QString();
    if (isChecked() == on && left_ == newLeft) {
        return;
    }
    left_ = newLeft;
    setAccessibleDescription(newLeft);
    setChecked(on);
    update();
}

QString FaultChip::Shown() const { return left_.isEmpty() ? text() : text() + QLatin1Char(' ') + left_; }

void FaultChip::Flash() {
    dark_.start(PushDark);
    update();
}

void FaultChip::PaintButton(QPainter& painter) {
    const QRectF place(rect());
    const bool isUp = isEnabled() && !isDown() && !dark_.isActive() && !IsDark();
    if (IsDark() && isEnabled()) {
        PaintOn(painter, place);
    } else {
        PaintFace(painter, place, !isEnabled() ? Face::Off : isUp ? Face::Up : Face::Down);
    }
    const double up = isUp ? 1 : 0;
    const QRectF mark(5.5, SlotMargin, SlotWidth, place.height() - 2 * SlotMargin - up);
    if (lasts_) {
        painter.setPen(IsDark() ? QColor(Qt::white) : isEnabled() ? palette::SlotUpEdge : palette::OffEdge);
        painter.setBrush(IsDark() ? palette::FaultSlot : isEnabled() ? palette::SlotUp : palette::OffFace);
        painter.drawRoundedRect(mark, SlotWidth / 2, SlotWidth / 2);
    } else {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isEnabled() ? palette::Ink2 : palette::Off);
        painter.drawEllipse(QPointF(8, place.height() / 2 - up), 2.3, 2.3);
    }
    const QColor ink = IsDark() ? palette::OnFault : isEnabled() ? palette::Ink : palette::Off;
    Write(painter, {Shown(),
                    {TextLeft, place.height() / 2 - up + pixels_ * BelowMiddle},
                    TextFont(pixels_, IsDark() ? QFont::Bold : QFont::DemiBold),
                    ink,
                    Anchor::Start,
                    place.width() - TextLeft - TextRight});
}

}  // namespace workbench
