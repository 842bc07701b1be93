#include "drivers/gcode/GrblReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace gcode {
namespace {

using Kind = GrblLine::Kind;
using ::testing::ElementsAre;

TEST(GrblReaderTest, TheAnswersToACommandAreOkAndErrorsWithTheirNumber) {
    EXPECT_EQ(ReadGrbl("ok").kind, Kind::Ok);
    EXPECT_EQ(ReadGrbl("error:15").kind, Kind::Error);
    EXPECT_EQ(ReadGrbl("error:15").number, 15);
    for (const char* text :
         {"OK", "ok ", " ok", "okay", "error", "error:", "error:x", "error:-1", "Error:1"}) {
        EXPECT_EQ(ReadGrbl(text).kind, Kind::Other) << text;
    }
}

TEST(GrblReaderTest, AnAlarmHasItsNumberAndItsSentence) {
    EXPECT_EQ(ReadGrbl("ALARM:1").kind, Kind::Alarm);
    EXPECT_EQ(ReadGrbl("ALARM:9").number, 9);
    EXPECT_EQ(GrblAlarmText(3), "reset while in motion; the position is probably lost");
    EXPECT_EQ(GrblAlarmText(0), "");
    EXPECT_EQ(GrblAlarmText(10), "");
    EXPECT_EQ(ReadGrbl("ALARM").kind, Kind::Other);
}

TEST(GrblReaderTest, EveryStateOfTheDocumentIsKnownWithItsSubState) {
    const std::pair<const char*, GrblState> states[] = {
        {"Idle", GrblState::Idle},   {"Run", GrblState::Run},      {"Jog", GrblState::Jog},
        {"Home", GrblState::Home},   {"Alarm", GrblState::Alarm},  {"Check", GrblState::Check},
        {"Sleep", GrblState::Sleep}, {"Hold:0", GrblState::Hold},  {"Hold:1", GrblState::Hold},
        {"Door:0", GrblState::Door}, {"Door:1", GrblState::Door},  {"Door:2", GrblState::Door},
        {"Door:3", GrblState::Door}, {"Tool", GrblState::Unknown},
    };
    for (const auto& [text, state] : states) {
        const GrblLine line = ReadGrbl("<" + std::string(text) + "|MPos:0.000,0.000,0.000|FS:0,0>");
        ASSERT_EQ(line.kind, Kind::Status) << text;
        EXPECT_EQ(line.status.state, state) << text;
        EXPECT_EQ(line.status.stateText, text);
    }
}

TEST(GrblReaderTest, AReportTellsTheMachinePositionOrTheWorkPosition) {
    const GrblLine machine = ReadGrbl("<Idle|MPos:0.000,-10.000,5.125>");
    ASSERT_EQ(machine.kind, Kind::Status);
    EXPECT_THAT(*machine.status.machine, ElementsAre(0, -10, 5.125));
    EXPECT_FALSE(machine.status.work);
    const GrblLine work = ReadGrbl("<Run|WPos:-2.500,0.000,11.000|FS:500,8000>");
    ASSERT_EQ(work.kind, Kind::Status);
    EXPECT_THAT(*work.status.work, ElementsAre(-2.5, 0, 11));
    EXPECT_FALSE(work.status.machine);
}

TEST(GrblReaderTest, EveryFieldOfTheDocumentMayStandBehindInAnyOrder) {
    const GrblLine line = ReadGrbl(
        "<Jog|MPos:1.000,2.000,3.000|Bf:15,128|Ln:99999|F:500|FS:500,8000|WCO:0.000,1.551,5.664|Pn:XYZPDHRS|"
        "Ov:100,100,100|"
        "A:SFM>");
    ASSERT_EQ(line.kind, Kind::Status);
    EXPECT_THAT(*line.status.workOffset, ElementsAre(0, 1.551, 5.664));
    EXPECT_THAT(*ReadGrbl("<Idle|WPos:1.000,2.000,3.000|WCO:1.000,1.000,1.000|FS:0,0>").status.workOffset,
                ElementsAre(1, 1, 1));
    EXPECT_EQ(ReadGrbl("<Idle|MPos:1.000,2.000,3.000,4.000|FS:0,0>").kind, Kind::Status);
}

TEST(GrblReaderTest, AReportThatIsNotWholeIsNoPosition) {
    for (const char* text : {"<Idle|MPos:1.000,2.000,3.000",
                             "Idle|MPos:1.000,2.000,3.000>",
                             "<Idle>",
                             "<>",
                             "<",
                             "<Idle|>",
                             "<Idle|MPos:1.000,2.000>",
                             "<Idle|MPos:1.000,2.000,>",
                             "<Idle|MPos:1.000,2.000,3>",
                             "<Idle|MPos:1.000,2.00,3.000>",
                             "<Idle|MPos:1,2,3>",
                             "<Idle|MPos:1.000,2.000,3.000|WPos:1.000,2.000,3.000>",
                             "<Idle|FS:0,0|MPos:1.000,2.000,3.000>",
                             "<Idle|MPos:1.000,2.000,3.000|WCO:1.000,2.000>",
                             "<Idle|MPos:1.000,2.000,3.000|WCO:1.000,2.000,3.000|WCO:1.000,2.000,3.000>",
                             "<Idle|MPos:1.0<Idle|MPos:1.000,2.000,3.000>",
                             "<Idle|MPos:1.000,2.000,3.000>>",
                             "<Idle|MPos:1.000,2.000,3.000||>",
                             "<Idle|MPos:1.000,2.000,3.000|F S:0>",
                             "<Hold:|MPos:1.000,2.000,3.000>",
                             "<1dle|MPos:1.000,2.000,3.000>",
                             "<Idle|MPos:1.000,2.000,nan>",
                             "<Idle,MPos:1.000,2.000,3.000|WPos:>",
                             "e|MPos:1.000,2.000,3.000|FS:0,0>"}) {
        EXPECT_EQ(ReadGrbl(text).kind, Kind::Broken) << text;
    }
}

TEST(GrblReaderTest, EveryPrefixAndEverySuffixOfAReportIsNoPosition) {
    const std::string report = "<Idle|MPos:1.000,-2.000,3.000|Bf:15,128|FS:0,0|WCO:0.000,1.551,5.664>";
    for (std::size_t cut = 1; cut < report.size(); ++cut) {
        EXPECT_NE(ReadGrbl(report.substr(0, cut)).kind, Kind::Status) << report.substr(0, cut);
        EXPECT_NE(ReadGrbl(report.substr(cut)).kind, Kind::Status) << report.substr(cut);
    }
}

TEST(GrblReaderTest, AStartIsKnownByItsTextAlsoWhereAByteIsMissing) {
    for (const char* text : {"Grbl 1.1h ['$' for help]", "Grbl 1.1f ['$' or '$HELP' for help]",
                             "GrblHAL 1.1f ['$' for help]", "rbl 1.1h ['$' for help]", "Grbl 1.1h ['$"}) {
        EXPECT_EQ(ReadGrbl(text).kind, Kind::Banner) << text;
    }
}

TEST(GrblReaderTest, SettingsMessagesAndStartUpLinesAreNoAnswers) {
    const GrblLine setting = ReadGrbl("$110=500.000");
    EXPECT_EQ(setting.kind, Kind::Setting);
    EXPECT_EQ(setting.number, 110);
    EXPECT_EQ(setting.value, 500);
    EXPECT_EQ(ReadGrbl("$N0=G54").kind, Kind::Other);
    EXPECT_EQ(ReadGrbl("$110").kind, Kind::Other);
    EXPECT_EQ(ReadGrbl("$=1").kind, Kind::Other);
    EXPECT_EQ(ReadGrbl("[MSG:'$H'|'$X' to unlock]").kind, Kind::Broken);
    EXPECT_EQ(ReadGrbl("[MSG:Caution: Unlocked]").kind, Kind::Message);
    EXPECT_EQ(ReadGrbl("[VER:1.1h.20190830:mine]").text, "VER:1.1h.20190830:mine");
    EXPECT_EQ(ReadGrbl(">G54G20:ok").kind, Kind::Startup);
    EXPECT_EQ(ReadGrbl("").kind, Kind::Other);
}

}  // namespace
}  // namespace gcode
