// The lines that tell what truly happened: traffic, landings, what is left of a fault, needles that are not
// perfect.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <sstream>

#include "workbench/commands/Bench.h"

namespace workbench {

using std::chrono::milliseconds;

namespace {

struct Rig : Bench {
    using Bench::Bench;
    std::string Ask(const std::string& line, int at = 100) { return commands.Answer(line, milliseconds(at)); }
    // Needle 1 on a cell, 1 to 6: counts as they stand on a line.
    std::string CountsOnCell(std::size_t cell) {
        return Text(Whole(CountsFor(world.MountOf(0), World::Cells().at(cell - 1).Place())));
    }
};

}  // namespace

TEST(ScoreCommandsTest, TheNumberThatIsSelectedIsTold) {
    Rig desk;
    EXPECT_EQ(desk.Ask("hardware selected"), "ok 1");
    desk.Ask("hardware select 3");
    EXPECT_EQ(desk.Ask("hardware selected"), "ok 3");
    desk.Ask("driver select 2");
    EXPECT_EQ(desk.Ask("hardware selected"), "ok 2");
}

TEST(ScoreCommandsTest, TheClockCountsFromTheStart) {
    Rig desk;
    EXPECT_EQ(desk.Ask("world clock", 0), "ok 0.000");
    EXPECT_EQ(desk.commands.Answer("world clock", std::chrono::microseconds(1234567)), "ok 1234.567");
}

TEST(ScoreCommandsTest, ALandingIsToldWithItsCellAndForgotten) {
    Rig desk;
    EXPECT_EQ(desk.Ask("world landing"), "ok 0 0.000");
    desk.Ask("driver moveto" + desk.CountsOnCell(4), 1000);
    std::istringstream words(desk.Ask("world landing", 5000));
    std::string ok;
    std::int64_t inAll = 0;
    double worst = 0.0;
    std::int32_t needle = 0;
    std::int32_t cell = 0;
    std::array<double, 5> rest{};  // distance, height, ms, X, Y
    words >> ok >> inAll >> worst >> needle >> cell;
    for (double& number : rest) {
        words >> number;
    }
    ASSERT_TRUE(words) << words.str();
    EXPECT_EQ(inAll, 1);
    EXPECT_EQ(needle, 1);
    EXPECT_EQ(cell, 4);
    const Vector tip = desk.world.TipNow(0, milliseconds(5000));
    EXPECT_NEAR(rest[0], std::hypot(tip[0] + 470.0, tip[1] - 190.692), 0.001);
    EXPECT_EQ(rest[0], worst);
    EXPECT_EQ(rest[1], 0.0);
    EXPECT_GT(rest[2], 1600.0);
    EXPECT_LT(rest[2], 1800.0);
    EXPECT_EQ(rest[3], -470.0);
    EXPECT_NEAR(rest[4], 190.692, 0.001);
    EXPECT_EQ(desk.Ask("world landing forget"), "ok");
    EXPECT_EQ(desk.Ask("world landing"), "ok 0 0.000");
}

TEST(ScoreCommandsTest, ALandingInTheViewIsOnCellZero) {
    Rig desk;
    desk.Ask("focus move 500", 0);
    desk.Ask("driver moveto 12503 12500 12500", 1000);
    EXPECT_EQ(desk.Ask("world landing", 5000), "ok 1 3.000 1 0 3.000 -5.000 1750.750 0.000 0.000");
}

TEST(ScoreCommandsTest, ACommandOnTheMirrorsWireComesAfterWhatHasHappenedBeforeIt) {
    Rig desk;
    desk.Ask("driver moveto 12429 12429 12500", 0);
    desk.Ask("mirror move 180 0", 682);
    // The needle has come to rest at X -100 after 732 ms, the view passing over it; nobody has looked since.
    desk.instruments.WireOf(WireName::Mirror).Receive("cD2A0\r", milliseconds(800));
    std::istringstream words(desk.Ask("world landing", 5000));
    std::string ok;
    std::int64_t inAll = 0;
    double worst = 0.0;
    words >> ok >> inAll >> worst;
    EXPECT_EQ(inAll, 1);
    EXPECT_LT(worst, 2.0);
}

TEST(ScoreCommandsTest, DriverCallsAndWhatBecomesOfThemAreTraffic) {
    Rig desk;
    desk.Ask("driver getposition", 1);
    desk.Ask("driver select 2", 2);
    desk.Ask("driver select 7", 3);
    desk.Ask("driver moveto 9900 12500 12500", 4);
    desk.Ask("fault driver fail 1", 5);
    desk.Ask("driver getcount", 5);
    desk.Ask("driver moveto 0 0 -1", 6);
    EXPECT_EQ(
        desk.Ask("traffic 0", 50),
        "ok 6 0 1.000/driver/call/getposition\\x20=\\x200\\x201\\x209500\\x2012500\\x2012500 "
        "2.000/driver/call/select\\x202\\x20=\\x200\\x201 3.000/driver/call/select\\x207\\x20=\\x200\\x200 "
        "4.000/driver/call/moveto\\x209900\\x2012500\\x2012500\\x20=\\x200\\x202\\x200.100 "
        "5.000/driver/call/getcount\\x20=\\x20-1 6.000/driver/call/moveto\\x200\\x200\\x20-1\\x20=\\x20-3");
    EXPECT_EQ(desk.Ask("traffic 6", 200), "ok 7 0 104.000/world/event/arrived\\x202");
}

TEST(ScoreCommandsTest, LandingsAndCrossingsAreTrafficOfTheWorldAndWiresAreNamed) {
    Rig desk;
    desk.instruments.WireOf(WireName::Gauge).SetOpen(true, milliseconds(0));
    desk.instruments.WireOf(WireName::Gauge).Receive("Ar\r\n", milliseconds(1));
    desk.Ask("driver moveto 12500 12500 12500", 1000);
    desk.Ask("world move 2 12900 12500 12500", 4000);
    const std::string answer = desk.Ask("traffic 0", 9000);
    EXPECT_NE(answer.find(" 0.000/gauge/note/open 1.000/gauge/in/Ar\\r\\n "), std::string::npos) << answer;
    EXPECT_NE(answer.find(" 1750.000/world/event/arrived\\x201\\x200\\x200.000\\x200.000 "),
              std::string::npos)
        << answer;
    EXPECT_NE(answer.find(" 4750.000/world/event/crossing\\x201\\x202\\x200.000\\x200.000"),
              std::string::npos)
        << answer;
}

TEST(ScoreCommandsTest, WhatIsLeftOfACountingFaultIsTold) {
    Rig desk;
    EXPECT_EQ(desk.Ask("fault left"), "ok");
    const std::array<std::pair<const char*, const char*>, 7> faults = {
        {{"fault driver fail 3 getcount", " fail 3"},
         {"fault driver fail always", " fail -1"},
         {"fault gauge garble 10", " gauge:garble 10"},
         {"fault mirror error 8 3", " mirror:error 3"},
         {"fault mirror error 8 always", " mirror:error -1"},
         {"fault mirror fields 7", " mirror:fields 1"},
         {"fault motor refuse always", " motor:refuse -1"}}};
    for (const auto& [command, left] : faults) {
        EXPECT_EQ(desk.Ask(command), "ok") << command;
        EXPECT_EQ(desk.Ask("fault left"), std::string("ok") + left) << command;
        EXPECT_EQ(desk.Ask("fault clear"), "ok");
        EXPECT_EQ(desk.Ask("fault left"), "ok");
    }
    desk.Ask("fault driver fail 3");
    desk.Ask("driver getcount");
    EXPECT_EQ(desk.Ask("fault left"), "ok fail 2");
    desk.Ask("fault mirror cut 4");
    desk.Ask("fault mirror silent on");
    EXPECT_EQ(desk.Ask("fault left"), "ok fail 2");
}

TEST(ScoreCommandsTest, ACutThatWaitsCanBeEnded) {
    Rig desk;
    desk.Ask("fault mirror cut 0");
    EXPECT_EQ(desk.Ask("fault list"), "ok mirror:cut");
    EXPECT_EQ(desk.Ask("fault mirror cut off"), "ok");
    EXPECT_EQ(desk.Ask("fault list"), "ok");
}

TEST(ScoreCommandsTest, BothFlagsHeldUpAreListed) {
    Rig desk;
    desk.Ask("fault mirror limit x on");
    desk.Ask("fault mirror limit y on");
    EXPECT_EQ(desk.Ask("fault list"), "ok mirror:limit mirror:limitx mirror:limity");
    desk.Ask("fault mirror limit x off");
    EXPECT_EQ(desk.Ask("fault list"), "ok mirror:limit mirror:limity");
}

TEST(NeedleCommandsTest, EachImperfectionIsListedToldAndEnded) {
    Rig desk;
    const std::array<std::array<const char*, 3>, 4> imperfections = {
        {{"needle noise 1 2.5", " needle1:noise", "2.500 0 0 0 0.000 0.000 0.000 0.000 0.000 0.000"},
         {"needle backlash 2 1 2 3", " needle2:backlash", "0.000 1 2 3 0.000 0.000 0.000 0.000 0.000 0.000"},
         {"needle drift 3 -60 0 0.5", " needle3:drift", "0.000 0 0 0 -60.000 0.000 0.500 0.000 0.000 0.000"},
         {"needle bend 4 1 -2 3", " needle4:bend", "0.000 0 0 0 0.000 0.000 0.000 1.000 -2.000 3.000"}}};
    int needle = 0;
    for (const auto& [command, listed, state] : imperfections) {
        const std::string number = std::to_string(++needle);
        EXPECT_EQ(desk.Ask(command), "ok") << command;
        EXPECT_EQ(desk.Ask("fault list"), std::string("ok") + listed);
        EXPECT_EQ(desk.Ask("needle state " + number), std::string("ok ") + state);
        EXPECT_EQ(desk.Ask("fault clear"), "ok");
        EXPECT_EQ(desk.Ask("fault list"), "ok");
    }
    desk.Ask("needle noise 1 1");
    desk.Ask("needle bend 1 1 1 1");
    EXPECT_EQ(desk.Ask("fault list"), "ok needle1:noise needle1:bend");
    desk.Ask("needle noise 1 0");
    EXPECT_EQ(desk.Ask("fault list"), "ok needle1:bend");
}

TEST(NeedleCommandsTest, NoiseIsOfTheReadingsAloneAndTheSameInEveryRun) {
    Rig desk;
    desk.Ask("needle noise 1 5");
    const std::string noisy = desk.Ask("driver getposition");
    EXPECT_NE(noisy, "status 0 1 9500 12500 12500");
    EXPECT_NE(desk.Ask("driver getposition"), noisy);
    EXPECT_EQ(desk.Ask("world counts 1"), "ok 9500 12500 12500");
    EXPECT_EQ(desk.Ask("world tip 1"), "ok -2121.320 -2121.320 0.000 -2121.320 -2121.320 0.000");
    desk.Ask("needle noise 1 5");
    EXPECT_EQ(desk.Ask("driver getposition"), noisy);
    desk.Ask("driver select 2");
    EXPECT_EQ(desk.Ask("driver getposition"), "status 0 2 9500 12500 12500");
}

TEST(NeedleCommandsTest, BendAndPlayShowInTheTipAndNotInTheCounts) {
    Rig desk;
    desk.Ask("mount 1 0", 0);
    desk.Ask("needle bend 1 10 -20 30", 0);
    EXPECT_EQ(desk.Ask("world tip 1", 0), "ok -2990.000 -20.000 30.000 -2990.000 -20.000 30.000");
    desk.Ask("needle bend 1 0 0 0", 0);
    desk.Ask("needle backlash 1 40 0 0", 0);
    desk.Ask("world move 1 9900 12500 12500", 0);
    EXPECT_EQ(desk.Ask("world tip 1", 200), "ok -2640.000 0.000 0.000 -2640.000 0.000 0.000");
    EXPECT_EQ(desk.Ask("world counts 1", 200), "ok 9900 12500 12500");
    desk.Ask("needle drift 1 0 0 -60", 200);
    EXPECT_EQ(desk.Ask("world tip 1", 60200), "ok -2640.000 0.000 60.000 -2640.000 0.000 60.000");
}

}  // namespace workbench
