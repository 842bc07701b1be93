// What the line under the plan says.
#pragma once

#include <QPointF>
#include <QString>
#include <QStringList>
#include <functional>

#include "workbench/window/PlanScale.h"
#include "workbench/window/Scene.h"

namespace workbench {

// Of a pixel of the plan, most important first: "X −470.0   Y 190.7", "mirror 94, −38", "on cell 4" or "mark
// B" or "tip of needle 1" or "on needle 1", "11.3 from needle 1" (the picked one; not on its own tip). What
// does not apply is left out. `marks`: the marks are on the plan.
QStringList ReadoutParts(const Scene& scene, const PlanScale& plan, const QPointF& pixel, bool marks);
// So many of the parts, from the first on, as there is room for.
QString ReadoutText(QStringList parts, const std::function<double(const QString&)>& width, double room);
// Without a pointer on the plan.
QString ReadoutHint();

// Of what was clicked on: a crossing, a cell or a needle; empty where there is none of them.
QString ToldText(const Scene& scene, const PlanScale& plan, const QPointF& pixel);
// What screen readers tell of the plan: picked tip, targets, crossings.
QString PlanDescription(const Scene& scene);

}  // namespace workbench
