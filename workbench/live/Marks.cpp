#include "workbench/live/Marks.h"

#include <QFont>
#include <QLineF>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

namespace workbench::live {

namespace {

constexpr double ApexAbove = 60.0;
constexpr double CornerAside = 80.0;
constexpr double CornerBelow = 60.0;

constexpr double RingRadius = 9.0;  // pixels
constexpr double CrossReach = 16.0;
constexpr double EdgeDistance = 24.0;

const QColor Light(255, 153, 134);
const QColor Dark(24, 39, 51, 210);

QFont Lettering(int pixels) {
    QFont font(QStringList{QStringLiteral("Open Sans"), QStringLiteral("Noto Sans"),
                           QStringLiteral("DejaVu Sans"), QStringLiteral("sans-serif")},
               -1, QFont::Bold);
    font.setPixelSize(pixels);
    return font;
}

// Dark beneath and light above: seen on every ground.
template <typename Stroke>
void StrokeTwice(QPainter& painter, double width, Stroke stroke) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Dark, width + 2.5, Qt::SolidLine, Qt::RoundCap));
    stroke();
    painter.setPen(QPen(Light, width, Qt::SolidLine, Qt::RoundCap));
    stroke();
}

// Left, centre or right of the text, half way up, stands at the place.
void PaintText(QPainter& painter, const QPointF& place, Qt::Alignment alignment, const QString& text) {
    const double width = 240.0;
    const double left = alignment.testFlag(Qt::AlignLeft)    ? 0.0
                        : alignment.testFlag(Qt::AlignRight) ? width
                                                             : width / 2.0;
    const QRectF box(place.x() - left, place.y() - 12.0, width, 24.0);
    alignment |= Qt::AlignVCenter;
    painter.setPen(Dark);
    for (const QPointF& shift :
         {QPointF(1.2, 0.0), QPointF(-1.2, 0.0), QPointF(0.0, 1.2), QPointF(0.0, -1.2)}) {
        painter.drawText(box.translated(shift), static_cast<int>(alignment), text);
    }
    painter.setPen(Light);
    painter.drawText(box, static_cast<int>(alignment), text);
}

void PaintMark(QPainter& painter, const QString& name, const QPointF& place) {
    StrokeTwice(painter, 1.6, [&] {
        painter.drawEllipse(place, RingRadius, RingRadius);
        for (const QPointF& direction : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
            painter.drawLine(QLineF(place + direction * 3.5, place + direction * CrossReach));
        }
    });
    PaintText(painter, place + QPointF(RingRadius + 5.0, -RingRadius - 8.0), Qt::AlignLeft, name);
}

// At the edge, in the direction in which the mark lies.
void PaintMarkOutside(QPainter& painter, const QString& name, const QPointF& place, const QRectF& inner) {
    const QPointF at(std::clamp(place.x(), inner.left(), inner.right()),
                     std::clamp(place.y(), inner.top(), inner.bottom()));
    QLineF arrow(at, place);
    arrow.setLength(14.0);
    StrokeTwice(painter, 2.0, [&] { painter.drawLine(arrow); });
    PaintText(painter, at - QPointF(arrow.dx(), arrow.dy()) * 0.6, Qt::AlignHCenter, name);
}

double RoundLength(double longest) {
    const double power = std::pow(10.0, std::floor(std::log10(longest)));
    for (const double step : {5.0, 2.0}) {
        if (step * power <= longest) {
            return step * power;
        }
    }
    return power;
}

}  // namespace

std::vector<Mark> MarksOf(Overlay overlay) {
    switch (overlay) {
        case Overlay::Points:
            return {{QStringLiteral("A"), {0.0, -ApexAbove}},
                    {QStringLiteral("B"), {-CornerAside, CornerBelow}},
                    {QStringLiteral("C"), {CornerAside, CornerBelow}}};
        case Overlay::Z:
            return {{QStringLiteral("Z"), {0.0, -ApexAbove}}};
        case Overlay::Center:
            return {{QStringLiteral("Center"), {0.0, 0.0}}};
        case Overlay::None:
            break;
    }
    return {};
}

void PaintMarks(QPainter& painter, Overlay overlay, const QSizeF& field, const QRectF& rectangle) {
    painter.save();
    painter.setClipRect(rectangle);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(Lettering(17));
    const View view({0.0, 0.0}, field, rectangle.size());
    const QRectF inner = rectangle.adjusted(EdgeDistance, EdgeDistance, -EdgeDistance, -EdgeDistance);
    QPolygonF corners;
    for (const Mark& mark : MarksOf(overlay)) {
        corners << view.Pixel(mark.offset) + rectangle.topLeft();
    }
    if (corners.size() > 1) {
        painter.setPen(QPen(QColor(24, 39, 51, 120), 1.0, Qt::DashLine));
        painter.drawPolygon(corners);
    }
    qsizetype index = 0;
    for (const Mark& mark : MarksOf(overlay)) {
        const QPointF place = corners.at(index++);
        if (rectangle.contains(place)) {
            PaintMark(painter, mark.name, place);
        } else {
            PaintMarkOutside(painter, mark.name, place, inner);
        }
    }
    painter.restore();
}

void PaintScaleBar(QPainter& painter, const QSizeF& field, const QRectF& rectangle) {
    painter.save();
    const double scale = rectangle.width() / field.width();
    const double length = RoundLength(field.width() / 5.0);
    const QPointF begin = rectangle.topLeft() + QPointF(16.0, 34.0);
    const QLineF bar(begin, begin + QPointF(length * scale, 0.0));
    StrokeTwice(painter, 3.0, [&] { painter.drawLine(bar); });
    painter.setFont(Lettering(13));
    PaintText(painter, bar.center() - QPointF(0.0, 13.0), Qt::AlignHCenter, QString::number(length));
    painter.restore();
}

}  // namespace workbench::live
