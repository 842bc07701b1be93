// What the plan follows: one of its tools, or nothing since the hand zoomed or panned.
#pragma once

#include "workbench/window/PlanScale.h"
#include "workbench/window/Scene.h"

namespace workbench {

enum class PlanFollow {
    Nothing,
    Needle,  // the picked tip in the middle, 2 pixels a unit
    View,    // the field of view at 80 % of the plan
    Dish,    // 1000 units to each side of the origin
    All,     // all tips and 800 units of each shaft
};

// How the plan lies by that tool. It stays as it is where nothing is followed, and where there is no field of
// view between two objectives.
PlanScale Followed(PlanFollow follow, const Scene& scene, const PlanScale& present);

// The last landing in the middle, 12 pixels a unit.
PlanScale LookedAt(const SceneLanding& landing, const PlanScale& present);

}  // namespace workbench
