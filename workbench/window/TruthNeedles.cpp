// The needles on the plan: shafts, the places that they go to, tips.
#include <algorithm>
#include <array>
#include <cmath>

#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchText.h"
#include "workbench/window/BenchType.h"
#include "workbench/window/PlanHits.h"
#include "workbench/window/PlanPen.h"
#include "workbench/window/TruthPicture.h"

namespace workbench {

namespace {

constexpr double PenRoom = 4;            // of a line's width, beyond the plan's edge
constexpr double LongestShaft = 3000.0;  // pixels: painters lose count beyond 32767
constexpr double TaperLength = 420.0;    // common units
constexpr double LeastHalfWidth = 2.2;   // pixels, at the thick end
constexpr double LeastHalfTip = 0.6;
constexpr double TagBack = 30.0;
constexpr double TagBackAtLanding = 64.0;
constexpr double BodyShare = 0.22;

// One needle with its directions in pixels, as its parts are drawn.
struct Drawn {
    const SceneNeedle& needle;
    int number;
    bool picked;
    QColor colour;
    QPointF tip;    // pixels
    QPointF along;  // length 1, as X counts run
    QPointF Across() const { return {along.y(), -along.x()}; }
};

Drawn DrawnOf(const TruthPicture& picture, int number) {
    const SceneNeedle& needle = picture.needles[static_cast<std::size_t>(number - 1)];
    return {needle,
            number,
            number == picture.picked,
            needle.connected ? palette::NeedleColour(number) : palette::NightDim,
            picture.plan.Pixel(needle.tip.Plan()),
            DirectionOf(needle, number)};
}

// The picked needle last, over the others.
template <typename Paint>
void EachNeedle(const TruthPicture& picture, const Paint& paint) {
    for (int number = 1; number <= static_cast<int>(picture.needles.size()); ++number) {
        if (number != picture.picked) {
            paint(DrawnOf(picture, number));
        }
    }
    paint(DrawnOf(picture, picture.picked));
}

// What would lie beyond the reach of painters, as a needle seen from afar at a large scale, is left out.
bool IsNear(const TruthPicture& picture, const QPointF& pixel) {
    constexpr double reach = 8000.0;
    return QRectF({0.0, 0.0}, picture.plan.size).adjusted(-reach, -reach, reach, reach).contains(pixel);
}

double HalfPixels(double back, double scale) {
    const double units = back / scale;
    const double share = std::min(units / TaperLength, 1.0);
    const double least = LeastHalfTip + (LeastHalfWidth - LeastHalfTip) * share;
    return std::max(HalfWidthOf(units) * scale, least);
}

// The stretch of a shaft that comes near the plan, as distances back from the tip in pixels; empty where
// begin is not below end.
struct Stretch {
    double begin = 0.0;
    double end = 0.0;
};
Stretch StretchOf(const TruthPicture& picture, const Drawn& drawn) {
    const double length = PlanDistance(drawn.needle.tip.Plan(), drawn.needle.rear) * picture.plan.scale;
    const QPointF middle(picture.plan.size.width() / 2.0, picture.plan.size.height() / 2.0);
    const double beside = QPointF::dotProduct(drawn.tip - middle, drawn.along);
    // What lies outside of the plan costs as much to paint as what lies inside.
    const double reach =
        std::hypot(middle.x(), middle.y()) + HalfPixels(length, picture.plan.scale) + PenRoom;
    const double half = std::min(LongestShaft / 2.0, reach);
    return {std::max(0.0, beside - half), std::min(length, std::max(0.0, beside + half))};
}

QPolygonF BodyOf(const Drawn& drawn, const Stretch& stretch, double scale) {
    const double taper = std::clamp(TaperLength * scale, stretch.begin, stretch.end);
    const std::array<double, 3> places = {stretch.begin, taper, stretch.end};
    QPolygonF body;
    for (const double back : places) {
        body += drawn.tip - drawn.along * back + drawn.Across() * HalfPixels(back, scale);
    }
    for (auto back = places.rbegin(); back != places.rend(); ++back) {
        body += drawn.tip - drawn.along * *back - drawn.Across() * HalfPixels(*back, scale);
    }
    return body;
}

void PaintShaft(QPainter& painter, const TruthPicture& picture, const Drawn& drawn) {
    const Stretch stretch = StretchOf(picture, drawn);
    const QPointF begin = drawn.tip - drawn.along * stretch.begin;
    if (stretch.begin >= stretch.end || !IsNear(picture, begin)) {
        return;
    }
    QColor body = drawn.colour;
    body.setAlphaF(static_cast<float>(BodyShare));
    painter.setPen(Qt::NoPen);
    painter.setBrush(body);
    painter.drawPolygon(BodyOf(drawn, stretch, picture.plan.scale));
    QPen line(drawn.colour, 1.6, Qt::SolidLine, Qt::RoundCap);
    if (!drawn.needle.connected) {
        line.setDashPattern({5.0 / 1.6, 5.0 / 1.6});
        line.setCapStyle(Qt::FlatCap);
    }
    painter.setPen(line);
    painter.drawLine(begin, drawn.tip - drawn.along * stretch.end);
}

void PaintTarget(QPainter& painter, const TruthPicture& picture, const Drawn& drawn) {
    if (drawn.needle.tip == drawn.needle.rest) {
        return;
    }
    const QPointF goal = picture.plan.Pixel(drawn.needle.rest.Plan());
    if (IsNear(picture, drawn.tip) && IsNear(picture, goal)) {
        QPen dashes(drawn.colour, 1.6, Qt::CustomDashLine, Qt::FlatCap);
        dashes.setDashPattern({3.0 / 1.6, 5.0 / 1.6});
        painter.setPen(dashes);
        painter.drawLine(drawn.tip, goal);
        painter.setPen(QPen(drawn.colour, 2.0, Qt::SolidLine, Qt::RoundCap));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(goal, 13.0, 13.0);
        for (const QPointF& way : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)}) {
            painter.drawLine(goal + way * 10.0, goal + way * 19.0);
        }
    }
    const QString left = NumberText(SecondsToGo(drawn.needle, drawn.number)) + QStringLiteral(" s");
    DrawText(painter, left, drawn.tip - drawn.along * TagBack - QPointF(0.0, 15.0),
             TextFont(type::Fine, QFont::DemiBold), drawn.colour, Anchor::Middle);
}

