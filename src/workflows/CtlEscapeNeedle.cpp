#include "workflows/CtlEscapeNeedle.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <array>

#include "controls/Palette.h"
#include "controls/Type.h"

namespace travo {

namespace {

// The outline of the needle icon on its grid of 24, tip at the lower left.
constexpr std::array<QPointF, 6> Outline{
    {{19.59, 0.59}, {11.61, 8.57}, {2.15, 21.15}, {2.85, 21.85}, {15.43, 12.39}, {23.41, 4.41}}};
constexpr double IconSide = 24;
constexpr double LineWidth = 1.2;
// In design pixels.
constexpr double Gap = 6;
constexpr double DigitSize = 26;

}  // namespace

CtlEscapeNeedle::CtlEscapeNeedle(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CtlEscapeNeedle::Number(int number) {
    number_ = number;
    update();
}

void CtlEscapeNeedle::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        update();
    }
    QWidget::changeEvent(event);
}

void CtlEscapeNeedle::paintEvent(QPaintEvent*) {
    const double scale = ScaleAt(QSizeF(size()));
    const QColor line = isEnabled() ? palette::Ink : palette::Off;
    const QString digit = QString::number(number_);
    const QFont font = TextFont(DigitSize * scale, QFont::Bold);
    const QFontMetricsF measures(font);
    const double left = (width() - (IconSide + Gap) * scale - measures.horizontalAdvance(digit)) / 2;

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font);
    painter.setPen(line);
    painter.drawText(QPointF(left + (IconSide + Gap) * scale, (height() + measures.capHeight()) / 2), digit);

    painter.translate(left, (height() - IconSide * scale) / 2);
    painter.scale(scale, scale);
    painter.setPen(QPen(line, LineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(isEnabled() ? palette::Needle : palette::Well);
    painter.drawPolygon(Outline.data(), static_cast<int>(Outline.size()));
}

}  // namespace travo
