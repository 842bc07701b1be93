#include "workbench/window/TruthPicture.h"

#include <algorithm>

#include "workbench/window/BenchPalette.h"
#include "workbench/window/PlanHits.h"
#include "workbench/window/PlanPen.h"

namespace workbench {

namespace {
constexpr double FocusLine = 2.0;
}  // namespace

TruthPicture PictureOf(const Scene& scene, const PlanScale& plan, const PlanLesson& lesson, bool hasFocus) {
    TruthPicture picture;
    picture.plan = plan;
    picture.needles = scene.needles;
    picture.picked = scene.picked;
    picture.cells = scene.cells;
    picture.view = scene.view;
    picture.field = scene.field;
    picture.magnification = scene.magnification;
    picture.marks = MarksShown(scene, lesson.asksForMarks);
    picture.touched = lesson.touched;
    const auto shown = std::min<std::ptrdiff_t>(CrossingsShown, std::ssize(scene.crossings));
    picture.crossings.assign(scene.crossings.end() - shown, scene.crossings.end());
    picture.beganAt = scene.beganAt;
    if (LandingStands(scene)) {
        picture.landing = scene.landing;
    }
    picture.hasFocus = hasFocus;
    return picture;
}

void PaintTruth(QPainter& painter, const TruthPicture& picture) {
    painter.setRenderHint(QPainter::Antialiasing);
    PaintGrid(painter, picture);
    PaintReach(painter, picture);
    PaintCells(painter, picture);
    PaintMarks(painter, picture);
    PaintView(painter, picture);
    PaintShafts(painter, picture);
    PaintTargets(painter, picture);
    PaintCrossings(painter, picture);
    PaintLanding(painter, picture);
    PaintTips(painter, picture);
    PaintAxes(painter, picture);
    if (picture.hasFocus) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(FlatPen(palette::NightInk, FocusLine));
        const double half = FocusLine / 2.0;
        painter.drawRect(QRectF(QPointF(), picture.plan.size).adjusted(half, half, -half, -half));
    }
}

}  // namespace workbench
