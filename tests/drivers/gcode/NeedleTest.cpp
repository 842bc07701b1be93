// The whole driver but for the five functions' linkage, on simulated controllers of each dialect.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "drivers/gcode/NeedleRig.h"
#include "drivers/gcode/Settings.h"
#include "drivers/gcode/simulator/GrblController.h"
#include "drivers/gcode/simulator/MarlinController.h"
#include "drivers/gcode/simulator/OmmController.h"

namespace gcode::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using ::testing::HasSubstr;

class GcodeNeedleTest : public ::testing::TestWithParam<DialectName> {
protected:
    NeedleRig rig{GetParam()};
    Counts counts{};
};

INSTANTIATE_TEST_SUITE_P(Each, GcodeNeedleTest,
                         ::testing::Values(DialectName::Grbl, DialectName::Marlin, DialectName::Omm),
                         [](const auto& each) { return std::string(Name(each.param)); });

TEST_P(GcodeNeedleTest, AtRestItIsReadWhereItStands) {
    std::int32_t number = 0;
    EXPECT_EQ(rig.driver->GetPosition(number, counts), Status::Done) << rig.LogText();
    EXPECT_EQ(number, 1);
    EXPECT_EQ(counts, Start);
    EXPECT_EQ(rig.Count(), 1);
    EXPECT_EQ(rig.MovesHeard(), 0);
}

TEST_P(GcodeNeedleTest, AMoveIsTakenAtOnceAndArrivesInTimeOnEveryAxis) {
    ASSERT_EQ(rig.Count(), 1) << rig.LogText();
    for (const Counts& to : {Counts{13500, 12000, 12600}, Counts{0, 0, 0}, Counts{25000, 25000, 25000},
                             Counts{25000, 24000, 25000}, Counts{12500, 12500, 12500}}) {
        const Counts from = rig.Truth();
        double longest = 0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            longest = std::max(longest, std::abs(static_cast<double>(to[axis] - from[axis])));
        }
        const Time start = rig.ports.clock.now;
        ASSERT_EQ(rig.driver->MoveTo(to), Status::Done) << rig.LogText();
        EXPECT_LE(rig.ports.clock.now - start, milliseconds(50));
        rig.Wait(Time(static_cast<Time::rep>(longest * 250)));
        // What the answer took is all that it may be late, whatever the settling time would allow.
        rig.Wait(Controller::Thinking);
        EXPECT_EQ(rig.Truth(), to);
        ASSERT_EQ(rig.Read(counts), Status::Done);
        EXPECT_EQ(counts, to);
    }
    EXPECT_EQ(rig.MovesHeard(), 5);
}

TEST_P(GcodeNeedleTest, WhileItMovesItIsReadWhereItIsWithin50Milliseconds) {
    ASSERT_EQ(rig.Count(), 1);
    ASSERT_EQ(rig.driver->MoveTo({13500, 8500, 16500}), Status::Done);
    for (int tick = 0; tick < 4; ++tick) {
        rig.Wait(milliseconds(200));
        const Time start = rig.ports.clock.now;
        const Counts before = rig.Truth();
        ASSERT_EQ(rig.Read(counts), Status::Done) << rig.LogText();
        EXPECT_LE(rig.ports.clock.now - start, milliseconds(50));
        const Counts after = rig.Truth();
        EXPECT_GE(counts[0], before[0] - 1);
        EXPECT_LE(counts[0], after[0] + 1);
        EXPECT_LT(after[0], 13500);
        EXPECT_LE(counts[1], before[1] + 1);
        EXPECT_GE(counts[1], after[1] - 1);
    }
}

TEST_P(GcodeNeedleTest, ItsWayIsOneStraightLine) {
    ASSERT_EQ(rig.Count(), 1);
    ASSERT_EQ(rig.driver->MoveTo({13500, 10500, 13500}), Status::Done);
    for (int tick = 0; tick < 100; ++tick) {
        rig.Wait(milliseconds(10));
        const Counts at = rig.Truth();
        EXPECT_NEAR(at[1], 12500 - (at[0] - 9500) / 2.0, 1.01);
        EXPECT_NEAR(at[2], 12500 + (at[0] - 9500) / 4.0, 1.01);
    }
}

