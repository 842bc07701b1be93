#include "drivers/gcode/MarlinReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace gcode {
namespace {

using Kind = MarlinLine::Kind;
using ::testing::ElementsAre;

TEST(MarlinReaderTest, OkHasItsForms) {
    for (const char* text : {"ok", "ok N12 P15 B3", "ok T:44 /0 B:45 /0 @:0 B@:0", " ok ", "ok 2"}) {
        EXPECT_EQ(ReadMarlin(text).kind, Kind::Ok) << text;
    }
    for (const char* text : {"okay", "OK", "o k", "not ok"}) {
        EXPECT_EQ(ReadMarlin(text).kind, Kind::Other) << text;
    }
}

TEST(MarlinReaderTest, BusyAndWaitAreNoAnswers) {
    for (const char* text :
         {"busy: processing", "echo:busy: processing", "echo:busy: paused for user", "wait"}) {
        EXPECT_EQ(ReadMarlin(text).kind, Kind::Busy) << text;
    }
}

TEST(MarlinReaderTest, AStartIsKnownByAnyOfItsLines) {
    for (const char* text : {"start", "Marlin 1.1.0", "echo:Marlin 1.0.0", "echo: External Reset", "PowerUp",
                             "echo: Watchdog Reset"}) {
        EXPECT_EQ(ReadMarlin(text).kind, Kind::Start) << text;
    }
}

TEST(MarlinReaderTest, ErrorsResendsAndRefusalsAreTold) {
    EXPECT_EQ(ReadMarlin("Error:Printer halted. kill() called!").kind, Kind::Error);
    EXPECT_EQ(ReadMarlin("!!").kind, Kind::Error);
    EXPECT_EQ(ReadMarlin("Resend: 12").kind, Kind::Resend);
    EXPECT_EQ(ReadMarlin("rs 12").kind, Kind::Resend);
    EXPECT_EQ(ReadMarlin("echo:Unknown command: \"M999\"").kind, Kind::Unknown);
    EXPECT_EQ(ReadMarlin("echo:Home XYZ First").kind, Kind::HomeFirst);
    EXPECT_EQ(ReadMarlin("echo:Home X/Y/Z First").kind, Kind::HomeFirst);
}

TEST(MarlinReaderTest, ThePositionOfTheManualIsReadWithItsSteps) {
    const MarlinLine line = ReadMarlin("X:0.00 Y:127.00 Z:145.00 E:0.00 Count X: 0 Y:10160 Z:116000");
    ASSERT_EQ(line.kind, Kind::Position);
    EXPECT_THAT(line.position.projected, ElementsAre(0, 127, 145));
    EXPECT_THAT(*line.position.steps, ElementsAre(0, 10160, 116000));
}

TEST(MarlinReaderTest, APositionMayLackExtruderOrStepsOrHaveMore) {
    EXPECT_FALSE(ReadMarlin("X:1.00 Y:-2.00 Z:3.00 E:0.00").position.steps);
    EXPECT_THAT(*ReadMarlin("X:1.00 Y:2.00 Z:3.00 Count X:-80 Y:160 Z:1200").position.steps,
                ElementsAre(-80, 160, 1200));
    EXPECT_EQ(ReadMarlin("X:1.00 Y:2.00 Z:3.00 E:4.00 Count X:80 Y:160 Z:1200 E:5").kind, Kind::Position);
}

TEST(MarlinReaderTest, ALineThatIsNotWholeIsNoPosition) {
    for (const char* text :
         {"X:1.00", "X:1.00 Y:2.00", "X:1.00 Y:2.00 Z:", "X:1.00 Y:2.00 Z:x", "X:1.00 Z:2.00 Y:3.00",
          "X:1.00 Y:2.00 Z:3.00 Count", "X:1.00 Y:2.00 Z:3.00 Count X:80",
          "X:1.00 Y:2.00 Z:3.00 Count X:80 Y:160 Z:", "X:1.00 Y:2.00 Z:3.00 Count X:80 Y:160 Z:12.5",
          "X:1.00 Y:2.00 Z:3.00 Count X:80 Y:160 Z:1200 ok", "Count X:80 Y:160 Z:1200",
          "Y:2.00 Z:3.00 Count X:80 Y:160 Z:1200", "X:1.00 Y:2.00 Z:3.00 T:3",
          "X:1.00 Y:2.0X:1.00 Y:2.00 Z:3.00 E:0.00 Count X:80 Y:160 Z:1200"}) {
        EXPECT_EQ(ReadMarlin(text).kind, Kind::Broken) << text;
    }
}

TEST(MarlinReaderTest, TheSettingsOfM503AreReadByTheirCode) {
    const MarlinLine steps = ReadMarlin("echo:  M92 X80.00 Y80.00 Z400.00 E401.30");
    EXPECT_EQ(steps.kind, Kind::Setting);
    EXPECT_EQ(steps.number, 92);
    EXPECT_THAT(*WordTriple(steps.text), ElementsAre(80, 80, 400));
    EXPECT_EQ(ReadMarlin("M203 X500.00 Y500.00 Z6.00 E60.00").number, 203);
    EXPECT_EQ(Word(ReadMarlin("echo: M204 P3000.00 R3000.00 T2500.00").text, 'T'), 2500);
    EXPECT_EQ(ReadMarlin("echo:Steps per unit:").kind, Kind::Other);
    EXPECT_FALSE(WordTriple("M92 X80.00 Y80.00"));
}

TEST(MarlinReaderTest, SoftEndstopsAreReadWhereTheyAreOn) {
    const MarlinLine on =
        ReadMarlin("echo:Soft endstops: On  Min: X0.00 Y-1.00 Z0.00   Max: X200.00 Y210.00 Z220.00");
    EXPECT_EQ(on.kind, Kind::SoftEndstops);
    EXPECT_THAT(*on.min, ElementsAre(0, -1, 0));
    EXPECT_THAT(*on.max, ElementsAre(200, 210, 220));
    EXPECT_THAT(*ReadMarlin("M211 S1 ; ON  Min: X0.00 Y0.00 Z0.00   Max: X20.00 Y20.00 Z20.00").max,
                ElementsAre(20, 20, 20));
    const MarlinLine off =
        ReadMarlin("Soft endstops: Off  Min: X0.00 Y0.00 Z0.00   Max: X200.00 Y200.00 Z200.00");
    EXPECT_EQ(off.kind, Kind::SoftEndstops);
    EXPECT_FALSE(off.min || off.max);
}

TEST(MarlinReaderTest, FirmwareAndItsCapabilitiesAreRead) {
    EXPECT_EQ(ReadMarlin("FIRMWARE_NAME:Marlin 1.1.0 (Github) SOURCE_CODE_URL:x").text,
              "Marlin 1.1.0 (Github) SOURCE_CODE_URL:x");
    const MarlinLine capability = ReadMarlin("Cap:EMERGENCY_PARSER:1");
    EXPECT_EQ(capability.kind, Kind::Capability);
    EXPECT_EQ(capability.text, "EMERGENCY_PARSER");
    EXPECT_EQ(capability.number, 1);
    EXPECT_EQ(ReadMarlin("Cap:EEPROM").kind, Kind::Other);
}

TEST(MarlinReaderTest, EchoesAndCommentsAreNothing) {
    for (const char* text : {"echo:", "echo:SD card ok", "//action:pause", "", "T:44 E:0 B:45", "echo:M"}) {
        EXPECT_EQ(ReadMarlin(text).kind, Kind::Other) << text;
    }
}

}  // namespace
}  // namespace gcode
