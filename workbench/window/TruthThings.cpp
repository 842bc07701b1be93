// What lies in the dish, the calibration marks, and the field of view over it.
#include <QPainterPath>
#include <algorithm>
#include <array>

#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/PlanPen.h"
#include "workbench/window/TruthPicture.h"
#include "workbench/window/WireWords.h"

namespace workbench {

namespace {

constexpr double NamesFrom = 0.2;  // pixels a unit
constexpr double LeastCell = 4.0;  // pixels, as all that follow

// A disc or frame of any size within painters' reach: beyond it only what lies near the plan matters.
bool IsInSight(const TruthPicture& picture, const QPointF& pixel, double around) {
    return QRectF({0.0, 0.0}, picture.plan.size).adjusted(-around, -around, around, around).contains(pixel);
}

void PaintCell(QPainter& painter, const TruthPicture& picture, const SceneCell& cell, int number) {
    constexpr double nucleusFrom = 8.0;
    constexpr double nucleusTo = 60.0;
    const QPointF at = picture.plan.Pixel(cell.centre.Plan());
    const double radius = std::max(cell.radius * picture.plan.scale, LeastCell);
    if (!IsInSight(picture, at, radius + 60.0)) {
        return;
    }
    painter.setPen(QPen(palette::Cell, 1.6));
    painter.setBrush(palette::CellFill);
    painter.drawEllipse(at, radius, radius);
    if (radius > nucleusFrom && radius < nucleusTo) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette::Cell);
        painter.drawEllipse(at + QPointF(radius * 0.18, radius * 0.12), radius * 0.3, radius * 0.3);
    }
    if (picture.plan.scale >= NamesFrom) {
        const QPointF beside(std::max(radius * 0.72 + 4.0, 12.0), std::max(radius * 0.72, 8.0) + 12.0);
        DrawText(painter, QStringLiteral("cell %1").arg(number), at + beside,
                 TextFont(type::Fine, QFont::DemiBold), palette::Cell);
    }
}

void PaintMark(QPainter& painter, const QPointF& at, bool touched, QChar letter, const QPointF& beside) {
    constexpr double ring = 6.5;
    constexpr double arm = 10.0;
    painter.setPen(QPen(palette::SimLit, 1.6));
    painter.setBrush(touched ? palette::SimLit : palette::Night);
    painter.drawEllipse(at, ring, ring);
    painter.setPen(FlatPen(palette::SimLit, 1.4));
    painter.drawLine(at - QPointF(arm, 0.0), at + QPointF(arm, 0.0));
    painter.drawLine(at - QPointF(0.0, arm), at + QPointF(0.0, arm));
    if (touched) {
        // The cross is seen on the filled ring as well.
        const double inside = ring - 0.8;
        painter.setPen(FlatPen(palette::SimInk, 1.4));
        painter.drawLine(at - QPointF(inside, 0.0), at + QPointF(inside, 0.0));
        painter.drawLine(at - QPointF(0.0, inside), at + QPointF(0.0, inside));
    }
    DrawText(painter, letter, at + beside, TextFont(type::Number, QFont::Bold), palette::SimLit,
             Anchor::Middle);
}

QPainterPath Corners(const QRectF& frame) {
    const double arm = std::min({14.0, frame.width() / 3.0, frame.height() / 3.0});
    QPainterPath corners;
    for (const double x : {frame.left(), frame.right()}) {
        for (const double y : {frame.top(), frame.bottom()}) {
            corners.moveTo(x, y + (y == frame.top() ? arm : -arm));
            corners.lineTo(x, y);
            corners.lineTo(x + (x == frame.left() ? arm : -arm), y);
        }
    }
    return corners;
}

}  // namespace

void PaintCells(QPainter& painter, const TruthPicture& picture) {
    int number = 0;
    for (const SceneCell& cell : picture.cells) {
        PaintCell(painter, picture, cell, ++number);
    }
}

void PaintMarks(QPainter& painter, const TruthPicture& picture) {
    static const std::array<QPointF, MarkCount> letters = {QPointF(0.0, -14.0), QPointF(-20.0, 5.0),
                                                           QPointF(20.0, 5.0)};
    constexpr double reach = 8000.0;
    if (!picture.marks || !IsInSight(picture, picture.plan.Pixel(picture.view), reach)) {
        return;
    }
    QPolygonF triangle;
    for (const QPointF& offset : MarkOffsets()) {
        triangle += picture.plan.Pixel(picture.view + offset);
    }
    QPen dots(palette::SimLit, 1.0, Qt::CustomDashLine, Qt::FlatCap);
    dots.setDashPattern({2.0, 4.0});
    painter.setPen(dots);
    painter.setBrush(Qt::NoBrush);
    painter.drawPolygon(triangle);
    for (int mark = 0; mark < MarkCount; ++mark) {
        const auto index = static_cast<std::size_t>(mark);
        PaintMark(painter, triangle[mark], picture.touched[index], QChar(u'A' + mark), letters[index]);
    }
}

void PaintView(QPainter& painter, const TruthPicture& picture) {
    constexpr double nameFrom = 60.0;
    constexpr double margin = 120.0;  // what is cut off lies well outside of the plan
    if (picture.field.isEmpty()) {
        return;
    }
    QRectF frame({0.0, 0.0}, picture.field * picture.plan.scale);
    frame.moveCenter(picture.plan.Pixel(picture.view));
    const QRectF area = QRectF({0.0, 0.0}, picture.plan.size).adjusted(-margin, -margin, margin, margin);
    QColor fill = palette::View;
    fill.setAlphaF(0.05F);
    const QRectF drawn = frame.intersected(area);
    if (drawn.isEmpty()) {
        return;
    }
    painter.fillRect(drawn, fill);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(FlatPen(palette::View, 1.2));
    painter.drawRect(drawn);
    painter.setPen(FlatPen(palette::View, 3.4));
    painter.drawPath(Corners(drawn));
    if (frame.width() >= nameFrom && area.contains(frame.topLeft())) {
        DrawText(painter, QStringLiteral("view ") + ObjectiveText(picture.magnification),
                 frame.topLeft() - QPointF(0.0, 6.0), TextFont(type::Fine, QFont::DemiBold), palette::View);
    }
}

}  // namespace workbench
