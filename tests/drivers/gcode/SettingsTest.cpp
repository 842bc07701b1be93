#include "drivers/gcode/Settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace gcode {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string Whole =
    "# two needles\r\n"
    "[needle 1]\r\n"
    "port = /dev/serial/by-id/usb-one\r\n"
    "dialect = grbl\r\n"
    "counts-per-mm = 1000\r\n"
    "x = +Z\r\n"
    "y = -X\r\n"
    "z = +Y\r\n"
    "zero = -1, -2.5, -30\r\n"
    "\r\n"
    "; the other one\n"
    "[needle 4]\n"
    "port=/dev/ttyACM1\n"
    "dialect=omm\n"
    "baud=460800\n"
    "counts-per-mm=20000.5\n"
    "x=+X\ny=+Y\nz=-Z\n"
    "zero=0,0,0\n"
    "speed-limit=5\n"
    "acceleration=100\n"
    "min=-5,-5,-5\n"
    "max=5,5,5.25\n"
    "homing=none\n";

// One section, with one of its lines replaced, or one more at its end.
std::string With(const std::string& key, const std::string& line) {
    std::string text = "[needle 2]\n";
    bool isReplaced = false;
    for (const std::string pair : {"port = /dev/ttyUSB0", "dialect = grbl", "counts-per-mm = 1000", "x = +X",
                                   "y = +Y", "z = +Z", "zero = 0, 0, 0"}) {
        const bool isIt = pair.starts_with(key + " ");
        isReplaced = isReplaced || isIt;
        text += (isIt ? line : pair) + "\n";
    }
    return text + (isReplaced ? "" : line + "\n");
}

struct Told {
    int line = 0;
    std::string text;
};

Told OnlyMistake(const std::string& text) {
    const Settings settings = ReadSettings(text);
    EXPECT_EQ(settings.mistakes.size(), 1U) << text;
    EXPECT_FALSE(settings.needles[1]) << text;
    return settings.mistakes.empty() ? Told{} : Told{settings.mistakes[0].line, settings.mistakes[0].text};
}

TEST(GcodeSettingsTest, AWholeFileIsReadWithWhatIsUsualInThePlaceOfWhatIsNotGiven) {
    const Settings settings = ReadSettings(Whole);
    EXPECT_THAT(settings.mistakes, IsEmpty());
    ASSERT_TRUE(settings.needles[0]);
    EXPECT_FALSE(settings.needles[1]);
    EXPECT_FALSE(settings.needles[2]);
    ASSERT_TRUE(settings.needles[3]);
    const NeedleSettings& one = *settings.needles[0];
    EXPECT_EQ(one.number, 1);
    EXPECT_EQ(one.port, "/dev/serial/by-id/usb-one");
    EXPECT_EQ(one.dialect, DialectName::Grbl);
    EXPECT_EQ(one.baud, 115200);
    EXPECT_EQ(one.countsPerMm, 1000);
    EXPECT_EQ(one.axes[0].axis, 2U);
    EXPECT_EQ(one.axes[1].axis, 0U);
    EXPECT_EQ(one.axes[1].sign, -1);
    EXPECT_THAT(one.zero, ElementsAre(-1, -2.5, -30));
    EXPECT_TRUE(one.homingRequired);
    EXPECT_FALSE(one.quickStopKeepsPosition);
    EXPECT_FALSE(one.speedLimit || one.acceleration || one.min || one.max);
    const NeedleSettings& four = *settings.needles[3];
    EXPECT_EQ(four.dialect, DialectName::Omm);
    EXPECT_EQ(four.baud, 460800);
    EXPECT_EQ(four.countsPerMm, 20000.5);
    EXPECT_EQ(four.speedLimit, 5);
    EXPECT_EQ(four.acceleration, 100);
    EXPECT_THAT(*four.min, ElementsAre(-5, -5, -5));
    EXPECT_THAT(*four.max, ElementsAre(5, 5, 5.25));
    EXPECT_FALSE(four.homingRequired);
}

