#include "workbench/window/BenchIcon.h"

#include <QPainter>
#include <QPolygonF>
#include <array>
#include <cmath>

namespace workbench {

namespace {

constexpr double Grid = 24;  // side of the squares that the icons are laid down in

// Stands on the icon's own grid until it goes.
class OnGrid {
public:
    OnGrid(QPainter& painter, const QPointF& middle, double size, double degrees = 0) : painter_(painter) {
        painter_.save();
        painter_.setRenderHint(QPainter::Antialiasing);
        painter_.translate(middle);
        painter_.scale(size / Grid, size / Grid);
        painter_.rotate(degrees);
        painter_.translate(-Grid / 2, -Grid / 2);
    }
    ~OnGrid() { painter_.restore(); }
    OnGrid(const OnGrid&) = delete;
    OnGrid& operator=(const OnGrid&) = delete;

private:
    QPainter& painter_;
};

QPen RoundPen(const QColor& colour, double width) {
    return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void Stroke(QPainter& painter, const QColor& colour, double width, const QPolygonF& points) {
    painter.setPen(RoundPen(colour, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(points);
}

}  // namespace

void PaintChevron(QPainter& painter, const QPointF& middle, double size, double degrees,
                  const QColor& colour) {
    const OnGrid grid(painter, middle, size, degrees);
    Stroke(painter, colour, 2.8, {QPointF(5, 15.5), QPointF(12, 8.5), QPointF(19, 15.5)});
}

void PaintNeedle(QPainter& painter, const QPointF& middle, double size, const QColor& line,
                 const QColor& fill) {
    const OnGrid grid(painter, middle, size);
    const QPointF thick(21.5, 2.5);
    const QPointF tip(2.5, 21.5);
    const QPointF along = (tip - thick) / std::hypot(tip.x() - thick.x(), tip.y() - thick.y());
    const QPointF across(-along.y(), along.x());
    const QPointF shoulder = thick + 0.42 * (tip - thick);
    painter.setPen(RoundPen(line, 1.2));
    painter.setBrush(fill);
    painter.drawPolygon(QPolygonF({thick + across * 2.7, shoulder + across * 2.7, tip + across * 0.5,
                                   tip - across * 0.5, shoulder - across * 2.7, thick - across * 2.7}));
}

void PaintKey(QPainter& painter, const QPointF& middle, double size, const QColor& line, const QColor& fill) {
    const OnGrid grid(painter, middle, size);
    painter.setPen(RoundPen(line, 2.6));
    painter.setBrush(fill);
    painter.drawEllipse(QPointF(8, 9), 5.5, 5.5);
    Stroke(painter, line, 2.8, {QPointF(12, 13), QPointF(21, 22)});
    Stroke(painter, line, 2.8, {QPointF(17, 18), QPointF(20.5, 14.5)});
}

void PaintCross(QPainter& painter, const QPointF& middle, double size, const QColor& colour) {
    const OnGrid grid(painter, middle, size);
    Stroke(painter, colour, 2.8, {QPointF(6, 6), QPointF(18, 18)});
    Stroke(painter, colour, 2.8, {QPointF(18, 6), QPointF(6, 18)});
}

void PaintTick(QPainter& painter, const QPointF& middle, const QColor& line, const QColor& ground) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(line, 1.2));
    painter.setBrush(ground);
    painter.drawEllipse(middle, 9.5, 9.5);
    Stroke(painter, line, 2.2,
           {middle + QPointF(-4.5, 0.5), middle + QPointF(-1.3, 3.9), middle + QPointF(4.7, -3.1)});
}

}  // namespace workbench
