#include "workbench/window/SceneReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "workbench/commands/Bench.h"

namespace workbench {

namespace {

// A bench whose time stands where the test puts it, and what it was asked.
class ReadingTest : public ::testing::Test {
protected:
    std::string Do(const std::string& line) { return bench.commands.Answer(line, now); }
    void Read() {
        scene = ReadScene(
            [this](const std::string& line) {
                asked.push_back(line);
                return Do(line);
            },
            scene);
    }
    int TimesAsked(const std::string& line) const {
        return static_cast<int>(std::count(asked.begin(), asked.end(), line));
    }

    Time now = std::chrono::seconds(1);
    Bench bench;
    Scene scene;
    std::vector<std::string> asked;
};

}  // namespace

TEST_F(ReadingTest, AFreshBenchStandsAsItBegins) {
    Read();
    EXPECT_NEAR(scene.needles[0].tip.x, -2121.32, 0.01);
    EXPECT_EQ(scene.needles[0].tip, scene.needles[0].rest);
    EXPECT_NEAR(scene.needles[2].rear.x(), 8838.83, 0.01);
    EXPECT_EQ(scene.counts, (Place{9500, 12500, 12500}));
    ASSERT_EQ(scene.cells.size(), 6U);
    EXPECT_EQ(scene.cells[3].mirrorX, 94);
    EXPECT_EQ(scene.cells[3].mirrorY, -38);
    EXPECT_NEAR(scene.cells[3].centre.y, 190.7, 0.1);
    EXPECT_DOUBLE_EQ(scene.cells[3].radius, 13.0);
    EXPECT_EQ(scene.magnification, 2);
    EXPECT_NEAR(scene.field.width(), 242.9, 0.1);
    ASSERT_EQ(scene.wires.size(), 3U);
    EXPECT_EQ(scene.wires[1].name, "gauge");
    EXPECT_TRUE(AllShut(scene));
    EXPECT_FALSE(AnythingMoves(scene));
    EXPECT_EQ(scene.selected, 1);
    EXPECT_TRUE(scene.mirror.motorsOn);
    EXPECT_TRUE(scene.gaugeKeys);
    EXPECT_EQ(scene.landing.count, 0);
}

TEST_F(ReadingTest, WhatIsUnderWayIsSeenAtItsPlaceNowAndAtRest) {
    Do("world move 2 9900 12500 12500");
    Do("mirror move 94 -38");
    Do("focus jog 1000");
    now += std::chrono::milliseconds(10);
    Read();
    EXPECT_TRUE(scene.needles[1].moving);
    EXPECT_FALSE(scene.needles[0].moving);
    EXPECT_NEAR(PlanDistance(scene.needles[1].tip.Plan(), scene.needles[1].rest.Plan()), 360.0, 0.01);
    EXPECT_NE(scene.mirror.now, scene.mirror.rest);
    EXPECT_EQ(scene.mirror.rest, QPointF(94.0, -38.0));
    EXPECT_DOUBLE_EQ(scene.focus.rest, 10.0);
    EXPECT_EQ(scene.focus.countsAtRest, 1000);
    EXPECT_TRUE(AnythingMoves(scene));
}

TEST_F(ReadingTest, ThePickedNeedleIsTheOneWhoseCountsAreRead) {
    scene.picked = 3;
    Do("world jog 3 0 7 0");
    now += std::chrono::seconds(1);
    Read();
    EXPECT_EQ(scene.counts, (Place{9500, 12507, 12500}));
    EXPECT_EQ(scene.picked, 3);
}

TEST_F(ReadingTest, FaultsCountersSelectionAndOptics) {
    Do("fault motor silent on");
    Do("fault mirror error 8 3");
    Do("fault driver fail always");
    Do("hardware select 4");
    Do("magnification 0");
    Do("mirror motors off");
    Do("driver getcount");
    Read();
    EXPECT_NE(std::find(scene.faults.begin(), scene.faults.end(), "motor:silent"), scene.faults.end());
    EXPECT_EQ(scene.faultsLeft["mirror:error"], 3);
    EXPECT_EQ(scene.faultsLeft["fail"], -1);
    EXPECT_EQ(scene.selected, 4);
    EXPECT_EQ(scene.magnification, 0);
    EXPECT_TRUE(scene.field.isEmpty());
    EXPECT_FALSE(scene.mirror.motorsOn);
    EXPECT_EQ(scene.counters["getcount"], 1);
}

TEST_F(ReadingTest, CrossingsAreReadWithTheirPlace) {
    Do("world move 1 12500 12500 12500");
    Do("world move 2 12700 12500 12500");
    now += std::chrono::seconds(10);
    Read();
    ASSERT_GE(scene.crossingsInAll, 1);
    ASSERT_FALSE(scene.crossings.empty());
    EXPECT_EQ(scene.crossings[0].needleA, 1);
    EXPECT_EQ(scene.crossings[0].needleB, 2);
    EXPECT_LT(PlanDistance(scene.crossings[0].place, {0.0, 0.0}), 300.0);
}

TEST_F(ReadingTest, ALandingIsReadWithWhatItWasMeantFor) {
    Do("driver select 1");
    const std::string aim = Do("world aim 1 -470 190.7 0");
    Do("driver moveto" + aim.substr(2));
    now += std::chrono::seconds(10);
    Read();
    ASSERT_EQ(scene.landing.count, 1);
    EXPECT_EQ(scene.landing.needle, 1);
    EXPECT_EQ(scene.landing.cell, 4);
    EXPECT_LT(scene.landing.distance, 1.0);
    EXPECT_LT(PlanDistance(scene.landing.centre, {-470.0, 190.7}), 0.1);
    EXPECT_TRUE(LandingStands(scene));
    Do("world jog 1 3 0 0");
    now += std::chrono::seconds(1);
    Read();
    EXPECT_FALSE(LandingStands(scene));
}

TEST_F(ReadingTest, TrafficIsHandedOnOnce) {
    Do("driver select 2");
    Do("driver moveto 9900 12500 12500");
    Read();
    ASSERT_EQ(scene.traffic.size(), 2U);
    EXPECT_EQ(scene.traffic[0].source, "driver");
    EXPECT_EQ(scene.traffic[0].kind, "call");
    EXPECT_EQ(scene.traffic[0].bytes, "select 2 = 0 1");
    EXPECT_TRUE(scene.traffic[1].bytes.starts_with("moveto 9900 12500 12500 = 0 2 0.1"));
    Read();
    EXPECT_TRUE(scene.traffic.empty());
    Do("driver getcount");
    Read();
    ASSERT_EQ(scene.traffic.size(), 1U);
    EXPECT_EQ(scene.traffic[0].bytes, "getcount = 0 4");
}

TEST_F(ReadingTest, WhatNeverChangesIsAskedForOnce) {
    Read();
    Read();
    EXPECT_EQ(TimesAsked("world cells"), 1);
    EXPECT_EQ(TimesAsked("world clock"), 1);
    EXPECT_EQ(TimesAsked("camera state"), 2);
}

TEST(TakeAnswerTest, BlanksAndSlashesOfARecordComeBackAndOtherEscapesStay) {
    Scene scene;
    ASSERT_TRUE(
        TakeAnswer(scene, "traffic 0",
                   "ok 3 2 12.5/mirror/in/cD2A94\\r 13/driver/call/a\\x20b\\x2fc 14/gauge/out/\\\\x20\\x00"));
    EXPECT_EQ(scene.trafficNext, 3);
    EXPECT_EQ(scene.trafficLost, 2);
    ASSERT_EQ(scene.traffic.size(), 3U);
    EXPECT_EQ(scene.traffic[0], (TrafficRecord{12.5, "mirror", "in", "cD2A94\\r"}));
    EXPECT_EQ(scene.traffic[1].bytes, "a b/c");
    EXPECT_EQ(scene.traffic[2].bytes, "\\\\x20\\x00");
}

TEST(TakeAnswerTest, ARecordThatCannotBeReadLosesNoOther) {
    Scene scene;
    ASSERT_TRUE(TakeAnswer(scene, "traffic 0", "ok 2 0 nonsense 13/gauge/in/Ar"));
    ASSERT_EQ(scene.traffic.size(), 1U);
    EXPECT_EQ(scene.traffic[0].bytes, "Ar");
}

TEST(TakeAnswerTest, WhatIsRefusedOrOfAnotherFormChangesNothing) {
    Scene scene;
    scene.focus = {1.0, 2.0, 3, 4};
    const SceneFocus before = scene.focus;
    EXPECT_FALSE(TakeAnswer(scene, "focus state", "error no such command"));
    EXPECT_FALSE(TakeAnswer(scene, "focus state", "ok 5 6 7"));
    EXPECT_FALSE(TakeAnswer(scene, "focus state", "ok 5 6 7 eight"));
    EXPECT_FALSE(TakeAnswer(scene, "focus state", ""));
    EXPECT_FALSE(TakeAnswer(scene, "no such question", "ok 1"));
    EXPECT_EQ(scene.focus, before);
    EXPECT_TRUE(TakeAnswer(scene, "focus state", "ok 5 6 700 800"));
    EXPECT_EQ(scene.focus, (SceneFocus{5.0, 6.0, 700, 800}));
}

}  // namespace workbench
