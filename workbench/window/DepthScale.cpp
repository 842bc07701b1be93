#include "workbench/window/DepthScale.h"

#include <algorithm>

#include "workbench/window/PlanScale.h"

namespace workbench {

namespace {
constexpr double TicksAtLeast = 44.0;  // pixels apart
}  // namespace

double DepthScale::TickStep() const { return RoundStep(PixelsPerUnit(), TicksAtLeast); }

DepthScale DepthScale::ZoomedAbout(double pixel, double factor) const {
    const double height = HeightAt(pixel);
    DepthScale zoomed = *this;
    zoomed.reach = std::clamp(reach * factor, LeastDepthReach, MostDepthReach);
    zoomed.middle = height + (middle - height) * zoomed.reach / reach;
    return zoomed;
}

DepthScale DepthScale::PannedBy(double pixels) const {
    DepthScale panned = *this;
    panned.middle = middle + pixels / PixelsPerUnit();
    return panned;
}

}  // namespace workbench
