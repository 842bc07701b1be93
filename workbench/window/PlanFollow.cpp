#include "workbench/window/PlanFollow.h"

#include <algorithm>

namespace workbench {

namespace {

constexpr double NeedleScale = 2.0;
constexpr double LandingScale = 12.0;
constexpr double ViewShare = 0.8;
constexpr double DishReach = 1000.0;
constexpr double ShaftShown = 800.0;

// The whole of a rectangle in the middle of the plan.
PlanScale Fitting(const QRectF& area, double share, const PlanScale& present) {
    PlanScale plan = present;
    plan.centre = area.center();
    plan.scale = PlanScaleWithin(share * std::min(present.size.width() / std::max(area.width(), 1.0),
                                                  present.size.height() / std::max(area.height(), 1.0)));
    return plan;
}

QRectF AroundNeedles(const Scene& scene) {
    QPointF low = scene.needles[0].tip.Plan();
    QPointF high = low;
    for (int number = 1; number <= static_cast<int>(scene.needles.size()); ++number) {
        const SceneNeedle& needle = scene.Needle(number);
        const QPointF tip = needle.tip.Plan();
        const double length = std::min(ShaftShown, PlanDistance(tip, needle.rear));
        for (const QPointF& place : {tip, tip - DirectionOf(needle, number) * length}) {
            low = {std::min(low.x(), place.x()), std::min(low.y(), place.y())};
            high = {std::max(high.x(), place.x()), std::max(high.y(), place.y())};
        }
    }
    return {low, high};
}

}  // namespace

PlanScale Followed(PlanFollow follow, const Scene& scene, const PlanScale& present) {
    switch (follow) {
        case PlanFollow::Needle:
            return {present.size, scene.PickedNeedle().tip.Plan(), NeedleScale};
        case PlanFollow::View: {
            if (scene.field.isEmpty()) {
                return present;
            }
            QRectF area({0.0, 0.0}, scene.field);
            area.moveCenter(scene.view);
            return Fitting(area, ViewShare, present);
        }
        case PlanFollow::Dish:
            return Fitting({-DishReach, -DishReach, 2.0 * DishReach, 2.0 * DishReach}, 1.0, present);
        case PlanFollow::All:
            return Fitting(AroundNeedles(scene), 1.0, present);
        case PlanFollow::Nothing:
            break;
    }
    return present;
}

PlanScale LookedAt(const SceneLanding& landing, const PlanScale& present) {
    return {present.size, landing.centre, LandingScale};
}

}  // namespace workbench
