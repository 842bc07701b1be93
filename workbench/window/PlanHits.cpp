#include "workbench/window/PlanHits.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "workbench/window/Lesson.h"

namespace workbench {

namespace {

constexpr double TipReach = 12.0;  // pixels, as all that follow
constexpr double FrameReach = 7.0;
constexpr double MarkReach = 10.0;
constexpr double ShaftReach = 4.0;
constexpr double CrossingReach = 15.0;
constexpr double LeastCell = 4.0;
constexpr double MarksNear = 200.0;  // common units
constexpr double HalfAtTip = 0.8;
constexpr double HalfFarther = 14.0;
constexpr double TaperLength = 420.0;

constexpr int TwoTimes = 2;  // index of the magnification 2×

bool IsOnShaft(const SceneNeedle& needle, int number, const PlanScale& plan, const QPointF& pixel) {
    const QPointF from = needle.tip.Plan() - plan.PlaceAt(pixel);
    const QPointF along = DirectionOf(needle, number);
    const double back = QPointF::dotProduct(from, along);
    const double aside = std::abs(from.x() * along.y() - from.y() * along.x());
    return back >= 0.0 && back <= PlanDistance(needle.tip.Plan(), needle.rear) &&
           aside * plan.scale <= std::max(ShaftReach, HalfWidthOf(back) * plan.scale);
}

}  // namespace

bool MarksShown(const Scene& scene, bool askedFor) {
    return scene.magnification == TwoTimes &&
           (askedFor || PlanDistance(scene.PickedNeedle().tip.Plan(), scene.view) <= MarksNear);
}

int TipAt(const Scene& scene, const PlanScale& plan, const QPointF& pixel) {
    int found = 0;
    double nearest = TipReach;
    for (int number = 1; number <= static_cast<int>(scene.needles.size()); ++number) {
        const double away = PlanDistance(plan.Pixel(scene.Needle(number).tip.Plan()), pixel);
        if (scene.Needle(number).connected && away <= nearest) {
            found = number;
            nearest = away;
        }
    }
    return found;
}

bool IsOnViewFrame(const Scene& scene, const PlanScale& plan, const QPointF& pixel) {
    if (scene.field.isEmpty()) {
        return false;
    }
    QRectF frame({0.0, 0.0}, scene.field * plan.scale);
    frame.moveCenter(plan.Pixel(scene.view));
    const QRectF outside = frame.adjusted(-FrameReach, -FrameReach, FrameReach, FrameReach);
    const QRectF inside = frame.adjusted(FrameReach, FrameReach, -FrameReach, -FrameReach);
    return outside.contains(pixel) && !(inside.isValid() && inside.contains(pixel));
}

int CellAt(const Scene& scene, const PlanScale& plan, const QPointF& pixel) {
    for (std::size_t cell = 0; cell < scene.cells.size(); ++cell) {
        const double away = PlanDistance(plan.Pixel(scene.cells[cell].centre.Plan()), pixel);
        if (away <= std::max(LeastCell, scene.cells[cell].radius * plan.scale)) {
            return static_cast<int>(cell);
        }
    }
    return -1;
}

int MarkAt(const Scene& scene, const PlanScale& plan, const QPointF& pixel) {
    for (std::size_t mark = 0; mark < MarkOffsets().size(); ++mark) {
        if (PlanDistance(plan.Pixel(scene.view + MarkOffsets()[mark]), pixel) <= MarkReach) {
            return static_cast<int>(mark);
        }
    }
    return -1;
}

int ShaftAt(const Scene& scene, const PlanScale& plan, const QPointF& pixel) {
    if (IsOnShaft(scene.PickedNeedle(), scene.picked, plan, pixel)) {
        return scene.picked;
    }
    for (int number = 1; number <= static_cast<int>(scene.needles.size()); ++number) {
        if (IsOnShaft(scene.Needle(number), number, plan, pixel)) {
            return number;
        }
    }
    return 0;
}

int CrossingAt(const Scene& scene, const PlanScale& plan, const QPointF& pixel) {
    const int count = static_cast<int>(scene.crossings.size());
    for (int crossing = count - 1; crossing >= std::max(0, count - CrossingsShown); --crossing) {
        const QPointF place = plan.Pixel(scene.crossings[static_cast<std::size_t>(crossing)].place);
        if (PlanDistance(place, pixel) <= CrossingReach) {
            return crossing;
        }
    }
    return -1;
}

double HalfWidthOf(double fromTip) {
    const double share = std::clamp(fromTip / TaperLength, 0.0, 1.0);
    return HalfAtTip + (HalfFarther - HalfAtTip) * share;
}

}  // namespace workbench
