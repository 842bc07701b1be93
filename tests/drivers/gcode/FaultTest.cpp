// What goes wrong on wires and in controllers, on each dialect: nothing moves that was not commanded, no
// stale or foreign position is ever given.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "drivers/gcode/NeedleRig.h"
#include "drivers/gcode/simulator/GrblController.h"
#include "drivers/gcode/simulator/MarlinController.h"
#include "drivers/gcode/simulator/OmmController.h"

namespace gcode::test {
namespace {

using std::chrono::milliseconds;

using std::chrono::seconds;
using ::testing::HasSubstr;

class GcodeFaultTest : public ::testing::TestWithParam<DialectName> {
protected:
    bool IsGrbl() const { return GetParam() == DialectName::Grbl; }
    // What travo-gcode's home does to a controller, and leaves in the file.
    void HomeByHand() {
        rig.ControllerOf().Receive(IsGrbl() ? "$H\n" : "G28\n", rig.ports.clock.now);
        rig.Wait(seconds(5));
        rig.WriteState("needle 1 homed\n");
        rig.ControllerOf().ForgetHeard();
    }

    NeedleRig rig{GetParam()};
    Counts counts{};
};

INSTANTIATE_TEST_SUITE_P(Each, GcodeFaultTest,
                         ::testing::Values(DialectName::Grbl, DialectName::Marlin, DialectName::Omm),
                         [](const auto& each) { return std::string(Name(each.param)); });

TEST_P(GcodeFaultTest, ACableOutInAMoveFailsUntilItIsBackAndReconnected) {
    ASSERT_EQ(rig.Count(), 1);
    ASSERT_EQ(rig.driver->MoveTo({13500, 12500, 12500}), Status::Done);
    rig.Wait(milliseconds(300));
    rig.Device().cable.isPlugged = false;
    EXPECT_EQ(rig.Read(counts), Status::Silent);
    EXPECT_THAT(rig.LogText(), HasSubstr("needle 1: the port has vanished"));
    rig.Device().cable.isPlugged = true;
    const Time start = rig.ports.clock.now;
    for (int tick = 0; tick < 10; ++tick) {
        EXPECT_EQ(rig.Read(counts), Status::NotConnected);
        EXPECT_EQ(rig.driver->MoveTo(Start), Status::NotConnected);
    }
    EXPECT_EQ(rig.ports.clock.now, start);
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_EQ(rig.Device().cable.openings, 1);
    rig.Wait(seconds(1));
    EXPECT_EQ(rig.driver->Reconnect(), Status::Done);
    ASSERT_EQ(rig.Read(counts), Status::Done) << rig.LogText();
    // The controller has finished what it was told, and nothing else.
    EXPECT_EQ(counts, (Counts{13500, 12500, 12500}));
    EXPECT_EQ(rig.MovesHeard(), 1);
}

TEST_P(GcodeFaultTest, AControllerThatIsSilentFailsAfterASecondAndAtOnceFromThenOn) {
    ASSERT_EQ(rig.Count(), 1);
    rig.ControllerOf().Mute(true);
    const Time start = rig.ports.clock.now;
    EXPECT_EQ(rig.Read(counts), Status::Silent);
    EXPECT_GE(rig.ports.clock.now - start, milliseconds(990));
    EXPECT_LE(rig.ports.clock.now - start, milliseconds(1010));
    EXPECT_EQ(rig.Read(counts), Status::NotConnected);
    rig.ControllerOf().Mute(false);
    EXPECT_EQ(rig.Read(counts), Status::NotConnected);
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Read(counts), Status::Done);
}

TEST_P(GcodeFaultTest, AMoveThatIsNotAcknowledgedFailsAndGivesNoPositionUntilReconnected) {
    ASSERT_EQ(rig.Count(), 1);
    ASSERT_EQ(rig.Read(counts), Status::Done);
    // The questions ahead of the move are answered, its own acknowledgement is not.
    rig.Device().cable.change = [this](std::string bytes) {
        return rig.MovesHeard() > 0 ? std::string() : bytes;
    };
    const Time start = rig.ports.clock.now;
    EXPECT_EQ(rig.driver->MoveTo({10500, 12500, 12500}), Status::Silent);
    EXPECT_LE(rig.ports.clock.now - start, seconds(2));
    EXPECT_EQ(rig.Read(counts), Status::NotConnected);
    rig.Device().cable.change = {};
    rig.driver->Reconnect();
    ASSERT_EQ(rig.Read(counts), Status::Done);
    EXPECT_EQ(counts, rig.Truth());
    EXPECT_EQ(rig.MovesHeard(), 1);
}

TEST_P(GcodeFaultTest, AControllerThatRestartsInAMoveIsNotTrustedUntilItIsHomed) {
    ASSERT_EQ(rig.Count(), 1);
    ASSERT_EQ(rig.driver->MoveTo({13500, 12500, 12500}), Status::Done);
    rig.Wait(milliseconds(300));
    rig.ControllerOf().Restart(rig.ports.clock.now);
    const Counts stopped = rig.Truth();
    EXPECT_EQ(rig.Read(counts), Status::NotReady);
    EXPECT_THAT(rig.LogText(), HasSubstr("its position is no longer trusted"));
    rig.Wait(seconds(2));
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_EQ(rig.Read(counts), Status::NotConnected);
    EXPECT_EQ(rig.driver->MoveTo(Start), Status::NotConnected);
    // A new start of the program does not forget it.
    rig.StartDriver();
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_EQ(rig.Truth(), stopped);
    HomeByHand();
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 1) << rig.LogText();
    EXPECT_EQ(rig.MovesHeard(), 0);
}

