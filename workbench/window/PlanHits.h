// What lies under a pixel of the plan.
#pragma once

#include <QPointF>
#include <QString>

#include "workbench/window/PlanScale.h"
#include "workbench/window/Scene.h"

namespace workbench {

// How many crossings the plan shows: the latest ones.
inline constexpr int CrossingsShown = 5;

// The calibration marks belong on the plan: at 2×, while the lesson asks for them or the picked tip is within
// 200 units of the view's centre.
bool MarksShown(const Scene& scene, bool askedFor);

// Needle 1 to 4 whose tip is nearest, within 12 pixels; 0 for none. Missing needles have no tip to take hold
// of.
int TipAt(const Scene& scene, const PlanScale& plan, const QPointF& pixel);
// Within 7 pixels of the frame of the view.
bool IsOnViewFrame(const Scene& scene, const PlanScale& plan, const QPointF& pixel);
// Index of the cell on whose disc, as it is drawn, the pixel lies; -1 for none.
int CellAt(const Scene& scene, const PlanScale& plan, const QPointF& pixel);
// Index 0 to 2 of the mark within 10 pixels, -1 for none; the marks must be shown.
int MarkAt(const Scene& scene, const PlanScale& plan, const QPointF& pixel);
// Needle 1 to 4 on whose shaft, as it is drawn, the pixel lies, the picked one ahead of the others; 0 for
// none.
int ShaftAt(const Scene& scene, const PlanScale& plan, const QPointF& pixel);
// Index of the latest crossing of those shown within 15 pixels, -1 for none.
int CrossingAt(const Scene& scene, const PlanScale& plan, const QPointF& pixel);

// Half the width of a needle's body in common units, at a distance from its tip: 0.8 at the tip to 14 from
// 420 on.
double HalfWidthOf(double fromTip);

}  // namespace workbench
