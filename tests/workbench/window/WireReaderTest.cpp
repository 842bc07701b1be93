#include "workbench/window/WireReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Scenes.h"

namespace workbench {

using test::Record;

namespace {

struct Row {
    std::string source;
    std::string kind;
    std::string bytes;
    std::string shown;
    std::string text;
    bool bad = false;
};

void ExpectRows(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        const WireMeaning meaning = MeaningOf(Record(row.source, row.kind, row.bytes));
        EXPECT_EQ(meaning.bytes.toStdString(), row.shown) << row.bytes;
        EXPECT_EQ(meaning.text.toStdString(), row.text) << row.bytes;
        EXPECT_EQ(meaning.bad, row.bad) << row.bytes;
    }
}

}  // namespace

TEST(WireReaderTest, WhatTheMirrorIsAskedFor) {
    ExpectRows({{"mirror", "in", "cD2A94\\r", "cD2A94", "tilt X to 94"},
                {"mirror", "in", "cD1A-38\\r", "cD1A-38", "tilt Y to −38"},
                {"mirror", "in", "cMAG1\\r", "cMAG1", "magnification 0.35×"},
                {"mirror", "in", "cMAG2\\r", "cMAG2", "magnification 2×"},
                {"mirror", "in", "cMAG3\\r", "cMAG3", "magnification 4×"},
                {"mirror", "in", "cPMS1\\r", "cPMS1", "motors on"},
                {"mirror", "in", "cPMS0\\r", "cPMS0", "motors off"},
                {"mirror", "in", "cSAS1\\r", "cSAS1", "status lines on"},
                {"mirror", "in", "cSAS0\\r", "cSAS0", "status lines off"},
                {"mirror", "in", "rD2R\\r", "rD2R", "where is X?"},
                {"mirror", "in", "rD1R\\r", "rD1R", "where is Y?"},
                {"mirror", "in", "rMGR\\r", "rMGR", "which magnification?"},
                {"mirror", "in", "rPMR\\r", "rPMR", "motors on?"},
                {"mirror", "in", "rWER\\r", "rWER", "Ergo unit locked?"},
                {"mirror", "in", "rPNM\\r", "rPNM", "program name?"}});
}

TEST(WireReaderTest, WhatTheMirrorAnswers) {
    ExpectRows({{"mirror", "out", "qD2A94\\r\\n", "qD2A94", "taken"},
                {"mirror", "out", "oD2A94\\r\\n", "oD2A94", "X has arrived"},
                {"mirror", "out", "oD1A-38\\r\\n", "oD1A-38", "Y has arrived"},
                {"mirror", "out", "oMAG2\\r\\n", "oMAG2", "done"},
                {"mirror", "out", "aD2R94\\r\\n", "aD2R94", "X is 94"},
                {"mirror", "out", "aD1R-7\\r\\n", "aD1R-7", "Y is −7"},
                {"mirror", "out", "aMGR2\\r\\n", "aMGR2", "magnification 2×"},
                {"mirror", "out", "aPMR1\\r\\n", "aPMR1", "motors on"},
                {"mirror", "out", "aWER0\\r\\n", "aWER0", "Ergo unit free"},
                {"mirror", "out", "aWER1\\r\\n", "aWER1", "Ergo unit locked"}});
}

TEST(WireReaderTest, TheStatusLineSaysPlaceObjectiveMotorsAndLimits) {
    ExpectRows({{"mirror", "out", "sSAA94,-38,0,1,2,0,0,0\\r\\n", "sSAA94,-38,0,1,2,0,0,0",
                 "status: 94, −38, 2×, motors on"},
                {"mirror", "out", "sSAA12,-7,0,0,1,0,1,0\\r\\n", "sSAA12,-7,0,0,1,0,1,0",
                 "status: 12, −7, 0.35×, motors off, limit X"},
                {"mirror", "out", "sSAA0,0,0,1,3,1,0,0\\r\\n", "sSAA0,0,0,1,3,1,0,0",
                 "status: 0, 0, 4×, motors on, limit Y"},
                {"mirror", "out", "sSAA0,0,0,1,0,1,1,0\\r\\n", "sSAA0,0,0,1,0,1,1,0",
                 "status: 0, 0, between two objectives, motors on, limit X, limit Y"}});
}