void PaintArrow(QPainter& painter, const QPointF& tip, const QPointF& way, double length,
                const QString& name) {
    const QPointF end = tip + way * length;
    const QPointF aside(-way.y() * 3.6, way.x() * 3.6);
    painter.setPen(QPen(palette::NightInk, 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(tip + way * 13.0, end);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::NightInk);
    painter.drawPolygon(QPolygonF({end + way * 5.0, end + aside, end - aside}));
    DrawText(painter, name, end + way * 15.0 + QPointF(0.0, 4.0), TextFont(type::Least, QFont::DemiBold),
             palette::NightInk, Anchor::Middle);
}

void PaintTip(QPainter& painter, const TruthPicture& picture, const Drawn& drawn) {
    if (!IsNear(picture, drawn.tip)) {
        return;
    }
    const bool landed = picture.landing.has_value();
    if (drawn.picked && !landed) {
        painter.setPen(QPen(palette::NightInk, 2.0));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(drawn.tip, 10.0, 10.0);
        PaintArrow(painter, drawn.tip, drawn.along, 42.0, QStringLiteral("X+"));
        PaintArrow(painter, drawn.tip, drawn.Across(), 34.0, QStringLiteral("Y+"));
    }
    painter.setPen(QPen(palette::Night, 1.4));
    painter.setBrush(drawn.colour);
    painter.drawEllipse(drawn.tip, 4.6, 4.6);
    const QPointF tag = drawn.tip - drawn.along * (landed ? TagBackAtLanding : TagBack);
    painter.drawRoundedRect(QRectF(tag - QPointF(10.0, 10.0), QSizeF(20.0, 20.0)), 5.0, 5.0);
    DrawText(painter, QString::number(drawn.number), tag + QPointF(0.0, 5.0),
             TextFont(type::Number, QFont::Bold), palette::Night, Anchor::Middle);
}

}  // namespace

void PaintShafts(QPainter& painter, const TruthPicture& picture) {
    EachNeedle(picture, [&](const Drawn& drawn) { PaintShaft(painter, picture, drawn); });
}

void PaintTargets(QPainter& painter, const TruthPicture& picture) {
    EachNeedle(picture, [&](const Drawn& drawn) { PaintTarget(painter, picture, drawn); });
}

void PaintTips(QPainter& painter, const TruthPicture& picture) {
    EachNeedle(picture, [&](const Drawn& drawn) { PaintTip(painter, picture, drawn); });
}

}  // namespace workbench
