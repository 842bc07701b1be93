#include "workbench/instruments/Gauge.h"

#include <gtest/gtest.h>

#include "workbench/instruments/InstrumentText.h"

namespace workbench {

using std::chrono::milliseconds;

namespace {

struct Rig {
    std::string Tell(std::string_view bytes) { return AnswerOf(gauge, bytes, end); }
    std::string ReadAt(std::int64_t focusCounts) {
        world.Optics().MoveFocus(focusCounts, end);
        end += std::chrono::hours(1);
        return Tell("Ar\r\n");
    }

    World world;
    Gauge gauge{world};
    Time end = milliseconds(0);
};

}  // namespace

TEST(GaugeTest, AnswersAReadingWithSignAndThreeDigitsBehindThePoint) {
    Rig desk;
    EXPECT_EQ(desk.ReadAt(0), "A+00.000\r\n");
    EXPECT_EQ(desk.ReadAt(123400), "A+01.234\r\n");
    EXPECT_EQ(desk.ReadAt(-50000), "A-00.500\r\n");
    EXPECT_EQ(desk.ReadAt(-40), "A+00.000\r\n");
    EXPECT_EQ(desk.ReadAt(-50), "A-00.001\r\n");
    EXPECT_EQ(desk.ReadAt(FocusRange), "A+40.000\r\n");
}

TEST(GaugeTest, ItsWholeRangeFitsTheDisplay) {
    Rig desk;
    desk.ReadAt(FocusRange);
    EXPECT_EQ(desk.Tell("ARES\r\n"), "");
    EXPECT_EQ(desk.Tell("Ar\r\n"), "A+00.000\r\n");
    EXPECT_EQ(desk.ReadAt(-FocusRange), "A-80.000\r\n");
}

TEST(GaugeTest, SaysNothingUnlessItIsAskedForAReading) {
    Rig desk;
    desk.world.Optics().MoveFocus(5000, milliseconds(0));
    EXPECT_EQ(SaidAt(desk.gauge, milliseconds(9000)), "");
    EXPECT_EQ(desk.Tell("ARES\r\nKEYOFF\r\nKEYON\r\n"), "");
}

TEST(GaugeTest, PassesOverWhatItDoesNotKnow) {
    Rig desk;
    for (const char* line : {"\r\n", "AR\r\n", "Ar \r\n", "xAr\r\n", "Ar\r", "Ar\n", "\r\n"}) {
        EXPECT_EQ(desk.Tell(line), "") << line;
    }
    EXPECT_EQ(desk.Tell("Ar\r\n"), "A+00.000\r\n");
    EXPECT_EQ(desk.Tell(std::string(300, 'x')), "");
    EXPECT_EQ(desk.Tell("\r\nAr\r\n"), "A+00.000\r\n");
}

TEST(GaugeTest, ALineEndMayComeInTwoPieces) {
    Rig desk;
    EXPECT_EQ(desk.Tell("Ar\r"), "");
    EXPECT_EQ(desk.Tell("\nAr"), "A+00.000\r\n");
    EXPECT_EQ(desk.Tell(std::string(300, 'x') + "\r"), "");
    EXPECT_EQ(desk.Tell("\nAr\r\n"), "A+00.000\r\n");
}

TEST(GaugeTest, ItsKeysWorkUnlessTheyAreDisabled) {
    Rig desk;
    desk.ReadAt(10000);
    desk.Tell("KEYOFF\r\n");
    EXPECT_FALSE(desk.gauge.KeysEnabled());
    EXPECT_FALSE(desk.gauge.PressZeroKey(desk.end));
    EXPECT_EQ(desk.Tell("Ar\r\n"), "A+00.100\r\n");
    desk.Tell("KEYON\r\n");
    EXPECT_TRUE(desk.gauge.PressZeroKey(desk.end));
    EXPECT_EQ(desk.Tell("Ar\r\n"), "A+00.000\r\n");
}

TEST(GaugeTest, OutOfOrderItAnswersEightCharactersThatAreNoNumber) {
    Rig desk;
    desk.gauge.GiveGarbage(true);
    for (int reading = 0; reading < 50; ++reading) {
        const std::string said = desk.Tell("Ar\r\n");
        ASSERT_EQ(said.size(), 10U);
        EXPECT_EQ(said[0], 'A');
        EXPECT_EQ(said.find_first_of("0123456789."), std::string::npos);
    }
    desk.gauge.GiveGarbage(false);
    EXPECT_EQ(desk.Tell("Ar\r\n"), "A+00.000\r\n");
}

TEST(GaugeTest, CountsCommandsByTheirNames) {
    Rig desk;
    desk.Tell("Ar\r\nAr\r\nKEYOFF\r\nKEYON\r\nARES\r\nwhat\r\n");
    const Instrument::Counters expected = {
        {"ARES", 1}, {"Ar", 2}, {"KEYOFF", 1}, {"KEYON", 1}, {"unknown", 1}};
    EXPECT_EQ(desk.gauge.Received(), expected);
    EXPECT_EQ(desk.gauge.FloodLine(3, desk.end), "A+00.000\r\n");
}

}  // namespace workbench
