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
using std::chrono::minutes;
using std::chrono::seconds;
using ::testing::HasSubstr;

class GcodeFault : public ::testing::TestWithParam<DialectName> {
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

INSTANTIATE_TEST_SUITE_P(Each, GcodeFault,
                         ::testing::Values(DialectName::Grbl, DialectName::Marlin, DialectName::Omm),
                         [](const auto& each) { return std::string(Name(each.param)); });

TEST_P(GcodeFault, ACableOutInAMoveFailsUntilItIsBackAndReconnected) {
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

TEST_P(GcodeFault, AControllerThatIsSilentFailsAfterASecondAndAtOnceFromThenOn) {
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

TEST_P(GcodeFault, AMoveThatIsNotAcknowledgedFailsAndGivesNoPositionUntilReconnected) {
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

TEST_P(GcodeFault, AControllerThatRestartsInAMoveIsNotTrustedUntilItIsHomed) {
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

TEST_P(GcodeFault, ARestartThatNobodyHeardIsKnownByThePositionThatJumps) {
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

TEST_P(GcodeFault, AStartThatIsSaidAtTheOpeningTakesTheTrustAway) {
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

TEST_P(GcodeFault, AnAnswerThatIsCutAtAnyByteNeverBecomesAPosition) {
    for (std::size_t cut = 0; cut < 80; ++cut) {
        NeedleRig own(GetParam());
        ASSERT_EQ(own.Read(counts), Status::Done);
        ASSERT_EQ(own.driver->MoveTo({13500, 12500, 12500}), Status::Done);
        own.Wait(milliseconds(200));
        own.Device().cable.untilCut = cut;
        const Status status = own.Read(counts);
        if (status == Status::Done) {
            EXPECT_NEAR(counts[0], own.Truth()[0], 60) << cut;
            EXPECT_NEAR(counts[1], 12500, 1) << cut;
            EXPECT_NEAR(counts[2], 12500, 1) << cut;
        } else {
            EXPECT_EQ(status, Status::Silent) << cut;
        }
        EXPECT_EQ(own.MovesHeard(), 1);
    }
}

TEST_P(GcodeFault, AHalfLineLeftBehindSpoilsNoLaterAnswer) {
    ASSERT_EQ(rig.Read(counts), Status::Done);
    const char* halves[] = {"<Idle|MPos:1.000,2.",
                            "X:1.00 Y:2.00 Z:3",
                            "X1.00 Y2.00 Z",
                            "o",
                            "ALAR",
                            "X:1.00 Y:2.00 Z:3.00 E:0.00 Count X:80 Y:160 Z:12"};
    for (const char* half : halves) {
        rig.ControllerOf().Say(half, rig.ports.clock.now);
        rig.Wait(milliseconds(200));
        ASSERT_EQ(rig.Read(counts), Status::Done) << half << rig.LogText();
        EXPECT_EQ(counts, Start) << half;
    }
}

TEST_P(GcodeFault, AnAnswerToNobodyIsNoAnswer) {
    ASSERT_EQ(rig.Read(counts), Status::Done);
    const char* strays[] = {"ok\r\n",
                            "error:9\r\n",
                            "error\r\n",
                            "<Idle|MPos:-1.000,-1.000,-1.000|FS:0,0>\r\n",
                            "X:1.00 Y:1.00 Z:1.00 E:0.00 Count X:1600 Y:1600 Z:1600\r\nok\r\n",
                            "X1.000000 Y1.000000 Z1.000000 A0.000000 B0.000000 C0.000000\r\nok\r\n",
                            "0\r\nok\r\n",
                            "echo:busy: processing\r\n",
                            "[MSG:Check Limits]\r\n",
                            "I) hello\r\n"};
    for (const char* stray : strays) {
        rig.ControllerOf().Say(stray, rig.ports.clock.now);
        rig.Wait(milliseconds(200));
        ASSERT_EQ(rig.Read(counts), Status::Done) << stray << rig.LogText();
        EXPECT_EQ(counts, Start) << stray;
    }
}

TEST_P(GcodeFault, AStrayAnswerInTheMiddleOfAnExchangeIsNoPositionEither) {
    const char* strays[] = {"<Idle|MPos:-1.000,-1.000,-1.000|FS:0,0>\r\n",
                            "X:1.00 Y:1.00 Z:1.00 E:0.00 Count X:1600 Y:1600 Z:1600\r\n",
                            "X1.000000 Y1.000000 Z1.000000 A0.000000 B0.000000 C0.000000\r\n", "ok\r\n"};
    for (const char* stray : strays) {
        NeedleRig own(GetParam());
        ASSERT_EQ(own.Read(counts), Status::Done);
        bool isIn = false;
        own.Device().cable.change = [&](std::string bytes) {
            return bytes.empty() || std::exchange(isIn, true) ? bytes : stray + bytes;
        };
        ASSERT_EQ(own.Read(counts), Status::Done) << stray << own.LogText();
        EXPECT_EQ(counts, Start) << stray;
        for (int reading = 0; reading < 5; ++reading) {
            own.Wait(milliseconds(200));
            ASSERT_EQ(own.Read(counts), Status::Done) << stray << own.LogText();
            EXPECT_EQ(counts, Start) << stray;
        }
    }
}

TEST_P(GcodeFault, ADigitThatChangesOnTheWireNeverBecomesAPosition) {
    ASSERT_EQ(rig.Read(counts), Status::Done);
    std::mt19937 random(11);
    int readings = 0;
    for (int round = 0; round < 300; ++round) {
        bool isDone = false;
        // One digit ahead of the first two decimals becomes another: the machine would have jumped.
        rig.Device().cable.change = [&](std::string bytes) {
            const std::size_t point = bytes.find('.');
            if (!isDone && point != std::string::npos && point > 0) {
                isDone = true;
                bytes[point - 1] = static_cast<char>('0' + (bytes[point - 1] - '0' + 1 + random() % 9) % 10);
            }
            return bytes;
        };
        const Status status = rig.Read(counts);
        if (status == Status::Done && GetParam() != DialectName::Marlin) {
            EXPECT_EQ(counts, Start);
        }
        readings += status == Status::Done ? 1 : 0;
        rig.Wait(milliseconds(200));
    }
    EXPECT_EQ(readings, 300) << rig.LogText();
}

TEST_P(GcodeFault, TenMinutesOfNoiseNeverBecomeAPositionAndMoveNothing) {
    ASSERT_EQ(rig.Read(counts), Status::Done);
    std::mt19937 random(5);
    // Half of it looks like what controllers say.
    const std::string alphabet = "<>|:,.-0123456789IdleMPosWCOkXYZECount errorALARM\r\n";
    rig.Device().cable.noise = [&](Time from, Time to) {
        std::string bytes;
        for (Time::rep left = (to - from).count() / 2000 + (random() % 4 == 0 ? 1 : 0); left > 0; --left) {
            bytes +=
                random() % 2 == 0 ? static_cast<char>(random() % 256) : alphabet[random() % alphabet.size()];
        }
        return bytes;
    };
    int readings = 0;
    int failures = 0;
    const Time end = rig.ports.clock.now + minutes(10);
    while (rig.ports.clock.now < end) {
        rig.Wait(milliseconds(200));
        if (rig.Read(counts) == Status::Done) {
            ++readings;
            ASSERT_EQ(counts, Start);
        } else {
            ++failures;
            rig.WriteState("needle 1 homed\n");
            rig.driver->Reconnect();
        }
    }
    EXPECT_EQ(rig.Truth(), Start);
    EXPECT_EQ(rig.MovesHeard(), 0);
    RecordProperty("readings", readings);
    RecordProperty("failures", failures);
    EXPECT_GT(failures + readings, 100);
    rig.Device().cable.noise = {};
    rig.WriteState("needle 1 homed\n");
    rig.driver->Reconnect();
    ASSERT_EQ(rig.Read(counts), Status::Done) << rig.LogText();
    EXPECT_EQ(counts, Start);
}

TEST_P(GcodeFault, AWrongBaudRateIsAnAbsentNeedleThatWasSentNothingThatMoves) {
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

TEST_P(GcodeFault, AnotherDialectThanWasSetIsAnAbsentNeedleThatWasSentNothingThatMoves) {
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

TEST_P(GcodeFault, APortThatIsMissingOrForbiddenIsToldAndTakesNoOtherWithIt) {
    NeedleRig two(GetParam(), 2);
    two.Device(1).cable.refusal = "no permission for /dev/simulated1: add the user to the group dialout";
    EXPECT_EQ(two.Count(), 2);
    EXPECT_THAT(two.LogText(), HasSubstr("needle 1: no permission for /dev/simulated1"));
    std::int32_t number = 0;
    ASSERT_EQ(two.driver->GetPosition(number, counts), Status::Done);
    EXPECT_EQ(number, 2);
}

TEST_P(GcodeFault, TwoNeedlesOnOneDeviceUnderTwoNamesAreBothAbsent) {
    NeedleRig two(GetParam(), 2);
    two.Device(1).identity = two.Device(2).identity;
    EXPECT_EQ(two.Count(), 0);
    EXPECT_THAT(two.LogText(), HasSubstr("needle 1: its port is that of another needle"));
    EXPECT_THAT(two.LogText(), HasSubstr("needle 2: its port is that of another needle"));
    EXPECT_EQ(two.Device(1).cable.openings + two.Device(2).cable.openings, 0);
}

TEST_P(GcodeFault, SettingsWithAMistakeAreToldInTheLogWithFileAndLine) {
    rig.WriteSettings(SectionText(1, GetParam(), NeedleRig::PortOf(1)) + "speed = 5\n");
    EXPECT_EQ(rig.Count(), 0);
    EXPECT_THAT(rig.LogText(), HasSubstr("manipulators.ini:"));
    EXPECT_THAT(rig.LogText(), HasSubstr("\"speed\" is not a key"));
    EXPECT_EQ(rig.Device().cable.openings, 0);
}

TEST_P(GcodeFault, AllPortsThatAreSilentTogetherCostOneOpeningTime) {
    NeedleRig four(GetParam(), 4);
    for (int number = 1; number <= 4; ++number) {
        four.ControllerOf(number).Mute(true);
    }
    const Time start = four.ports.clock.now;
    EXPECT_EQ(four.Count(), 0);
    EXPECT_LE(four.ports.clock.now - start, milliseconds(2600));
}

TEST_P(GcodeFault, ABoardThatAnswersTwoSecondsAfterItsOpeningIsThere) {
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

TEST_P(GcodeFault, AnUnhomedControllerIsNotReadyUntilItIsHomed) {
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