TEST(GcodeSettingsTest, EachDialectHasItsUsualRate) {
    EXPECT_EQ(UsualBaud(DialectName::Grbl), 115200);
    EXPECT_EQ(UsualBaud(DialectName::Marlin), 250000);
    EXPECT_EQ(UsualBaud(DialectName::Omm), 921600);
}

TEST(GcodeSettingsTest, EveryWrongValueIsToldWithItsLineAndMakesThatNeedleAbsent) {
    struct Case {
        std::string key, line, text;
        int number;
    };
    const std::vector<Case> cases{
        {"port", "port = ttyUSB0", "port: the port must be the whole path", 2},
        {"port", "port =", "port: has no value", 2},
        {"dialect", "dialect = Grbl", "dialect: the dialect must be grbl, marlin or omm", 3},
        {"baud", "baud = 115200.5", "baud: the baud rate must be a whole number", 9},
        {"baud", "baud = 299", "baud: the baud rate", 9},
        {"baud", "baud = 4000001", "baud: the baud rate", 9},
        {"counts-per-mm", "counts-per-mm = 0", "counts-per-mm: must be a number above 0", 4},
        {"counts-per-mm", "counts-per-mm = -5", "counts-per-mm: must be a number above 0", 4},
        {"counts-per-mm", "counts-per-mm = 1e3", "counts-per-mm: must be a number above 0", 4},
        {"counts-per-mm", "counts-per-mm = nan", "counts-per-mm: must be a number above 0", 4},
        {"counts-per-mm", "counts-per-mm = 1000001", "counts-per-mm: must be a number above 0", 4},
        {"x", "x = X", "x: must be a sign and an axis", 5},
        {"x", "x = +A", "x: must be a sign and an axis", 5},
        {"y", "y = *Y", "y: must be a sign and an axis", 6},
        {"z", "z = +ZZ", "z: must be a sign and an axis", 7},
        {"zero", "zero = 0, 0", "zero: must be three numbers", 8},
        {"zero", "zero = 0, 0, 0, 0", "zero: must be three numbers", 8},
        {"zero", "zero = 0, o, 0", "zero: must be three numbers", 8},
        {"zero", "zero = 0; 0; 0", "zero: must be three numbers", 8},
        {"speed-limit", "speed-limit = 0", "speed-limit: must be a number above 0", 9},
        {"acceleration", "acceleration = fast", "acceleration: must be a number above 0", 9},
        {"min", "min = 1,2", "min: must be three numbers", 9},
        {"max", "max = 1 2 3", "max: must be three numbers", 9},
        {"homing", "homing = yes", "homing: must be required or none", 9},
        {"quick-stop", "quick-stop = home", "quick-stop: must be keep or distrust", 9},
        {"colour", "colour = red", "\"colour\" is not a key", 9},
        {"Port", "Port = /dev/ttyUSB1", "\"Port\" is not a key", 9},
        {"x ", "x = +X", "x stands in line 5 already", 9},
        {"x ", "port /dev/ttyUSB1", "neither a section nor a key with a value", 9},
        {"x ", std::string("baud = 9600\x01"), "bytes that are no text", 9},
        {"x ", std::string("baud = 9600\0", 12), "bytes that are no text", 9},
    };
    for (const Case& wrong : cases) {
        const Told told = OnlyMistake(With(wrong.key, wrong.line));
        EXPECT_THAT(told.text, HasSubstr(wrong.text)) << wrong.line;
        EXPECT_EQ(told.line, wrong.number) << wrong.line;
    }
}

TEST(GcodeSettingsTest, EachNeededKeyThatIsMissingIsToldAtTheSection) {
    for (const std::string key : {"port", "dialect", "counts-per-mm", "x", "y", "z", "zero"}) {
        const Told told = OnlyMistake(With(key, ""));
        EXPECT_EQ(told.text, "needle 2 has no key " + key);
        EXPECT_EQ(told.line, 1);
    }
}