TEST_P(GcodeNeedleTest, ToWhereItStandsNothingIsSent) {
    ASSERT_EQ(rig.Count(), 1);
    EXPECT_EQ(rig.driver->MoveTo(Start), Status::Done);
    EXPECT_EQ(rig.MovesHeard(), 0);
}

TEST_P(GcodeNeedleTest, ATargetOutOfRangeIsRefusedBeforeAnythingIsSent) {
    ASSERT_EQ(rig.Count(), 1);
    rig.ControllerOf().ForgetHeard();
    for (const Counts& to : {Counts{-1, 0, 0}, Counts{0, 25001, 0}, Counts{0, 0, 2147483647}}) {
        EXPECT_EQ(rig.driver->MoveTo(to), Status::OutOfRange);
    }
    EXPECT_TRUE(rig.ControllerOf().Heard().empty());
    EXPECT_EQ(rig.Read(counts), Status::Done);
}

TEST_P(GcodeNeedleTest, ATargetBeyondTheMachinesLimitsIsRefusedBeforeAnythingIsSent) {
    const std::string section = SectionText(1, GetParam(), NeedleRig::PortOf(1));
    const NeedleSettings settings = *ReadSettings(section).needles[0];
    // Y runs backwards: its low counts lie high.
    const Millimetres least = MachinePosition(settings, {500, 24000, 0});
    const Millimetres most = MachinePosition(settings, {24500, 1000, 25000});
    const auto text = [](const Millimetres& place) {
        return std::to_string(place[0]) + ", " + std::to_string(place[1]) + ", " + std::to_string(place[2]) +
               "\n";
    };
    rig.WriteSettings(section + "min = " + text(least) + "max = " + text(most));
    ASSERT_EQ(rig.Count(), 1) << rig.LogText();
    rig.ControllerOf().ForgetHeard();
    for (const Counts& to : {Counts{499, 12500, 12500}, Counts{24501, 12500, 12500}, Counts{9500, 999, 12500},
                             Counts{9500, 24001, 12500}}) {
        EXPECT_EQ(rig.driver->MoveTo(to), Status::OutOfRange);
    }
    EXPECT_TRUE(rig.ControllerOf().Heard().empty());
    EXPECT_THAT(rig.LogText(), HasSubstr("a target beyond the machine's limits was refused: X"));
    EXPECT_EQ(rig.driver->MoveTo({500, 24000, 0}), Status::Done);
    rig.Wait(seconds(4));
    EXPECT_EQ(rig.driver->MoveTo({24500, 1000, 25000}), Status::Done);
    EXPECT_EQ(rig.MovesHeard(), 2);
}

TEST_P(GcodeNeedleTest, AMoveWhileTheOneBeforeGoesOnIsRefusedAndChangesNothing) {
    ASSERT_EQ(rig.Count(), 1);
    ASSERT_EQ(rig.driver->MoveTo({17500, 12500, 12500}), Status::Done);
    rig.Wait(milliseconds(100));
    const Time start = rig.ports.clock.now;
    EXPECT_EQ(rig.driver->MoveTo({9500, 0, 12500}), Status::StillMoving);
    EXPECT_LE(rig.ports.clock.now - start, milliseconds(800));
    rig.Wait(milliseconds(2500));
    EXPECT_EQ(rig.Truth(), (Counts{17500, 12500, 12500}));
    EXPECT_EQ(rig.MovesHeard(), 1);
    EXPECT_EQ(rig.driver->MoveTo(Start), Status::Done);
}

TEST_P(GcodeNeedleTest, AMoveThatEndsWithinTheWaitIsFollowedByTheNext) {
    ASSERT_EQ(rig.Count(), 1);
    ASSERT_EQ(rig.driver->MoveTo({10500, 12500, 12500}), Status::Done);
    EXPECT_EQ(rig.driver->MoveTo(Start), Status::Done) << rig.LogText();
    rig.Wait(milliseconds(260));
    EXPECT_EQ(rig.Truth(), Start);
}

