// The ground of the plan: its grid, the reach of the view, the origin, and which way the axes count.
#include <cmath>

#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/PlanMirror.h"
#include "workbench/window/PlanPen.h"
#include "workbench/window/TruthPicture.h"

namespace workbench {

namespace {

constexpr int StrongLine = 5;  // each fifth

// Lines across one axis from `low` to `high`, in units; `line` draws one.
template <typename Line>
void EachLine(double low, double high, double step, const Line& line) {
    for (auto number = static_cast<long>(std::ceil(low / step)); static_cast<double>(number) * step <= high;
         ++number) {
        line(static_cast<double>(number) * step, number % StrongLine == 0 ? palette::Grid2 : palette::Grid);
    }
}

QRectF ReachOnPlan(const PlanScale& plan) {
    const QPointF reach = MirrorReach();
    return {plan.Pixel(-reach), plan.Pixel(reach)};
}

void Arrow(QPainter& painter, const QPolygonF& line, const QPolygonF& head) {
    painter.setPen(QPen(palette::NightText, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(line);
    painter.drawPolyline(head);
}

}  // namespace

void PaintGrid(QPainter& painter, const TruthPicture& picture) {
    const QRectF area({0.0, 0.0}, picture.plan.size);
    painter.fillRect(area, palette::Night);
    const QRectF visible = picture.plan.Sight().visible;
    const double step = GridStep(picture.plan.scale);
    EachLine(visible.left(), visible.right(), step, [&](double unit, const QColor& colour) {
        const double x = Sharp(picture.plan.Pixel({unit, 0.0}).x());
        painter.fillRect(QRectF(x - 0.5, 0.0, 1.0, area.height()), colour);
    });
    EachLine(visible.top(), visible.bottom(), step, [&](double unit, const QColor& colour) {
        const double y = Sharp(picture.plan.Pixel({0.0, unit}).y());
        painter.fillRect(QRectF(0.0, y - 0.5, area.width(), 1.0), colour);
    });
}

void PaintReach(QPainter& painter, const TruthPicture& picture) {
    constexpr double arm = 7.0;
    constexpr double aboveCorner = 14.0;
    constexpr double far = 12000.0;
    const QRectF area({0.0, 0.0}, picture.plan.size);
    const QRectF reach = ReachOnPlan(picture.plan);
    QPen dashes(palette::NightHair, 1.4, Qt::CustomDashLine, Qt::FlatCap, Qt::MiterJoin);
    dashes.setDashPattern({7.0 / 1.4, 5.0 / 1.4});
    painter.setPen(dashes);
    painter.setBrush(Qt::NoBrush);
    // Far beyond the plan there is nothing to see, and painters lose count there.
    painter.drawRect(reach.intersected(area.adjusted(-far, -far, far, far)));
    if (reach.left() > 0.0 && reach.left() < area.right() && reach.top() > aboveCorner) {
        DrawText(painter, QStringLiteral("reach of the view"), reach.topLeft() + QPointF(4.0, -5.0),
                 TextFont(type::Least, QFont::Normal), palette::NightDim);
    }
    const QPointF origin = picture.plan.Pixel({0.0, 0.0});
    if (area.adjusted(-arm, -arm, arm, arm).contains(origin)) {
        painter.setPen(FlatPen(palette::NightDim, 1.4));
        painter.drawLine(origin - QPointF(arm, 0.0), origin + QPointF(arm, 0.0));
        painter.drawLine(origin - QPointF(0.0, arm), origin + QPointF(0.0, arm));
    }
}

void PaintAxes(QPainter& painter, const TruthPicture& picture) {
    const double width = picture.plan.size.width();
    const double height = picture.plan.size.height();
    const double x = width - 8.0;
    const double y = height - 8.0;
    const QFont font = TextFont(type::Small, QFont::DemiBold);
    Arrow(painter, {{QPointF(width - 26.0, height / 2.0), QPointF(x, height / 2.0)}},
          {{QPointF(x - 6.0, height / 2.0 - 4.0), QPointF(x, height / 2.0),
            QPointF(x - 6.0, height / 2.0 + 4.0)}});
    DrawText(painter, QStringLiteral("X"), {width - 38.0, height / 2.0 + 4.5}, font, palette::NightText);
    Arrow(painter, {{QPointF(width / 2.0, height - 26.0), QPointF(width / 2.0, y)}},
          {{QPointF(width / 2.0 - 4.0, y - 6.0), QPointF(width / 2.0, y),
            QPointF(width / 2.0 + 4.0, y - 6.0)}});
    DrawText(painter, QStringLiteral("Y"), {width / 2.0, height - 31.0}, font, palette::NightText,
             Anchor::Middle);
}

}  // namespace workbench
