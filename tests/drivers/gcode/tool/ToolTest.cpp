// The commands of travo-gcode on simulated ports; what they print and their exit codes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "drivers/gcode/NeedleRig.h"
#include "drivers/gcode/simulator/GrblController.h"
#include "drivers/gcode/simulator/OmmController.h"
#include "drivers/gcode/tool/Commands.h"
#include "drivers/gcode/tool/Pace.h"
#include "drivers/gcode/tool/Wish.h"

namespace gcode::test {
namespace {

using ::testing::HasSubstr;

// What a command prints, and what the operator answers.
class Terminal {
public:
    explicit Terminal(const std::string& answers = "")
        : in_(answers),
          oldIn_(std::cin.rdbuf(in_.rdbuf())),
          oldOut_(std::cout.rdbuf(out.rdbuf())),
          oldErr_(std::cerr.rdbuf(err.rdbuf())) {}
    ~Terminal() {
        std::cin.rdbuf(oldIn_);
        std::cin.clear();
        std::cout.rdbuf(oldOut_);
        std::cerr.rdbuf(oldErr_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    std::ostringstream out, err;

private:
    std::istringstream in_;
    std::streambuf* oldIn_;
    std::streambuf* oldOut_;
    std::streambuf* oldErr_;
};

class GcodeToolTest : public ::testing::TestWithParam<DialectName> {
protected:
    Desk MakeDesk() { return Desk(rig.folder, rig.ports); }

    NeedleRig rig{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Each, GcodeToolTest,
                         ::testing::Values(DialectName::Grbl, DialectName::Marlin, DialectName::Omm),
                         [](const auto& each) { return std::string(Name(each.param)); });

TEST_P(GcodeToolTest, CheckTellsControllerStateLimitsAndPaceOfEachAxis) {
    Desk desk = MakeDesk();
    Terminal terminal;
    EXPECT_EQ(Check(desk), 0) << terminal.err.str();
    const std::string text = terminal.out.str();
    EXPECT_THAT(text, HasSubstr("needle 1: " + std::string(Name(GetParam())) + " on /dev/simulated1"));
    EXPECT_THAT(text, HasSubstr("X: 8.00 mm/s, 200 mm/s²: fast enough, in time from 320 counts on"));
    EXPECT_THAT(text, HasSubstr("Z: 8.00 mm/s"));
    EXPECT_THAT(text, HasSubstr("stands at X 9500, Y 12500, Z 12500"));
    EXPECT_EQ(rig.MovesHeard(), 0);
}

TEST_P(GcodeToolTest, CheckTellsEveryMistakeWithFileAndLine) {
    rig.WriteSettings("[needle 1]\nport = ttyUSB0\nspeed = 3\n");
    Desk desk = MakeDesk();
    Terminal terminal;
    EXPECT_EQ(Check(desk), 1);
    EXPECT_THAT(terminal.err.str(), HasSubstr(rig.folder + "/manipulators.ini:2: port: the port must be"));
    EXPECT_THAT(terminal.err.str(), HasSubstr("manipulators.ini:3: \"speed\" is not a key"));
    EXPECT_THAT(terminal.err.str(), HasSubstr("no needle has usable settings"));
}

TEST_P(GcodeToolTest, CheckOfAnAxisThatIsTooSlowFails) {
    rig.WriteSettings(SectionText(1, GetParam(), NeedleRig::PortOf(1)) +
                      (GetParam() == DialectName::Omm ? "" : "speed-limit = 3\n"));
    if (GetParam() == DialectName::Omm) {
        std::string text = SectionText(1, GetParam(), NeedleRig::PortOf(1));
        text.replace(text.find("speed-limit = 8"), 15, "speed-limit = 3");
        rig.WriteSettings(text);
    }
    Desk desk = MakeDesk();
    Terminal terminal;
    EXPECT_EQ(Check(desk), 1);
    EXPECT_THAT(terminal.out.str(), HasSubstr("too slow: 25000 counts take 8.35 s, waited for are 6.25 s"));
}

TEST_P(GcodeToolTest, WhereTellsCountsAndMachineCoordinates) {
    Desk desk = MakeDesk();
    Terminal terminal;
    EXPECT_EQ(Where(desk, 0), 0);
    EXPECT_EQ(Where(desk, 1), 0);
    EXPECT_THAT(terminal.out.str(), HasSubstr("needle 1: X 9500, Y 12500, Z 12500   machine X "));
    EXPECT_EQ(Where(desk, 2), 1);
    EXPECT_THAT(terminal.err.str(), HasSubstr("needle 2: no usable settings"));
}

TEST_P(GcodeToolTest, JogMovesOneAxisByTheCountsAndTellsWhereItArrived) {
    Desk desk = MakeDesk();
    Terminal terminal;
    EXPECT_EQ(Jog(desk, 1, 1, -300), 0) << terminal.err.str();
    EXPECT_EQ(rig.Truth(), (Counts{9500, 12200, 12500}));
    EXPECT_THAT(terminal.out.str(), HasSubstr("needle 1: X 9500, Y 12500, Z 12500"));
    EXPECT_THAT(terminal.out.str(), HasSubstr("needle 1: X 9500, Y 12200, Z 12500"));
    EXPECT_EQ(rig.MovesHeard(), 1);
}

TEST_P(GcodeToolTest, HomeAsksAndDoesNothingWithoutAYes) {
    for (const char* answer : {"", "y\n", "no\n", "YES\n", "yes please\n"}) {
        Desk desk = MakeDesk();
        Terminal terminal(answer);
        EXPECT_EQ(Home(desk, 1), 1);
        EXPECT_THAT(terminal.out.str(), HasSubstr("Homing needle 1: all "));
        EXPECT_THAT(terminal.out.str(), HasSubstr("Take its tip out of the dish first"));
        EXPECT_THAT(terminal.out.str(), HasSubstr("Nothing was done."));
    }
    EXPECT_EQ(rig.MovesHeard(), 0);
}

TEST_P(GcodeToolTest, HomeEndsTheStateInWhichNothingMayMove) {
    rig.ControllerOf().Restart(rig.ports.clock.now);
    rig.WriteState("needle 1 lost: the controller has started anew\n");
    EXPECT_EQ(rig.Count(), 0);
    {
        Desk desk = MakeDesk();
        Terminal terminal("yes\n");
        EXPECT_EQ(Home(desk, 1), 0) << terminal.err.str();
        EXPECT_THAT(terminal.out.str(), HasSubstr("needle 1: homed"));
    }
    EXPECT_EQ(rig.MovesHeard(), 1);
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 1) << rig.LogText();
}

TEST_P(GcodeToolTest, UnlockAsksAndTrustsThePositionAsItIs) {
    rig.WriteState("needle 1 lost: stopped without a ramp\n");
    EXPECT_EQ(rig.Count(), 0);
    {
        Desk desk = MakeDesk();
        Terminal terminal("no\n");
        EXPECT_EQ(Unlock(desk, 1), 1);
        EXPECT_THAT(terminal.out.str(), HasSubstr("Unlocking needle 1: nothing moves"));
    }
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 0);
    {
        Desk desk = MakeDesk();
        Terminal terminal("yes\n");
        EXPECT_EQ(Unlock(desk, 1), 0) << terminal.err.str();
    }
    EXPECT_EQ(rig.MovesHeard(), 0);
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 1) << rig.LogText();
}

TEST_P(GcodeToolTest, APortThatTheDriverHoldsIsTold) {
    rig.Device().cable.refusal = "/dev/simulated1 is in use by another program";
    Desk desk = MakeDesk();
    Terminal terminal("yes\n");
    EXPECT_EQ(Home(desk, 1), 1);
    EXPECT_EQ(Unlock(desk, 1), 1);
    EXPECT_EQ(Jog(desk, 1, 0, 10), 1);
    EXPECT_THAT(terminal.err.str(), HasSubstr("needle 1: /dev/simulated1 is in use by another program"));
    EXPECT_EQ(rig.MovesHeard(), 0);
}

TEST_P(GcodeToolTest, ListTellsWhatAnswersAtThePortsOfTheSettings) {
    Desk desk = MakeDesk();
    Terminal terminal;
    EXPECT_EQ(List(desk, false), 0);
    EXPECT_THAT(terminal.out.str(),
                HasSubstr("/dev/simulated1\n    needle 1: " + std::string(Name(GetParam())) + ", "));
    EXPECT_EQ(rig.MovesHeard(), 0);
}

TEST(GcodeToolOfGrblTest, UnlockEndsEveryStateThatHoldsAndMovesNothing) {
    for (const std::string state : {"Alarm", "Hold:0", "Door:0", "Door:1", "Sleep", "Check"}) {
        NeedleRig rig(DialectName::Grbl);
        dynamic_cast<GrblController&>(rig.ControllerOf()).Enter(state);
        Desk desk(rig.folder, rig.ports);
        Terminal terminal("yes\n");
        EXPECT_EQ(Unlock(desk, 1), 0) << state << terminal.err.str();
        EXPECT_EQ(rig.MovesHeard(), 0) << state;
        EXPECT_EQ(rig.Count(), 1) << state;
        EXPECT_EQ(rig.Truth(), Start);
    }
}

TEST(GcodeToolOfGrblTest, UnlockOfAMovingNeedleIsRefused) {
    NeedleRig rig(DialectName::Grbl);
    dynamic_cast<GrblController&>(rig.ControllerOf()).Enter("Hold:1");
    rig.ControllerOf().Motors().Push({-20, -20, -20}, 1, rig.ports.clock.now);
    Desk desk(rig.folder, rig.ports);
    Terminal terminal("yes\n");
    EXPECT_EQ(Unlock(desk, 1), 1);
    EXPECT_THAT(terminal.err.str(), HasSubstr("needle 1: it is moving"));
}

TEST(GcodePaceTest, AShortWayIsLateAndALongOneInTimeFromWhereTheRampsAreMadeGood) {
    NeedleSettings needle;
    needle.countsPerMm = 1000;
    const MachineLimits limits{{8, 3.9, 4}, {200, 200, 200}};
    // a T² = 4 d: 200 (n/4000)² = 4 n/1000 at n = 320.
    EXPECT_EQ(PaceOf(needle, limits, 0).inTimeFrom, 320);
    EXPECT_NEAR(PaceOf(needle, limits, 0).jogLate, 31.6 - 12.5, 0.1);
    EXPECT_FALSE(PaceOf(needle, limits, 1).isFastEnough);
    EXPECT_NEAR(PaceOf(needle, limits, 1).wholeTravel, 25 / 3.9 + 3.9 / 200, 1e-6);
    // Just the speed is too little: the ramps come on top.
    EXPECT_FALSE(PaceOf(needle, limits, 2).isFastEnough);
    EXPECT_THAT(PaceText(needle, limits, 2), HasSubstr("needed are more than 4.00 mm/s"));
}

TEST(GcodeWishTest, EveryCommandIsReadWithItsWords) {
    std::string why;
    EXPECT_EQ(ReadWish({"check"}, why)->command, Wish::Command::Check);
    EXPECT_TRUE(ReadWish({"list", "--ask"}, why)->asksOthers);
    EXPECT_FALSE(ReadWish({"list"}, why)->asksOthers);
    EXPECT_EQ(ReadWish({"where"}, why)->needle, 0);
    EXPECT_EQ(ReadWish({"where", "3"}, why)->needle, 3);
    const Wish jog = *ReadWish({"--folder", "/bench", "jog", "2", "z", "-50"}, why);
    EXPECT_EQ(jog.command, Wish::Command::Jog);
    EXPECT_EQ(jog.folder, "/bench");
    EXPECT_EQ(jog.needle, 2);
    EXPECT_EQ(jog.axis, 2U);
    EXPECT_EQ(jog.counts, -50);
    EXPECT_EQ(ReadWish({"home", "1"}, why)->command, Wish::Command::Home);
    EXPECT_EQ(ReadWish({"unlock", "4"}, why)->command, Wish::Command::Unlock);
    EXPECT_EQ(ReadWish({"watch"}, why)->seconds, 0);
    EXPECT_EQ(ReadWish({"watch", "10"}, why)->seconds, 10);
    EXPECT_EQ(ReadWish({"jog", "--help"}, why)->command, Wish::Command::Help);
    EXPECT_EQ(ReadWish({"--version"}, why)->command, Wish::Command::Version);
}

TEST(GcodeWishTest, WhatMakesNoCommandIsToldInWords) {
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{}, "a command is missing"},
        {{"hoem", "1"}, "no such command: hoem"},
        {{"home"}, "wrong words behind home"},
        {{"home", "1", "2"}, "wrong words behind home"},
        {{"home", "0"}, "a needle is 1 to 4, not 0"},
        {{"unlock", "5"}, "a needle is 1 to 4, not 5"},
        {{"where", "all"}, "a needle is 1 to 4, not all"},
        {{"jog", "1", "x"}, "wrong words behind jog"},
        {{"jog", "1", "X", "10"}, "an axis is x, y or z, not X"},
        {{"jog", "1", "x", "0"}, "counts are 1 to 1000, or -1 to -1000, not 0"},
        {{"jog", "1", "x", "1001"}, "counts are 1 to 1000, or -1 to -1000, not 1001"},
        {{"jog", "1", "x", "--5"}, "counts are 1 to 1000, or -1 to -1000, not --5"},
        {{"watch", "0"}, "seconds are a whole number above 0, not 0"},
        {{"list", "all"}, "wrong words behind list"},
        {{"--folder"}, "--folder needs a folder"},
    };
    for (const auto& [words, text] : cases) {
        std::string why;
        EXPECT_FALSE(ReadWish(words, why)) << text;
        EXPECT_EQ(why, text);
    }
}

}  // namespace
}  // namespace gcode::test