TEST_P(GcodeNeedleTest, AReadingOutsideTheCountsIsGivenAsItIs) {
    ASSERT_EQ(rig.Count(), 1);
    std::string far = SectionText(1, GetParam(), NeedleRig::PortOf(1));
    far.replace(far.find("zero = "), far.find('\n', far.find("zero = ")) - far.find("zero = "),
                "zero = 14, 27, 14");
    rig.WriteSettings(far);
    rig.driver->Reconnect();
    ASSERT_EQ(rig.Read(counts), Status::Done) << rig.LogText();
    EXPECT_LT(counts[0], 0);
}

TEST_P(GcodeNeedleTest, StopEndsTheMotionAndKeepsThePositionOrSaysThatItCannot) {
    std::string settings = SectionText(1, GetParam(), NeedleRig::PortOf(1)) + "quick-stop = keep\n";
    rig.WriteSettings(settings);
    ASSERT_EQ(rig.Count(), 1);
    EXPECT_EQ(rig.driver->Stop(1), Status::Done);
    ASSERT_EQ(rig.driver->MoveTo({17500, 12500, 12500}), Status::Done);
    rig.Wait(milliseconds(500));
    const Counts at = rig.Truth();
    if (GetParam() == DialectName::Omm) {
        EXPECT_EQ(rig.driver->Stop(1), Status::Refused);
        EXPECT_THAT(rig.LogText(), HasSubstr("no command that ends a motion"));
        return;
    }
    EXPECT_EQ(rig.driver->Stop(1), Status::Done) << rig.LogText();
    const Counts stopped = rig.Truth();
    EXPECT_LE(stopped[0] - at[0], 200);
    rig.Wait(milliseconds(3000));
    EXPECT_EQ(rig.Truth(), stopped);
    ASSERT_EQ(rig.Read(counts), Status::Done) << rig.LogText();
    EXPECT_NEAR(counts[0], stopped[0], 1);
    ASSERT_EQ(rig.driver->MoveTo(Start), Status::Done) << rig.LogText();
    rig.Wait(milliseconds(2500));
    EXPECT_EQ(rig.Truth(), Start);
}

TEST_P(GcodeNeedleTest, StopOfANumberThatIsNotThereFails) {
    EXPECT_EQ(rig.driver->Stop(0), Status::NotConnected);
    EXPECT_EQ(rig.driver->Stop(2), Status::NotConnected);
    EXPECT_EQ(rig.driver->Stop(5), Status::NotConnected);
}

TEST_P(GcodeNeedleTest, NothingIsOpenedBeforeTheFirstCallAndOnceOnly) {
    EXPECT_EQ(rig.Device().cable.openings, 0);
    rig.Count();
    rig.Read(counts);
    rig.driver->MoveTo({10000, 12500, 12500});
    std::int32_t answer = 0;
    rig.driver->Select(1, answer);
    EXPECT_EQ(rig.Device().cable.openings, 1);
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Device().cable.openings, 2);
}

TEST_P(GcodeNeedleTest, ConnectingSendsNothingThatMovesUnlocksResetsOrSets) {
    ASSERT_EQ(rig.Count(), 1);
    rig.driver->Reconnect();
    for (const std::string& line : rig.ControllerOf().Heard()) {
        EXPECT_THAT((std::vector<std::string>{"?", "$$", "$I", "M115", "M503", "M211", "M114", "M58", "M57",
                                              "M53", "M50"}),
                    ::testing::Contains(line));
    }
}

TEST_P(GcodeNeedleTest, TwoNeedlesAreTwoNeedlesWhicheverIsSelected) {
    NeedleRig two(GetParam(), 2);
    EXPECT_EQ(two.Count(), 2);
    std::int32_t answer = 0;
    ASSERT_EQ(two.driver->Select(2, answer), Status::Done);
    EXPECT_EQ(answer, 1);
    ASSERT_EQ(two.driver->MoveTo({10500, 12500, 12500}), Status::Done);
    two.Wait(milliseconds(300));
    EXPECT_EQ(two.Truth(1), Start);
    EXPECT_EQ(two.Truth(2), (Counts{10500, 12500, 12500}));
    std::int32_t number = 0;
    ASSERT_EQ(two.driver->GetPosition(number, counts), Status::Done);
    EXPECT_EQ(number, 2);
    ASSERT_EQ(two.driver->Select(1, answer), Status::Done);
    ASSERT_EQ(two.driver->GetPosition(number, counts), Status::Done);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(counts, Start);
}

