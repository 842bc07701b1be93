#include "workbench/world/Landing.h"

#include <algorithm>
#include <cmath>

#include "workbench/world/Cell.h"

namespace workbench {

namespace {

double PlanDistanceOf(const Vector& a, const Vector& b) { return std::hypot(a[0] - b[0], a[1] - b[1]); }

}  // namespace

Vector Cell::Place() const {
    const PlanPoint plan = ViewCentreOf(mirrorX, mirrorY);
    return {plan[0], plan[1], z};
}

std::optional<Landing> LandingOf(std::int32_t needle, const Vector& tip, const Vector& viewCentre,
                                 Time time) {
    const auto at = [&](std::optional<std::int32_t> cell, const Vector& centre) {
        return Landing{
            needle, cell, PlanDistanceOf(tip, centre), tip[2] - centre[2], time, {centre[0], centre[1]}};
    };
    std::optional<Landing> nearest;
    for (std::size_t cell = 0; cell < CellsInTheDish.size(); ++cell) {
        const Landing here = at(static_cast<std::int32_t>(cell), CellsInTheDish[cell].Place());
        if (here.distance <= LandingReach && (!nearest || here.distance < nearest->distance)) {
            nearest = here;
        }
    }
    if (!nearest && PlanDistanceOf(tip, viewCentre) <= LandingReach) {
        nearest = at(std::nullopt, viewCentre);
    }
    return nearest;
}

void Landings::Take(const Landing& landing) {
    ++inAll_;
    worst_ = std::max(worst_, landing.distance);
    last_ = landing;
}

}  // namespace workbench
