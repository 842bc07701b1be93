// Bytes that are lost, changed or of nobody on their way from a controller, on each dialect: they never
// become a position, and nothing moves for them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>

#include "drivers/gcode/NeedleRig.h"

namespace gcode::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::minutes;

class GcodeNoiseTest : public ::testing::TestWithParam<DialectName> {
protected:
    NeedleRig rig{GetParam()};
    Counts counts{};
};

INSTANTIATE_TEST_SUITE_P(Each, GcodeNoiseTest,
                         ::testing::Values(DialectName::Grbl, DialectName::Marlin, DialectName::Omm),
                         [](const auto& each) { return std::string(Name(each.param)); });

TEST_P(GcodeNoiseTest, AnAnswerThatIsCutAtAnyByteNeverBecomesAPosition) {
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

TEST_P(GcodeNoiseTest, AnAnswerThatHasLostAnyPieceInItsMiddleNeverBecomesAPosition) {
    ASSERT_EQ(rig.Read(counts), Status::Done);
    int done = 0;
    for (std::size_t from = 0; from < 75; ++from) {
        for (const std::size_t length : {1U, 2U, 3U, 7U, 20U}) {
            bool isLost = false;
            rig.Device().cable.change = [&](std::string bytes) {
                // The first answer with a number in it.
                if (!isLost && bytes.find('.') != std::string::npos && from < bytes.size()) {
                    isLost = true;
                    bytes.erase(from, length);
                }
                return bytes;
            };
            const Status status = rig.Read(counts);
            if (status == Status::Done) {
                ASSERT_EQ(counts, Start) << from << " " << length;
                ++done;
            } else {
                // An acknowledgement was lost: silence is what it looks like.
                ASSERT_EQ(status, Status::Silent) << from << " " << length;
                rig.Device().cable.change = {};
                rig.driver->Reconnect();
                ASSERT_EQ(rig.Read(counts), Status::Done);
            }
        }
    }
    EXPECT_GT(done, 100);
    EXPECT_EQ(rig.MovesHeard(), 0);
}

TEST_P(GcodeNoiseTest, AnAnswerThatComesLateMakesNoJumpOfTheNext) {
    std::string text = SectionText(1, GetParam(), NeedleRig::PortOf(1));
    text.erase(std::min(text.size(), text.find("speed-limit")));
    rig.WriteSettings(text + "speed-limit = 4.1\nacceleration = 200\n");
    ASSERT_EQ(rig.Count(), 1) << rig.LogText();
    ASSERT_EQ(rig.driver->MoveTo({19500, 12500, 12500}), Status::Done);
    rig.Wait(milliseconds(300));
    for (int reading = 0; reading < 4; ++reading) {
        rig.ControllerOf().Slow(reading % 2 == 0 ? milliseconds(55) : milliseconds(0));
        ASSERT_EQ(rig.Read(counts), Status::Done) << rig.LogText();
        EXPECT_NEAR(counts[0], rig.Truth()[0], 300);
    }
}

TEST_P(GcodeNoiseTest, AHalfLineLeftBehindSpoilsNoLaterAnswer) {
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

TEST_P(GcodeNoiseTest, AnAnswerToNobodyIsNoAnswer) {
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

TEST_P(GcodeNoiseTest, AStrayAnswerInTheMiddleOfAnExchangeIsNoPositionEither) {
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

TEST_P(GcodeNoiseTest, ADigitThatChangesOnTheWireNeverBecomesAPosition) {
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

TEST_P(GcodeNoiseTest, TenMinutesOfNoiseNeverBecomeAPositionAndMoveNothing) {
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
        const Time start = rig.ports.clock.now;
        const Status status = rig.Read(counts);
        ASSERT_LE(rig.ports.clock.now - start, milliseconds(1020));
        if (status == Status::Done) {
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

}  // namespace
}  // namespace gcode::test
