#include "workbench/window/PlanMirror.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "workbench/world/Microscope.h"

namespace workbench {

namespace {

// ViewCentreOf, the other way round.
constexpr double UnitsPerCountX = -5.0;
constexpr double UnitsPerTangentY = -12500.0;
constexpr double DegreesPerCountY = 0.023;
constexpr double SnapsToCell = 8.0;  // pixels

int NearestX(double x) { return static_cast<int>(std::lround(x / UnitsPerCountX)); }

int NearestY(double y) {
    const double degrees = std::atan(y / UnitsPerTangentY) * 180.0 / std::numbers::pi;
    return static_cast<int>(std::lround(degrees / DegreesPerCountY));
}

}  // namespace

QPointF MirrorReach() {
    const PlanPoint corner = ViewCentreOf(-MirrorRange, -MirrorRange);
    return {corner[0], corner[1]};
}

std::optional<MirrorCounts> MirrorCountsFor(const QPointF& place) {
    const MirrorCounts counts = {NearestX(place.x()), NearestY(place.y())};
    if (std::abs(counts.x) > MirrorRange || std::abs(counts.y) > MirrorRange) {
        return {};
    }
    return counts;
}

MirrorCounts MirrorCountsDragged(const QPointF& place, const Scene& scene, const PlanScale& plan) {
    for (const SceneCell& cell : scene.cells) {
        if (PlanDistance(place, cell.centre.Plan()) * plan.scale <= SnapsToCell) {
            return {cell.mirrorX, cell.mirrorY};
        }
    }
    return {std::clamp(NearestX(place.x()), -MirrorRange, MirrorRange),
            std::clamp(NearestY(place.y()), -MirrorRange, MirrorRange)};
}

}  // namespace workbench