TEST(WireReaderTest, ARefusalOfTheMirrorSaysItsErrorInItsOwnWords) {
    ExpectRows(
        {{"mirror", "out", "nD2A1\\r\\n", "nD2A1", "refused: error 1, command error", true},
         {"mirror", "out", "nD2A2\\r\\n", "nD2A2", "refused: error 2, parametar error", true},
         {"mirror", "out", "nD2A3\\r\\n", "nD2A3", "refused: error 3, timeout error", true},
         {"mirror", "out", "nD2A4\\r\\n", "nD2A4", "refused: error 4, reception buffer overflow", true},
         {"mirror", "out", "nD2A5\\r\\n", "nD2A5", "refused: error 5, PCL error", true},
         {"mirror", "out", "nD2A6\\r\\n", "nD2A6", "refused: error 6, command overflow", true},
         {"mirror", "out", "nD2A7\\r\\n", "nD2A7", "refused: error 7, processing prohibition error", true},
         {"mirror", "out", "nD2A8\\r\\n", "nD2A8", "refused: error 8, unknown error", true},
         {"mirror", "out", "nD2A9\\r\\n", "nD2A9", "refused: error 9", true}});
    EXPECT_TRUE(MeaningOf(Record("mirror", "out", "nD2A7\\r\\n")).refusal);
    EXPECT_FALSE(MeaningOf(Record("mirror", "out", "oD2A7\\r\\n")).refusal);
}

TEST(WireReaderTest, WhatTheMotorIsAskedForAndAnswers) {
    ExpectRows(
        {{"motor", "in", "RELMOVEZ1000\\r", "RELMOVEZ1000", "focus up by 10"},
         {"motor", "in", "RELMOVEZ-1050\\r", "RELMOVEZ-1050", "focus down by 10.5"},
         {"motor", "in", "RZ1000\\r", "RZ1000", "focus up by 10"},
         {"motor", "in", "RZ-1\\r", "RZ-1", "focus down by 0.01"},
         {"motor", "in", "MOVEZ500\\r", "MOVEZ500", "focus to 500"},
         {"motor", "in", "HALT\\r", "HALT", "stop"},
         {"motor", "in", "ZERO\\r", "ZERO", "here is 0"},
         {"motor", "in", "WHEREZ\\r", "WHEREZ", "where is Z?"},
         {"motor", "in", "WHO\\r", "WHO", "who are you?"},
         {"motor", "out", "A\\r", "A", "done"},
         {"motor", "out", "A120\\r", "A120", "Z is 120"},
         {"motor", "out", "ARemote Drive Accessory\\r", "ARemote Drive Accessory", "Remote Drive Accessory"},
         {"motor", "out", "N\\r", "N", "refused", true}});
    EXPECT_TRUE(MeaningOf(Record("motor", "out", "N\\r")).refusal);
}

TEST(WireReaderTest, ALineOfTheErgoUnitOnTheMirrorsWireReadsAsOneForTheMotor) {
    ExpectRows({{"mirror", "apart", "RZ1000\\r", "RZ1000", "focus up by 10"}});
    EXPECT_EQ(WayOf(Record("mirror", "apart", "RZ1000\\r")), Way::FromInstrument);
}

TEST(WireReaderTest, WhatTheGaugeIsAskedForAndAnswers) {
    ExpectRows({{"gauge", "in", "Ar\\r\\n", "Ar", "asks for a reading"},
                {"gauge", "out", "A+00.123\\r\\n", "A+00.123", "reading 123"},
                {"gauge", "out", "A-01.500\\r\\n", "A-01.500", "reading −1500"},
                {"gauge", "out", "A+00.000\\r\\n", "A+00.000", "reading 0"},
                {"gauge", "in", "ARES\\r\\n", "ARES", "gauge to zero"},
                {"gauge", "in", "KEYOFF\\r\\n", "KEYOFF", "keys locked"},
                {"gauge", "in", "KEYON\\r\\n", "KEYON", "keys free"}});
}

