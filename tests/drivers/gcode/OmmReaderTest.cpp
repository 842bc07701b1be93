#include "drivers/gcode/OmmReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace gcode {
namespace {

using Kind = OmmLine::Kind;
using ::testing::ElementsAre;

TEST(OmmReaderTest, ACommandIsAnsweredWithOkErrorOrBusy) {
    EXPECT_EQ(ReadOmm("ok").kind, Kind::Ok);
    EXPECT_EQ(ReadOmm("error").kind, Kind::Error);
    EXPECT_EQ(ReadOmm("error: not homed").text, "error: not homed");
    EXPECT_EQ(ReadOmm("busy").kind, Kind::Busy);
    for (const char* text : {"okay", "OK", "ok 1", "busy:", "an error"}) {
        EXPECT_EQ(ReadOmm(text).kind, Kind::Data) << text;
    }
}

TEST(OmmReaderTest, LinesOfItsLogAreNoData) {
    for (const char* text : {"D) planner", "I) homing", "W) warm", "E) ok", "E)"}) {
        EXPECT_EQ(ReadOmm(text).kind, Kind::Log) << text;
    }
    EXPECT_EQ(ReadOmm("I) homing done").text, "homing done");
    EXPECT_EQ(ReadOmm("X) 1").kind, Kind::Data);
}

TEST(OmmReaderTest, APoseHasItsLettersInTheirOrder) {
    EXPECT_THAT(*OmmPose("X1.500000 Y-2.250000 Z0.000100"), ElementsAre(1.5, -2.25, 0.0001));
    EXPECT_THAT(*OmmPose("X1.50 Y2.50 Z3.50 A0.00 B0.00 C0.00"), ElementsAre(1.5, 2.5, 3.5));
    EXPECT_THAT(*OmmPose("X: 1.50, Y: 2.50, Z: 3.50"), ElementsAre(1.5, 2.5, 3.5));
    EXPECT_THAT(*OmmPose("X=1.50 Y=2.50 Z=3.50"), ElementsAre(1.5, 2.5, 3.5));
}

TEST(OmmReaderTest, AnythingElseIsNoPose) {
    for (const char* text :
         {"", "1.50 2.50 3.50", "X1.50 Y2.50", "X1.50 Y2.50 Z", "X1.50 Z2.50 Y3.50", "X1.50 Y2.50 Z3.5",
          "X1.50 Y2.50 Z3", "X1 Y2 Z3", "X1.50 Y2.50 Z3.50 Q1.00", "X1.50 Y2.50 Z3.50 A0.00 x",
          "X1.50 X1.50 Y2.50 Z3.50", "Y2.50 Z3.50", "x1.50 y2.50 z3.50", "X1.50Y2.50Z3.50",
          "X1.50 Y2.50 Znan", "X+1.50 Y2.50 Z3.50"}) {
        EXPECT_FALSE(OmmPose(text)) << text;
    }
}

TEST(OmmReaderTest, EveryPrefixUpToTheLastNumberAndEverySuffixIsNoPose) {
    const std::string pose = "X1.500000 Y-2.250000 Z0.000100";
    for (std::size_t cut = 1; cut < pose.size(); ++cut) {
        EXPECT_FALSE(OmmPose(pose.substr(0, cut))) << pose.substr(0, cut);
        EXPECT_FALSE(OmmPose(pose.substr(cut))) << pose.substr(cut);
    }
}

TEST(OmmReaderTest, MovesAreFinishedOrNot) {
    EXPECT_EQ(OmmFinished("1"), true);
    EXPECT_EQ(OmmFinished("0"), false);
    for (const char* text : {"", "2", "10", "true", " 1"}) {
        EXPECT_FALSE(OmmFinished(text)) << text;
    }
}

TEST(OmmReaderTest, WhetherAJointIsHomedIsReadWhereItIsSaid) {
    EXPECT_EQ(OmmHomed("joint 0 homed: 1"), true);
    EXPECT_EQ(OmmHomed("Homed=no, angle 3.5"), false);
    EXPECT_EQ(OmmHomed("isHomed true"), true);
    for (const char* text : {"", "homing", "homed", "homed: maybe", "unknown"}) {
        EXPECT_FALSE(OmmHomed(text)) << text;
    }
}

}  // namespace
}  // namespace gcode
