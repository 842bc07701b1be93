#include "workbench/window/Scene.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace workbench {

namespace {

constexpr std::size_t Wires = 3;
constexpr double CountsPerSecond = 4000.0;
constexpr double DegreesToNextMount = 90.0;
constexpr double FirstHeading = 45.0;
// The bench tells distances to a thousandth of a unit; tip, centre and distance may each be off by half of
// one.
constexpr double SameDistance = 0.01;

}  // namespace

bool AllOpen(const Scene& scene) {
    return scene.wires.size() == Wires && std::all_of(scene.wires.begin(), scene.wires.end(),
                                                      [](const SceneWire& wire) { return wire.open; });
}

bool AllShut(const Scene& scene) {
    return std::none_of(scene.wires.begin(), scene.wires.end(),
                        [](const SceneWire& wire) { return wire.open; });
}

bool AnythingMoves(const Scene& scene) {
    const bool needles = std::any_of(scene.needles.begin(), scene.needles.end(),
                                     [](const SceneNeedle& needle) { return needle.moving; });
    return needles || scene.mirror.now != scene.mirror.rest || scene.focus.z != scene.focus.rest;
}

double PlanDistance(const QPointF& a, const QPointF& b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

QPointF DirectionOf(const SceneNeedle& needle, int number) {
    const QPointF along = needle.tip.Plan() - needle.rear;
    const double length = std::hypot(along.x(), along.y());
    if (length < 1.0) {
        const double heading = (FirstHeading + DegreesToNextMount * (number - 1)) * std::numbers::pi / 180.0;
        return {std::cos(heading), std::sin(heading)};
    }
    return along / length;
}

double SecondsToGo(const SceneNeedle& needle, int number) {
    const QPointF way = needle.rest.Plan() - needle.tip.Plan();
    const QPointF along = DirectionOf(needle, number);
    const double x = std::abs(QPointF::dotProduct(way, along));
    const double y = std::abs(way.x() * along.y() - way.y() * along.x());
    return std::max({x, y, std::abs(needle.rest.z - needle.tip.z)}) / CountsPerSecond;
}

bool LandingStands(const Scene& scene) {
    const SceneLanding& landing = scene.landing;
    if (landing.count == 0 || landing.needle < 1 || landing.needle > 4) {
        return false;
    }
    const SceneNeedle& needle = scene.Needle(landing.needle);
    const double distance = PlanDistance(needle.tip.Plan(), landing.centre);
    return !needle.moving && std::abs(distance - landing.distance) < SameDistance;
}

}  // namespace workbench
