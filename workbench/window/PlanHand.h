// What the hand on the plan asks of a needle.
#pragma once

#include <QPointF>
#include <array>
#include <string>

#include "workbench/window/Scene.h"

namespace workbench {

// Whole counts of a manipulator, 0 to 25000 each.
struct NeedleCounts {
    int x = 0;
    int y = 0;
    int z = 0;

    bool operator==(const NeedleCounts&) const = default;
};

// The counts of a needle whose tip was taken hold of at one place and is dragged to another: what of that way
// lies along its shaft is added to its X counts, to the ends of their range.
NeedleCounts DraggedAlong(const NeedleCounts& began, const QPointF& direction, const QPointF& from,
                          const QPointF& to);
// The counts of a needle whose height is dragged by so many units: Z counts run downward.
NeedleCounts DraggedUp(const NeedleCounts& began, double units);
// Each count to the nearest ten, to the ends of the range: what is coarse, within 8 units in plan.
NeedleCounts Coarse(const NeedleCounts& counts);
// "world move 2 9500 12500 12500"
std::string MoveLine(int needle, const NeedleCounts& counts);
// "world aim 2 12.000 -3.500 0.000"
std::string AimLine(int needle, const Place& place);
// Of an answer "ok x y z", as to "world counts 2"; false for any other.
bool CountsOf(const std::string& answer, NeedleCounts& counts);

}  // namespace workbench
