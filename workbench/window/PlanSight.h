// What of the common frame the plan shows.
#pragma once

#include <QRectF>

namespace workbench {

struct PlanSight {
    QRectF visible;      // in common units
    double scale = 0.0;  // device-independent pixels a unit

    bool operator==(const PlanSight&) const = default;
};

}  // namespace workbench
