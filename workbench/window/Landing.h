// How the last landing reads.
#pragma once

#include <QString>
#include <functional>

#include "workbench/window/Scene.h"

namespace workbench {

// "1.4", the distance in plan in common units; "none yet" before the first landing.
QString LandingValue(const SceneLanding& landing);
// "units · needle 1 on cell 4 · 0.2 above · worst 2.1"; "needle 1 in the view" where no cell was meant; the
// worst one from the second landing on. Empty before the first landing.
QString LandingDetail(const SceneLanding& landing);
// The same, shortened from its end, part by part, until `width` of it is at most `room`. The first part
// stays.
QString LandingDetail(const SceneLanding& landing, const std::function<double(const QString&)>& width,
                      double room);
// "0.2 above", "0.2 below", under 0.05 "at its height".
QString HeightText(double height);
// On the plan: "1.1 units from the centre".
QString LandingOnPlan(const SceneLanding& landing);

}  // namespace workbench
