#include "controls/NumberLabel.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

#include "controls/Palette.h"

namespace travo {

namespace {
// In design pixels.
constexpr double FromEdge = 5;
constexpr double Radius = 3;
}  // namespace

NumberLabel::NumberLabel(QWidget* parent, double pixels, QFont::Weight weight, Ground ground)
    : QLabel(parent), pixels_(pixels), weight_(weight), ground_(ground), colour_(palette::Ink) {
    setTextFormat(Qt::PlainText);
}

void NumberLabel::setText(const QString& text) {
    QLabel::setText(text);
    setAccessibleName(text);
}

void NumberLabel::Colour(const QColor& colour) {
    colour_ = colour;
    update();
}

QFont NumberLabel::PaintedFont() const {
    const double sides = ground_ == Ground::Framed ? 2 * FromEdge * Scale() : 0;
    return Fitted(TextFont(pixels_ * Scale(), weight_), text(), width() - sides);
}

void NumberLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    double right = width();
    if (ground_ == Ground::Framed) {
        painter.setPen(QPen(isEnabled() ? palette::Hair : palette::OffEdge, 1));
        painter.setBrush(isEnabled() ? palette::Read : palette::OffFace);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Radius * Scale(),
                                Radius * Scale());
        right -= FromEdge * Scale();
    }
    const bool isOff = !isEnabled() || text() == QLatin1String("N/A");
    const QFont font = PaintedFont();
    const QFontMetricsF measures(font);
    painter.setFont(font);
    painter.setPen(isOff ? palette::Off : colour_);
    painter.drawText(QPointF(right - measures.horizontalAdvance(text()),
                             std::round((height() + measures.capHeight()) / 2)),
                     text());
}

}  // namespace travo
