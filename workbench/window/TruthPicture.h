// All that the plan shows, as one value: a new picture is painted only where it differs from the one before.
#pragma once

#include <QPainter>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "workbench/window/Lesson.h"
#include "workbench/window/PlanScale.h"
#include "workbench/window/Scene.h"

namespace workbench {

struct TruthPicture {
    PlanScale plan;
    std::array<SceneNeedle, 4> needles;
    int picked = 1;
    std::vector<SceneCell> cells;
    QPointF view;
    QSizeF field;
    int magnification = 0;
    bool marks = false;
    std::array<bool, MarkCount> touched{};
    std::vector<SceneCrossing> crossings;  // the latest five
    std::int64_t beganAt = 0;
    std::optional<SceneLanding> landing;  // while it stands
    bool hasFocus = false;

    bool operator==(const TruthPicture&) const = default;
};

// What of the lesson the plan shows.
struct PlanLesson {
    bool asksForMarks = false;
    std::array<bool, MarkCount> touched{};

    bool operator==(const PlanLesson&) const = default;
};

TruthPicture PictureOf(const Scene& scene, const PlanScale& plan, const PlanLesson& lesson, bool hasFocus);

// From the ground up.
void PaintTruth(QPainter& painter, const TruthPicture& picture);

// Its parts, in this order.
void PaintGrid(QPainter& painter, const TruthPicture& picture);
void PaintReach(QPainter& painter, const TruthPicture& picture);
void PaintCells(QPainter& painter, const TruthPicture& picture);
void PaintMarks(QPainter& painter, const TruthPicture& picture);
void PaintView(QPainter& painter, const TruthPicture& picture);
void PaintShafts(QPainter& painter, const TruthPicture& picture);
void PaintTargets(QPainter& painter, const TruthPicture& picture);
void PaintCrossings(QPainter& painter, const TruthPicture& picture);
void PaintLanding(QPainter& painter, const TruthPicture& picture);
void PaintTips(QPainter& painter, const TruthPicture& picture);
void PaintAxes(QPainter& painter, const TruthPicture& picture);

}  // namespace workbench
