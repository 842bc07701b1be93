#include "controls/NumberLabel.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

#include "controls/Palette.h"
#include "platform/ShownText.h"

namespace travo {

namespace {
// In design pixels.
constexpr double FromEdge = 5;
constexpr double Radius = 3;

constexpr qsizetype MostCharacters = 200;
}  // namespace

NumberLabel::NumberLabel(QWidget* parent) : QLabel(parent), colour_(palette::Ink) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void NumberLabel::Face(double pixels, QFont::Weight weight, Ground ground) {
    pixels_ = pixels;
    weight_ = weight;
    ground_ = ground;
    update();
}

void NumberLabel::setText(const QString& text) {
    const QString shown = platform::ShownText(text, MostCharacters);
    QLabel::setText(shown);
    setAccessibleName(shown);
}

void NumberLabel::Colour(const QColor& colour) {
    colour_ = colour;
    update();
}

double NumberLabel::SideRoom() const { return ground_ == Ground::Framed ? FromEdge * Scale() : 0; }

QFont NumberLabel::PaintedFont() const {
    return Fitted(TextFont(pixels_ * TextScaleAt(size()), weight_), text(), width() - 2 * SideRoom());
}

void NumberLabel::PaintGround(QPainter& painter) const {
    painter.setPen(QPen(isEnabled() ? palette::Hair : palette::OffEdge, 1));
    painter.setBrush(isEnabled() ? palette::Read : palette::OffFace);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Radius * Scale(),
                            Radius * Scale());
}

void NumberLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (ground_ == Ground::Framed) {
        PaintGround(painter);
    }
    const QFont font = PaintedFont();
    const QFontMetricsF measures(font);
    const double spare = width() - 2 * SideRoom() - measures.horizontalAdvance(text());
    const double before = (alignment() & Qt::AlignRight) != 0     ? spare
                          : (alignment() & Qt::AlignHCenter) != 0 ? spare / 2
                                                                  : 0;
    const bool isOff = !isEnabled() || text() == QLatin1String("N/A");
    painter.setFont(font);
    painter.setPen(isOff ? palette::Off : colour_);
    painter.drawText(QPointF(SideRoom() + before, std::round((height() + measures.capHeight()) / 2)), text());
}

}  // namespace travo
