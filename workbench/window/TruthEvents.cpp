// What happened, on the plan: crossings, and how well the last landing went.
#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchText.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/Landing.h"
#include "workbench/window/PlanPen.h"
#include "workbench/window/TruthPicture.h"

namespace workbench {

namespace {

bool IsInSight(const TruthPicture& picture, const QPointF& pixel) {
    constexpr double around = 400.0;
    return QRectF({0.0, 0.0}, picture.plan.size).adjusted(-around, -around, around, around).contains(pixel);
}

// A label 24 high with its text 8 from the left; `corner` is its upper left one.
void PaintLabel(QPainter& painter, const QPointF& corner, const QString& text, const QColor& ground,
                const QColor& ink) {
    const QFont font = TextFont(type::Small, QFont::DemiBold);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(corner, QSizeF(WidthOf(font, text) + 16.0, 24.0)), 4.0, 4.0);
    DrawText(painter, text, corner + QPointF(8.0, 16.5), font, ink);
}

void PaintCrossing(QPainter& painter, const TruthPicture& picture, const SceneCrossing& crossing) {
    const QPointF at = picture.plan.Pixel(crossing.place);
    if (!IsInSight(picture, at)) {
        return;
    }
    painter.setPen(QPen(palette::Alarm, 2.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(at, 15.0, 15.0);
    painter.setPen(QPen(palette::Alarm, 3.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(at - QPointF(7.0, 7.0), at + QPointF(7.0, 7.0));
    painter.drawLine(at + QPointF(-7.0, 7.0), at + QPointF(7.0, -7.0));
    const QString text = QStringLiteral("%1 × %2   %3")
                             .arg(crossing.needleA)
                             .arg(crossing.needleB)
                             .arg(ClockText(picture.beganAt, crossing.time));
    PaintLabel(painter, at + QPointF(20.0, -12.0), text, palette::Fault, palette::OnFault);
}

}  // namespace

void PaintCrossings(QPainter& painter, const TruthPicture& picture) {
    for (const SceneCrossing& crossing : picture.crossings) {
        PaintCrossing(painter, picture, crossing);
    }
}

void PaintLanding(QPainter& painter, const TruthPicture& picture) {
    constexpr double arm = 26.0;
    if (!picture.landing.has_value()) {
        return;
    }
    const SceneLanding& landing = *picture.landing;
    const QPointF centre = picture.plan.Pixel(landing.centre);
    const SceneNeedle& needle = picture.needles[static_cast<std::size_t>(landing.needle - 1)];
    const QPointF tip = picture.plan.Pixel(needle.tip.Plan());
    if (!IsInSight(picture, centre)) {
        return;
    }
    painter.setPen(FlatPen(palette::NightInk, 1.2));
    painter.drawLine(centre - QPointF(arm, 0.0), centre + QPointF(arm, 0.0));
    painter.drawLine(centre - QPointF(0.0, arm), centre + QPointF(0.0, arm));
    painter.setPen(QPen(palette::SimLit, 3.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(centre, tip);
    painter.setPen(QPen(palette::SimTag, 1.4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(tip + QPointF(5.0, 5.0), tip + QPointF(35.0, 35.0));
    PaintLabel(painter, tip + QPointF(34.0, 28.0), LandingOnPlan(landing), palette::SimTag, palette::SimInk);
}

}  // namespace workbench
