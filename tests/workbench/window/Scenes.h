// Scenes for tests, with needles on the mounts that they have when nothing else is said.
#pragma once

#include <cmath>
#include <numbers>
#include <string>

#include "workbench/window/Scene.h"

namespace workbench::test {

inline QPointF HeadingOf(int number) {
    const double angle = (45.0 + 90.0 * (number - 1)) * std::numbers::pi / 180.0;
    return {std::cos(angle), std::sin(angle)};
}

// The tip of a needle, its shaft as long as its X counts say.
inline void PutTip(Scene& scene, int number, const Place& tip) {
    SceneNeedle& needle = scene.needles[static_cast<std::size_t>(number - 1)];
    needle.tip = tip;
    needle.rest = tip;
    needle.moving = false;
    const double back = 12500.0 + QPointF::dotProduct(tip.Plan(), HeadingOf(number));
    needle.rear = tip.Plan() - HeadingOf(number) * back;
}

// Under way from where it is.
inline void SendTip(Scene& scene, int number, const Place& rest) {
    SceneNeedle& needle = scene.needles[static_cast<std::size_t>(number - 1)];
    needle.rest = rest;
    needle.moving = true;
}

// All needles parked, the view on the origin at 2×, the six cells, all wires shut.
inline Scene FreshScene() {
    Scene scene;
    for (int number = 1; number <= 4; ++number) {
        const QPointF tip = HeadingOf(number) * -3000.0;
        PutTip(scene, number, {tip.x(), tip.y(), 0.0});
    }
    scene.counts = {9500, 12500, 12500};
    scene.cells = {{{420.0, -225.8, 0}, 14, -84, 45}, {{-280.0, -366.4, 0}, 12, 56, 73},
                   {{200.0, 331.3, 0}, 15, -40, -66}, {{-470.0, 190.7, 0}, 13, 94, -38},
                   {{-60.0, -100.4, 30}, 11, 12, 20}, {{650.0, 481.9, -30}, 16, -130, -96}};
    scene.field = {242.9, 181.0};
    scene.wires = {{"mirror", "1", true, false}, {"gauge", "2", true, false}, {"motor", "3", true, false}};
    scene.beganAt = 1;
    return scene;
}

inline TrafficRecord Record(const std::string& source, const std::string& kind, const std::string& bytes,
                            double time = 0.0) {
    return {time, source, kind, bytes};
}

}  // namespace workbench::test