TEST(GcodeSettingsTest, AnAxisOfTheControllerServesOneOfOursOnly) {
    EXPECT_EQ(OnlyMistake(With("y", "y = -X")).text,
              "x, y and z must be three different axes of the controller");
    EXPECT_EQ(OnlyMistake(With("z", "z = +Y")).text,
              "x, y and z must be three different axes of the controller");
    EXPECT_EQ(OnlyMistake(With("z", "z = +X")).text,
              "x, y and z must be three different axes of the controller");
}

TEST(GcodeSettingsTest, LimitsThatLeaveNoRoomAreAMistake) {
    EXPECT_EQ(OnlyMistake(With("min", "min = 0, 0, 5\nmax = 1, 1, 5")).text,
              "min must lie below max on every axis");
}

TEST(GcodeSettingsTest, AControllerThatDoesNotTellItsSpeedsNeedsThemInTheSettings) {
    EXPECT_THAT(OnlyMistake(With("dialect", "dialect = omm")).text,
                HasSubstr("speed-limit and acceleration are needed"));
}

TEST(GcodeSettingsTest, ASectionThatStandsTwiceMakesItsNeedleAbsent) {
    const Settings settings = ReadSettings(With("baud", "") + With("baud", ""));
    EXPECT_FALSE(settings.needles[1]);
    ASSERT_EQ(settings.mistakes.size(), 1U);
    EXPECT_EQ(settings.mistakes[0].text, "needle 2 has a section already, in line 1");
    EXPECT_EQ(settings.mistakes[0].line, 10);
}

TEST(GcodeSettingsTest, ASectionOfAnotherNameIsToldAndTakesNoOtherWithIt) {
    for (const std::string name :
         {"[needle 0]", "[needle 5]", "[needle]", "[Needle 1]", "[needle 1", "[needle one]"}) {
        const Settings settings = ReadSettings(With("baud", "baud = 9600") + name + "\nbaud = 9600\n");
        EXPECT_TRUE(settings.needles[1]) << name;
        ASSERT_EQ(settings.mistakes.size(), 1U) << name;
        EXPECT_THAT(settings.mistakes[0].text, HasSubstr("a section must be [needle 1] to [needle 4]"))
            << name;
        EXPECT_EQ(settings.mistakes[0].line, 10) << name;
    }
}

TEST(GcodeSettingsTest, AKeyAheadOfTheFirstSectionIsTold) {
    const Settings settings = ReadSettings("baud = 9600\n" + With("baud", "baud = 9600"));
    EXPECT_TRUE(settings.needles[1]);
    ASSERT_EQ(settings.mistakes.size(), 1U);
    EXPECT_EQ(settings.mistakes[0].line, 1);
    EXPECT_EQ(settings.mistakes[0].text, "a key stands ahead of the first section: baud");
}

TEST(GcodeSettingsTest, TwoNeedlesOnOnePortAreBothAbsentSinceNobodyKnowsWhichIsMeant) {
    std::string other = With("baud", "");
    other.replace(0, 10, "[needle 3]");
    const Settings settings = ReadSettings(With("baud", "") + other);
    EXPECT_FALSE(settings.needles[1]);
    EXPECT_FALSE(settings.needles[2]);
    ASSERT_EQ(settings.mistakes.size(), 2U);
    EXPECT_EQ(settings.mistakes[0].text, "needle 2 names the port of another needle: /dev/ttyUSB0");
    EXPECT_EQ(settings.mistakes[0].line, 1);
    EXPECT_EQ(settings.mistakes[1].line, 10);
}

TEST(GcodeSettingsTest, AFileOfMoreThan64KilobytesIsNotRead) {
    const Settings settings = ReadSettings(With("baud", "") + std::string(65536, '\n'));
    EXPECT_FALSE(settings.needles[1]);
    ASSERT_EQ(settings.mistakes.size(), 1U);
    EXPECT_THAT(settings.mistakes[0].text, HasSubstr("longer than 64 kB"));
}

TEST(GcodeSettingsTest, AnEmptyFileHasNoNeedleAndNoMistake) {
    const Settings settings = ReadSettings("");
    EXPECT_THAT(settings.mistakes, IsEmpty());
    for (const auto& needle : settings.needles) {
        EXPECT_FALSE(needle);
    }
}

}  // namespace
}  // namespace gcode
