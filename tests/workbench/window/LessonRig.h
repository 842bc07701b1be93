// The first ten minutes, played on a scene.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "Scenes.h"
#include "workbench/window/Lesson.h"

namespace workbench::test {

// A pupil that does what the card says, step by step.
class LessonRig : public ::testing::Test {
protected:
    void Look(std::int64_t milliseconds = 40) {
        now += milliseconds;
        lesson.Take(scene, sight, now);
        scene.traffic.clear();
    }
    void Happens(const std::string& source, const std::string& kind, const std::string& bytes) {
        scene.traffic.push_back(Record(source, kind, bytes));
    }
    void OpenWires(bool open) {
        for (SceneWire& wire : scene.wires) {
            wire.open = open;
        }
    }
    void Focus(double z) { scene.focus = {z, z, 0, 0}; }
    void ToMark(int mark, double aside = 0.0, double z = 0.0) {
        const QPointF place = scene.view + MarkOffsets()[static_cast<std::size_t>(mark)];
        PutTip(scene, 1, {place.x() + aside, place.y(), z});
    }
    void Connect() {
        OpenWires(true);
        Look();
    }
    void PickAtTwo() {
        Connect();
        Look(2000);
    }
    void TouchMarks() {
        PickAtTwo();
        for (int mark = 0; mark < MarkCount; ++mark) {
            ToMark(mark);
            Look();
        }
        Happens("motor", "in", "RELMOVEZ10000\\r");
        Look();
    }
    void Store() {
        TouchMarks();
        Focus(100.0);
        ToMark(0, 0.0, 100.0);
        Look();
        scene.focus = {99.0, 0.0, 0, 0};
        Happens("motor", "in", "RELMOVEZ-10000\\r");
        Look();
        Focus(0.0);
    }
    void Aim() {
        Store();
        scene.view = {-470.0, 190.7};
        Happens("mirror", "in", "rD2R\\r");
        Look();
    }
    void Send() {
        Aim();
        SendTip(scene, 1, {-470.2, 190.5, 0.0});
        Happens("driver", "call", "moveto 12302 12033 12500 = 0 1 0.700");
        Look();
    }
    void Land() {
        Send();
        PutTip(scene, 1, {-469.2, 191.5, 0.0});
        const double distance = PlanDistance({-469.2, 191.5}, {-470.0, 190.7});
        scene.landing = {1, distance, 1, 4, distance, 0.0, 0.0, {-470.0, 190.7}};
        Look();
    }
    void SeeLanding(double scale = 12.0) {
        sight = {{-480.0, 180.0, 20.0, 20.0}, scale};
        Look();
        Look(1000);
    }

    Scene scene = FreshScene();
    PlanSight sight = {{-900.0, -900.0, 1800.0, 1800.0}, 0.3};
    Lesson lesson;
    std::int64_t now = 5000;
};

}  // namespace workbench::test
