#include "workbench/instruments/MirrorController.h"

#include <gtest/gtest.h>

#include "core/ground/Arithmetic.h"
#include "workbench/instruments/InstrumentText.h"

namespace workbench {

using std::chrono::milliseconds;

namespace {

struct Rig {
    std::string Tell(std::string_view bytes, int at = 0) { return AnswerOf(mirror, bytes, milliseconds(at)); }
    std::string Hear(int at) { return SaidAt(mirror, milliseconds(at)); }

    World world;
    MirrorController mirror{world};
};

struct Exchange {
    const char* told;
    const char* answer;
};

}  // namespace

TEST(MirrorControllerTest, AnswersEveryRequestWithWhatItAsksFor) {
    Rig desk;
    const std::array<Exchange, 6> table = {{{"rD2R\r", "aD2R0\r\n"},
                                            {"rD1R\r", "aD1R0\r\n"},
                                            {"rMGR\r", "aMGR2\r\n"},
                                            {"rPMR\r", "aPMR1\r\n"},
                                            {"rPNM\r", "aPNMWORKBENCH\r\n"},
                                            {"rWER\r", "aWER0\r\n"}}};
    for (const Exchange& exchange : table) {
        EXPECT_EQ(desk.Tell(exchange.told), exchange.answer) << exchange.told;
    }
}

TEST(MirrorControllerTest, AcknowledgesEveryOrderAndActsOnIt) {
    Rig desk;
    const std::array<Exchange, 6> table = {{{"cMAG3\r", "oMAG3\r\n"},
                                            {"cWES1\r", "oWES1\r\n"},
                                            {"cPMS0\r", "oPMS0\r\n"},
                                            {"cPMS1\r", "oPMS1\r\n"},
                                            {"cZEN0\r", "oZEN0\r\n"},
                                            {"cSAS0\r", "oSAS0\r\n"}}};
    for (const Exchange& exchange : table) {
        EXPECT_EQ(desk.Tell(exchange.told), exchange.answer) << exchange.told;
    }
    EXPECT_EQ(desk.world.Optics().Magnification(), 3);
    EXPECT_EQ(desk.Tell("rWER\rrMGR\r"), "aWER1\r\naMGR3\r\n");
}

TEST(MirrorControllerTest, AMoveIsTakenAndDoneWhenTheMirrorHasArrived) {
    Rig desk;
    EXPECT_EQ(desk.Tell("cD2A40\rcD1A-80\r"), "qD2A40\r\nqD1A-80\r\n");
    EXPECT_EQ(desk.Hear(99), "");
    EXPECT_EQ(desk.Hear(100), "oD2A40\r\n");
    EXPECT_EQ(desk.Tell("rD2R\rrD1R\r", 100), "aD2R40\r\naD1R-40\r\n");
    EXPECT_EQ(desk.Hear(200), "oD1A-80\r\n");
    EXPECT_EQ(desk.Hear(300), "");
}

TEST(MirrorControllerTest, RefusesWhatItDoesNotKnowOrCannotRead) {
    Rig desk;
    const std::array<Exchange, 16> table = {{{"xxxx\r", "nxxx1\r\n"},
                                             {"\r", "n???1\r\n"},
                                             {"r\r", "n???1\r\n"},
                                             {"rD\r", "nD??1\r\n"},
                                             {"rd2r\r", "nd2r1\r\n"},
                                             {"\nrD2R\r", "nrD21\r\n"},
                                             {"rD2R5\r", "nD2R2\r\n"},
                                             {"cD2A\r", "nD2A2\r\n"},
                                             {"cD2A+5\r", "nD2A2\r\n"},
                                             {"cD2A1.5\r", "nD2A2\r\n"},
                                             {"cD2A99999999999\r", "nD2A2\r\n"},
                                             {"cMAG0\r", "nMAG2\r\n"},
                                             {"cMAG4\r", "nMAG2\r\n"},
                                             {"cPMS2\r", "nPMS2\r\n"},
                                             {"cSAS-1\r", "nSAS2\r\n"},
                                             {"c\x01\x80?\r", "n???1\r\n"}}};
    for (const Exchange& exchange : table) {
        EXPECT_EQ(desk.Tell(exchange.told), exchange.answer) << exchange.told;
    }
    EXPECT_EQ(desk.world.Optics().Magnification(), 2);
    EXPECT_FALSE(desk.world.Optics().MirrorMoves(milliseconds(0)));
}

TEST(MirrorControllerTest, RefusesMovesAloneWhileTheMotorsAreOff) {
    Rig desk;
    desk.Tell("cPMS0\r");
    EXPECT_EQ(desk.Tell("cD2A5\r"), "nD2A7\r\n");
    EXPECT_EQ(desk.Tell("cD1A5\r"), "nD1A7\r\n");
    EXPECT_EQ(desk.Tell("rPMR\r"), "aPMR0\r\n");
    EXPECT_EQ(desk.Tell("cMAG1\r"), "oMAG1\r\n");
    desk.Tell("cPMS1\r");
    EXPECT_EQ(desk.Tell("cD2A5\r"), "qD2A5\r\n");
}

TEST(MirrorControllerTest, ACommandMayComeInAnyPieces) {
    Rig desk;
    EXPECT_EQ(desk.Tell("rD"), "");
    EXPECT_EQ(desk.Tell("2R"), "");
    EXPECT_EQ(desk.Tell("\rrD1R"), "aD2R0\r\n");
    EXPECT_EQ(desk.Tell("\r"), "aD1R0\r\n");
}

TEST(MirrorControllerTest, ACommandLongerThanItsBufferIsAnOverflowOnceAndTheNextOneIsGood) {
    Rig desk;
    EXPECT_EQ(desk.Tell(std::string(60, 'x')), "");
    EXPECT_EQ(desk.Tell(std::string(60, 'x')), "n???4\r\n");
    EXPECT_EQ(desk.Tell(std::string(500, 'x')), "");
    EXPECT_EQ(desk.Tell("x\rrD2R\r"), "aD2R0\r\n");
    EXPECT_EQ(desk.Tell(std::string(70, 'x') + "\rrD2R\r"), "n???4\r\naD2R0\r\n");
}

TEST(MirrorControllerTest, SaysNothingUnaskedUntilStatusLinesAreSwitchedOn) {
    Rig desk;
    desk.world.Optics().SetMagnification(3);
    EXPECT_EQ(desk.Hear(5000), "");
    EXPECT_EQ(desk.Tell("cSAS1\r", 5000), "oSAS1\r\nsSAA0,0,0,1,3,0,0,1\r\n");
    EXPECT_EQ(desk.Tell("cSAS0\r", 5100), "oSAS0\r\n");
    desk.world.Optics().SetMagnification(1);
    EXPECT_EQ(desk.Hear(9000), "");
}

TEST(MirrorControllerTest, StatusLinesComeOnEveryChangeAtMostEveryHundredMilliseconds) {
    Rig desk;
    desk.Tell("cSAS1\r", 0);
    desk.world.Optics().SetMagnification(3);
    EXPECT_EQ(desk.Hear(99), "");
    EXPECT_EQ(desk.Hear(100), "sSAA0,0,0,1,3,0,0,1\r\n");
    EXPECT_EQ(desk.Hear(300), "");
    EXPECT_EQ(desk.Tell("cD2A80\r", 300), "qD2A80\r\n");
    EXPECT_EQ(desk.Hear(310), "sSAA4,0,0,1,3,0,0,1\r\n");
    EXPECT_EQ(desk.Hear(400), "");
    EXPECT_EQ(desk.Hear(410), "sSAA44,0,0,1,3,0,0,1\r\n");
    EXPECT_EQ(desk.Hear(500), "oD2A80\r\n");
    EXPECT_EQ(desk.Hear(510), "sSAA80,0,0,1,3,0,0,1\r\n");
}

TEST(MirrorControllerTest, StatusLinesComeAtThePeriodWhenNothingChanges) {
    Rig desk;
    desk.Tell("cSAS1\r", 0);
    EXPECT_EQ(desk.Hear(999), "");
    EXPECT_EQ(desk.Hear(1000), "sSAA0,0,0,1,2,0,0,1\r\n");
    EXPECT_EQ(desk.Hear(1001), "");
    EXPECT_EQ(desk.Hear(2000), "sSAA0,0,0,1,2,0,0,1\r\n");
}

TEST(MirrorControllerTest, TheLimitFlagsStandInTheirFields) {
    Rig desk;
    desk.Tell("cSAS1\r", 0);
    EXPECT_EQ(desk.Tell("cD2A500\r", 0), "qD2A500\r\n");
    EXPECT_EQ(desk.Hear(1000), "oD2A180\r\nsSAA180,0,0,1,2,0,1,1\r\n");
    EXPECT_EQ(desk.Tell("cD1A-181\rcD2A180\r", 1000), "qD1A-181\r\nqD2A180\r\noD2A180\r\n");
    EXPECT_EQ(desk.Hear(2000), "oD1A-180\r\nsSAA180,-180,0,1,2,1,0,1\r\n");
}

TEST(MirrorControllerTest, CountsCommandsByTheirNamesAlsoThoseThatItRefuses) {
    Rig desk;
    desk.Tell("rD2R\rrD2R\rcMAG9\rwhat\r\r");
    const Instrument::Counters expected = {{"rD2R", 2}, {"cMAG", 1}, {"unknown", 2}};
    EXPECT_EQ(desk.mirror.Received(), expected);
    desk.mirror.ForgetCounters();
    EXPECT_TRUE(desk.mirror.Received().empty());
}

TEST(MirrorControllerTest, AnErrorIsGivenToTheNextCommandsAndNothingIsDone) {
    Rig desk;
    for (int error = 1; error <= 8; ++error) {
        desk.mirror.RefuseCommands(error, 1);
        EXPECT_TRUE(desk.mirror.Refuses());
        EXPECT_EQ(desk.Tell("cMAG3\r"), "nMAG" + std::to_string(error) + "\r\n");
        EXPECT_EQ(desk.world.Optics().Magnification(), 2);
        EXPECT_FALSE(desk.mirror.Refuses());
    }
    desk.mirror.RefuseCommands(3, MirrorController::Always);
    EXPECT_EQ(desk.Tell("rD2R\rrD1R\r"), "nD2R3\r\nnD1R3\r\n");
    desk.mirror.ClearFaults();
    EXPECT_EQ(desk.Tell("rD2R\r"), "aD2R0\r\n");
}

TEST(MirrorControllerTest, StatusLinesMayHaveAnyNumberOfFields) {
    Rig desk;
    desk.Tell("cSAS1\r", 0);
    desk.mirror.MisformStatus(7, 1);
    EXPECT_EQ(desk.Hear(10), "sSAA0,0,0,1,2,0,0\r\n");
    EXPECT_FALSE(desk.mirror.MisformsStatus());
    desk.mirror.MisformStatus(0, 1);
    EXPECT_EQ(desk.Hear(20), "sSAA\r\n");
    desk.mirror.MisformStatus(10, MirrorController::Always);
    EXPECT_EQ(desk.Hear(30), "sSAA0,0,0,1,2,0,0,1,0,0\r\n");
    EXPECT_EQ(desk.Hear(1030), "sSAA0,0,0,1,2,0,0,1,0,0\r\n");
    desk.mirror.ClearFaults();
    EXPECT_EQ(desk.Hear(1040), "sSAA0,0,0,1,2,0,0,1\r\n");
}

TEST(MirrorControllerTest, AnAxisCanBeHeldAtItsLimit) {
    Rig desk;
    desk.Tell("cSAS1\r", 0);
    desk.mirror.HoldAtLimit(Microscope::AxisY, true);
    EXPECT_EQ(desk.Hear(100), "sSAA0,0,0,1,2,1,0,1\r\n");
    EXPECT_TRUE(desk.mirror.HoldsAtLimit());
    desk.mirror.HoldAtLimit(Microscope::AxisY, false);
    EXPECT_EQ(desk.Hear(200), "sSAA0,0,0,1,2,0,0,1\r\n");
}

TEST(MirrorControllerTest, ErgoLinesStandApartAndEndWithALoneCarriageReturn) {
    Rig desk;
    for (const char* line : {"RZ100", "MZ-5", "RE", "WZ", "ZE"}) {
        desk.mirror.PassErgoLine(line, false, milliseconds(0));
        const std::vector<WireLine> said = desk.mirror.TakeLines();
        ASSERT_EQ(said.size(), 1U);
        EXPECT_EQ(said[0].bytes, std::string(line) + "\r");
        EXPECT_EQ(said[0].manner, WireLine::Manner::Apart);
    }
}

TEST(MirrorControllerTest, AnErgoLineMayShareOneWriteWithAStatusLine) {
    Rig desk;
    desk.mirror.PassErgoLine("RZ100", true, milliseconds(0));
    const std::vector<WireLine> said = desk.mirror.TakeLines();
    ASSERT_EQ(said.size(), 1U);
    EXPECT_EQ(said[0].bytes, "RZ100\rsSAA0,0,0,1,2,0,0,1\r\n");
    EXPECT_EQ(said[0].manner, WireLine::Manner::Whole);
}

TEST(MirrorControllerTest, WhatIsNoErgoLineIsAFailure) {
    Rig desk;
    for (const char* line : {"", "R", "rz1", "XY", "RZ1\r", "RZ1\n2"}) {
        EXPECT_THROW(desk.mirror.PassErgoLine(line, false, milliseconds(0)), travo::NumberFailure) << line;
    }
    EXPECT_EQ(SaidBy(desk.mirror), "");
}

TEST(MirrorControllerTest, AFloodIsOfStatusLinesThatDifferOnlyInAFieldThatNobodyReads) {
    Rig desk;
    EXPECT_EQ(desk.mirror.FloodLine(0, milliseconds(0)), "sSAA0,0,0,1,2,0,0,1\r\n");
    EXPECT_EQ(desk.mirror.FloodLine(1, milliseconds(0)), "sSAA0,0,1,1,2,0,0,1\r\n");
}

}  // namespace workbench