TEST_P(GcodeNeedleTest, ASelectOfANumberThatIsNotThereFailsAndLeavesTheSelection) {
    ASSERT_EQ(rig.Count(), 1);
    for (const std::int32_t number : {0, 2, 4, 5, -1, 2147483647}) {
        std::int32_t answer = 0;
        EXPECT_EQ(rig.driver->Select(number, answer), Status::NotConnected);
        EXPECT_EQ(answer, 0);
    }
    EXPECT_EQ(rig.Read(counts), Status::Done);
}

TEST_P(GcodeNeedleTest, ANeedleThatIsMissingInBetweenKeepsItsNumber) {
    NeedleRig two(GetParam(), 2);
    two.Device(1).cable.isPlugged = false;
    EXPECT_EQ(two.Count(), 2);
    std::int32_t number = 0;
    ASSERT_EQ(two.driver->GetPosition(number, counts), Status::Done);
    EXPECT_EQ(number, 2);
}

TEST_P(GcodeNeedleTest, WithNoNeedleEveryOperationFailsAndTheCountIs0) {
    rig.WriteSettings("");
    std::int32_t answer = 0;
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_EQ(rig.Read(counts), Status::NotConnected);
    EXPECT_EQ(rig.driver->MoveTo(Start), Status::NotConnected);
    EXPECT_EQ(rig.driver->Select(1, answer), Status::NotConnected);
    EXPECT_EQ(rig.driver->Reconnect(), Status::Done);
}

TEST(GcodeNeedleOfGrblTest, TheWorkPositionWithItsOffsetDoesAsWell) {
    NeedleRig rig(DialectName::Grbl);
    auto& grbl = dynamic_cast<GrblController&>(rig.ControllerOf());
    grbl.Set(10, 2);
    grbl.SetWorkOffset({1.5, -2, 3});
    Counts counts{};
    ASSERT_EQ(rig.Read(counts), Status::Done) << rig.LogText();
    EXPECT_EQ(counts, Start);
    grbl.SetWorkOffset({-4, -2, 3});
    ASSERT_EQ(rig.Read(counts), Status::Done);
    EXPECT_EQ(counts, Start);
    ASSERT_EQ(rig.driver->MoveTo({9600, 12500, 12500}), Status::Done);
    rig.Wait(milliseconds(100));
    EXPECT_EQ(rig.Truth(), (Counts{9600, 12500, 12500}));
}

TEST(GcodeNeedleOfGrblTest, EveryMaskOfReportsDoes) {
    for (int mask = 0; mask < 4; ++mask) {
        NeedleRig rig(DialectName::Grbl);
        auto& grbl = dynamic_cast<GrblController&>(rig.ControllerOf());
        grbl.Set(10, mask);
        grbl.SetWorkOffset({1, 2, 3});
        for (int reading = 0; reading < 100; ++reading) {
            Counts counts{};
            ASSERT_EQ(rig.Read(counts), Status::Done) << rig.LogText();
            ASSERT_EQ(counts, Start) << mask;
        }
    }
}

TEST(GcodeNeedleOfGrblTest, InchesAreRefusedNotTakenForMillimetres) {
    NeedleRig rig(DialectName::Grbl);
    dynamic_cast<GrblController&>(rig.ControllerOf()).Set(13, 1);
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_THAT(rig.LogText(), HasSubstr("set $13=0"));
}

TEST(GcodeNeedleOfGrblTest, WithoutHomingItIsTakenOnlyWhereThatIsMeant) {
    NeedleRig rig(DialectName::Grbl);
    dynamic_cast<GrblController&>(rig.ControllerOf()).Set(22, 0);
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_THAT(rig.LogText(), HasSubstr("homing is off at the controller"));
    rig.WriteSettings(SectionText(1, DialectName::Grbl, NeedleRig::PortOf(1)) + "homing = none\n");
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 1);
}