TEST(WireReaderTest, CallsOfTheDriverWithTheirAnswers) {
    ExpectRows(
        {{"driver", "call", "getposition = 0 2 9900 12500 12500", "getposition", "9900 12500 12500"},
         {"driver", "call", "getcount = 0 4", "getcount", "4 connected"},
         {"driver", "call", "reconnect = 0", "reconnect", "status 0"},
         {"driver", "call", "select 1 = 0 1", "select 1", "needle 1, answer 1"},
         {"driver", "call", "select 4 = 0 0", "select 4", "needle 4, answer 0"},
         {"driver", "call", "moveto 9900 12500 12500 = 0 1 0.700", "moveto 9900 12500 12500",
          "needle 1, 0.7 s to go"},
         {"driver", "call", "getcount = -1", "getcount", "refused: status −1, made to fail", true},
         {"driver", "call", "getposition = -2", "getposition", "refused: status −2, not connected", true},
         {"driver", "call", "moveto 1 2 30000 = -3", "moveto 1 2 30000",
          "refused: status −3, a target outside 0 to 25000", true}});
    EXPECT_TRUE(MeaningOf(Record("driver", "call", "getcount = -1")).refusal);
    EXPECT_FALSE(MeaningOf(Record("driver", "call", "select 4 = 0 0")).refusal);
}

TEST(WireReaderTest, EventsOfPortsFaultsAndTheWorld) {
    ExpectRows(
        {{"mirror", "note", "open", "open", "the port was opened"},
         {"mirror", "note", "shut", "shut", "the port was shut"},
         {"gauge", "note", "cable out", "cable out", "the cable was pulled out: fault Cable out", true},
         {"gauge", "note", "cable in", "cable in", "the cable was plugged in"},
         {"motor", "event", "silent A\\r", "silent A", "the answer is held back: fault Silent", true},
         {"gauge", "event", "garbled A+00.123\\r\\n", "garbled A+00.123",
          "one byte of this line was changed: fault Garble", true},
         {"gauge", "event", "cut A+00.123\\r\\n", "cut A+00.123", "the end of this line was lost: fault Cut",
          true},
         {"motor", "event", "noise 20", "noise 20", "20 bytes of any value: fault Noise", true},
         {"motor", "event", "flood 200", "flood 200", "200 lines that nobody asked for: fault Flood", true},
         {"world", "event", "crossing 1 2 64.100 -31.400", "crossing", "shafts 1 and 2 met at X 64, Y −31",
          true},
         {"world", "event", "arrived 1 4 1.117 0.000", "arrived", "needle 1 landed 1.1 from cell 4"},
         {"world", "event", "arrived 1 0 1.117 0.000", "arrived",
          "needle 1 landed 1.1 from the centre of the view"},
         {"world", "event", "arrived 3", "arrived", "needle 3 has arrived"}});
}

TEST(WireReaderTest, AnythingElseIsNotKnown) {
    ExpectRows({{"mirror", "in", "cXYZ1\\r", "cXYZ1", "not known"},
                {"mirror", "in", "cD2A\\r", "cD2A", "not known"},
                {"motor", "in", "HALTED\\r", "HALTED", "not known"},
                {"gauge", "in", "A\\x00\\r\\n", "A\\x00", "not known"},
                {"driver", "call", "dance = 0", "dance", "not known"},
                {"world", "event", "rain", "rain", "not known"}});
}

TEST(WireReaderTest, WhatAnInstrumentSaysAndNobodyKnowsIsTheWorkOfAFault) {
    ExpectRows({{"gauge", "out", "AAAAAAAA\\r\\n", "AAAAAAAA", "not known", true},
                {"mirror", "out", "sSAA94,-38,0,1,2,0,0\\r\\n", "sSAA94,-38,0,1,2,0,0", "not known", true},
                {"motor", "out", "\\xff\\r", "\\xff", "not known", true}});
}

TEST(WireReaderTest, TheWayOfARecordIsByItsKind) {
    EXPECT_EQ(WayOf(Record("mirror", "in", "")), Way::ToInstrument);
    EXPECT_EQ(WayOf(Record("driver", "call", "")), Way::ToInstrument);
    EXPECT_EQ(WayOf(Record("mirror", "out", "")), Way::FromInstrument);
    EXPECT_EQ(WayOf(Record("mirror", "whole", "")), Way::FromInstrument);
    EXPECT_EQ(WayOf(Record("mirror", "note", "open")), Way::Event);
    EXPECT_EQ(WayOf(Record("world", "event", "arrived 1")), Way::Event);
}

}  // namespace workbench