TEST_P(GcodeFaultTest, ARestartThatNobodyHeardIsKnownByThePositionThatJumps) {
    ASSERT_EQ(rig.Count(), 1);
    rig.ControllerOf().Restart(rig.ports.clock.now);
    rig.ControllerOf().Take(rig.ports.clock.now);
    if (IsGrbl()) {
        dynamic_cast<GrblController&>(rig.ControllerOf()).Enter("");
    }
    rig.Wait(milliseconds(200));
    EXPECT_EQ(rig.Read(counts), Status::NotReady);
    EXPECT_THAT(rig.LogText(), HasSubstr("jumped without a motion"));
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 0);
}

TEST_P(GcodeFaultTest, AStartThatIsSaidAtTheOpeningTakesTheTrustAway) {
    if (IsGrbl()) {
        rig.WriteSettings(SectionText(1, GetParam(), NeedleRig::PortOf(1)) + "homing = none\n");
    }
    bool isFirst = true;
    rig.Device().cable.change = [&](std::string bytes) {
        const std::string banner = IsGrbl() ? "Grbl 1.1h ['$' for help]\r\n" : "start\r\nMarlin 2.1.2\r\n";
        return std::exchange(isFirst, false) ? banner + bytes : bytes;
    };
    if (GetParam() == DialectName::Omm) {
        dynamic_cast<OmmController&>(rig.ControllerOf()).Restart(rig.ports.clock.now);
    }
    EXPECT_EQ(rig.Count(), 0);
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_EQ(rig.MovesHeard(), 0);
}

TEST_P(GcodeFaultTest, AControllerThatIsSlowNeverHoldsACallBeyondItsTime) {
    for (const Time slowness :
         {milliseconds(200), milliseconds(450), milliseconds(600), milliseconds(900), milliseconds(990)}) {
        NeedleRig own(GetParam());
        ASSERT_EQ(own.Count(), 1);
        ASSERT_EQ(own.driver->MoveTo({15500, 12500, 12500}), Status::Done);
        own.Wait(milliseconds(700));
        own.ControllerOf().Slow(slowness);
        const Time start = own.ports.clock.now;
        const Status status = own.driver->MoveTo(Start);
        const Time moved = own.ports.clock.now;
        EXPECT_LE(moved - start, milliseconds(2000)) << slowness.count();
        own.Read(counts);
        EXPECT_LE(own.ports.clock.now - moved, milliseconds(1020)) << slowness.count();
        own.driver->Stop(1);
        EXPECT_LE(own.ports.clock.now - moved, milliseconds(3020)) << slowness.count();
        EXPECT_EQ(own.MovesHeard(), status == Status::Done ? 2 : own.MovesHeard());
    }
}

TEST_P(GcodeFaultTest, AWrongBaudRateIsAnAbsentNeedleThatWasSentNothingThatMoves) {
    std::mt19937 random(3);
    // At another rate each byte becomes others.
    rig.Device().cable.change = [&](std::string bytes) {
        for (char& byte : bytes) {
            byte = static_cast<char>(random() % 256);
        }
        return bytes;
    };
    const Time start = rig.ports.clock.now;
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_LE(rig.ports.clock.now - start, seconds(3));
    EXPECT_THAT(rig.LogText(), HasSubstr("no answer to"));
    EXPECT_EQ(rig.MovesHeard(), 0);
}