TEST(GcodeNeedleOfGrblTest, ItsOwnSoftLimitsHoldBeforeAnythingIsSent) {
    NeedleRig rig(DialectName::Grbl);
    auto& grbl = dynamic_cast<GrblController&>(rig.ControllerOf());
    grbl.Set(130, 28.5);
    ASSERT_EQ(rig.Count(), 1) << rig.LogText();
    grbl.ForgetHeard();
    EXPECT_EQ(rig.driver->MoveTo({499, 12500, 12500}), Status::OutOfRange);
    EXPECT_TRUE(grbl.Heard().empty());
    EXPECT_EQ(rig.driver->MoveTo({500, 12500, 12500}), Status::Done);
}

TEST(GcodeNeedleOfMarlinTest, AControllerThatDoesNotTellItsStepsIsRefused) {
    NeedleRig rig(DialectName::Marlin);
    dynamic_cast<MarlinController&>(rig.ControllerOf()).TellCount(false);
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_THAT(rig.LogText(), HasSubstr("does not tell the steps"));
}

TEST(GcodeNeedleOfMarlinTest, CoordinatesThatAreNotThoseOfTheStepsAreRefused) {
    NeedleRig rig(DialectName::Marlin);
    dynamic_cast<MarlinController&>(rig.ControllerOf()).SetOffset({0.5, 0, 0});
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_THAT(rig.LogText(), HasSubstr("its coordinates are not those of its steps"));
}

TEST(GcodeNeedleOfMarlinTest, AMoveThatWantsHomingFirstIsAFailure) {
    NeedleRig rig(DialectName::Marlin);
    ASSERT_EQ(rig.Count(), 1);
    dynamic_cast<MarlinController&>(rig.ControllerOf()).AskForHoming(true);
    EXPECT_EQ(rig.driver->MoveTo({9600, 12500, 12500}), Status::Refused);
    rig.Wait(milliseconds(500));
    EXPECT_EQ(rig.Truth(), Start);
}

TEST(GcodeNeedleOfMarlinTest, RelativeModeLeftBehindByAnotherHostDoesNotMakeAMoveRelative) {
    NeedleRig rig(DialectName::Marlin);
    ASSERT_EQ(rig.Count(), 1);
    rig.ControllerOf().Receive("G91\n", rig.ports.clock.now);
    ASSERT_EQ(rig.driver->MoveTo({9600, 12500, 12500}), Status::Done);
    rig.Wait(milliseconds(100));
    EXPECT_EQ(rig.Truth(), (Counts{9600, 12500, 12500}));
}

TEST(GcodeNeedleOfMarlinTest, AfterAStopWithoutARampItIsNotTrustedUnlessTheSettingsSayThatItKeepsItsSteps) {
    NeedleRig rig(DialectName::Marlin);
    Counts counts{};
    ASSERT_EQ(rig.Count(), 1);
    ASSERT_EQ(rig.driver->MoveTo({17500, 12500, 12500}), Status::Done);
    rig.Wait(milliseconds(500));
    EXPECT_EQ(rig.driver->Stop(1), Status::Done);
    const Counts stopped = rig.Truth();
    rig.Wait(milliseconds(2000));
    EXPECT_EQ(rig.Truth(), stopped);
    EXPECT_EQ(rig.Read(counts), Status::NotConnected);
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_THAT(rig.LogText(), HasSubstr("stopped without a ramp: home it, or unlock it, with travo-gcode"));
}

TEST(GcodeNeedleOfOmmTest, BusyIsAFailureAndNothingMoves) {
    NeedleRig rig(DialectName::Omm);
    ASSERT_EQ(rig.Count(), 1);
    dynamic_cast<OmmController&>(rig.ControllerOf()).SetBusy(true);
    EXPECT_EQ(rig.driver->MoveTo({9600, 12500, 12500}), Status::Refused);
    rig.Wait(milliseconds(500));
    EXPECT_EQ(rig.Truth(), Start);
    dynamic_cast<OmmController&>(rig.ControllerOf()).SetBusy(false);
    EXPECT_EQ(rig.driver->MoveTo({9600, 12500, 12500}), Status::Done);
}

}  // namespace
}  // namespace gcode::test