TEST_P(GcodeFaultTest, AnotherDialectThanWasSetIsAnAbsentNeedleThatWasSentNothingThatMoves) {
    for (const DialectName other : {DialectName::Grbl, DialectName::Marlin, DialectName::Omm}) {
        if (other == GetParam()) {
            continue;
        }
        NeedleRig own(GetParam());
        own.WriteSettings(SectionText(1, other, NeedleRig::PortOf(1)));
        own.WriteState("needle 1 homed\n");
        EXPECT_EQ(own.Count(), 0) << Name(other) << own.LogText();
        EXPECT_EQ(own.MovesHeard(), 0);
    }
}

TEST_P(GcodeFaultTest, APortThatIsMissingOrForbiddenIsToldAndTakesNoOtherWithIt) {
    NeedleRig two(GetParam(), 2);
    two.Device(1).cable.refusal = "no permission for /dev/simulated1: add the user to the group dialout";
    EXPECT_EQ(two.Count(), 2);
    EXPECT_THAT(two.LogText(), HasSubstr("needle 1: no permission for /dev/simulated1"));
    std::int32_t number = 0;
    ASSERT_EQ(two.driver->GetPosition(number, counts), Status::Done);
    EXPECT_EQ(number, 2);
}

TEST_P(GcodeFaultTest, TwoNeedlesOnOneDeviceUnderTwoNamesAreBothAbsent) {
    NeedleRig two(GetParam(), 2);
    two.Device(1).identity = two.Device(2).identity;
    EXPECT_EQ(two.Count(), 0);
    EXPECT_THAT(two.LogText(), HasSubstr("needle 1: its port is that of another needle"));
    EXPECT_THAT(two.LogText(), HasSubstr("needle 2: its port is that of another needle"));
    EXPECT_EQ(two.Device(1).cable.openings + two.Device(2).cable.openings, 0);
}

TEST_P(GcodeFaultTest, SettingsWithAMistakeAreToldInTheLogWithFileAndLine) {
    rig.WriteSettings(SectionText(1, GetParam(), NeedleRig::PortOf(1)) + "speed = 5\n");
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_THAT(rig.LogText(), HasSubstr("manipulators.ini:"));
    EXPECT_THAT(rig.LogText(), HasSubstr("\"speed\" is not a key"));
    EXPECT_EQ(rig.Device().cable.openings, 0);
}

TEST_P(GcodeFaultTest, AllPortsThatAreSilentTogetherCostOneOpeningTime) {
    NeedleRig four(GetParam(), 4);
    for (int number = 1; number <= 4; ++number) {
        four.ControllerOf(number).Mute(true);
    }
    const Time start = four.ports.clock.now;
    EXPECT_EQ(four.Count(), 0);
    EXPECT_LE(four.ports.clock.now - start, milliseconds(2600));
}

TEST_P(GcodeFaultTest, ABoardThatAnswersTwoSecondsAfterItsOpeningIsThere) {
    rig.ControllerOf().Mute(true);
    const Time up = rig.ports.clock.now + milliseconds(1900);
    rig.Device().cable.noise = [&](Time, Time to) {
        if (to >= up) {
            rig.ControllerOf().Mute(false);
        }
        return std::string();
    };
    // A Micro-Manipulator does not restart when it is opened, and must not be asked again before it has
    // answered.
    EXPECT_EQ(rig.Count(), GetParam() == DialectName::Omm ? 0 : 1) << rig.LogText();
}

TEST_P(GcodeFaultTest, AnUnhomedControllerIsNotReadyUntilItIsHomed) {
    if (IsGrbl()) {
        dynamic_cast<GrblController&>(rig.ControllerOf()).Enter("Alarm");
    } else {
        rig.WriteState("");
        if (GetParam() == DialectName::Omm) {
            dynamic_cast<OmmController&>(rig.ControllerOf()).SetHomed(false);
        }
    }
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_EQ(rig.MovesHeard(), 0);
    HomeByHand();
    rig.driver->Reconnect();
    EXPECT_EQ(rig.Count(), 1) << rig.LogText();
}

}  // namespace
}  // namespace gcode::test
