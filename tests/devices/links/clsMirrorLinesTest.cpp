// How the link cuts what it receives into lines, and whom it gives them to.
#include <string>

#include "devices/links/MirrorRig.h"

namespace travo::test {
namespace {

class clsMirrorLinesTest : public MirrorRig {
protected:
    clsMirrorLinesTest() { Open(); }
};

TEST_F(clsMirrorLinesTest, TheLineAD2R12ReceivedTwiceInARowDeliversOneReceiveMirrorXData) {
    Receive("aD2R12\r\naD2R12\r\n");
    EXPECT_EQ(journal, Journal{"X 12"});
}

TEST_F(clsMirrorLinesTest, TheLinesAD2R12AD1R12AD2R12DeliverThreeValues) {
    Receive("aD2R12\r\naD1R12\r\naD2R12\r\n");
    EXPECT_EQ(journal, (Journal{"X 12", "Y 12", "X 12"}));
}

TEST_F(clsMirrorLinesTest, TheTextAD2AloneStaysPendingAndR5WithCrLfDeliversOneXValueOf5) {
    Receive("aD2");
    EXPECT_EQ(journal, Journal{});
    Receive("R5\r\n");
    EXPECT_EQ(journal, Journal{"X 5"});
}

TEST_F(clsMirrorLinesTest, RZ100WithALoneCrGoesToMotorErgoConnectAsRZ100) {
    Receive("RZ100\r");
    EXPECT_EQ(journal, Journal{"ergo RZ100"});
}

TEST_F(clsMirrorLinesTest, EachOfTheFiveMotorCommandsIsPassedOnUnchanged) {
    for (const std::string line : {"RZ-1", "MZ", "RESET", "WZ?", "ZERO \xE4"}) {
        journal.clear();
        Receive(line + "\r");
        EXPECT_EQ(journal, Journal{"ergo " + line});
    }
}

TEST_F(clsMirrorLinesTest, SeveralMotorLinesInOnePieceAreAllPassedOnAlsoWhenEqual) {
    Receive("RZ1\rRZ1\rMZ2\rWZ");
    Receive("3\r");
    EXPECT_EQ(journal, (Journal{"ergo RZ1", "ergo RZ1", "ergo MZ2", "ergo WZ3"}));
}

TEST_F(clsMirrorLinesTest, AMotorLineIsNoLastLine) {
    Receive("aD2R1\r\nRZ1\r");
    EXPECT_EQ(journal, (Journal{"X 1", "ergo RZ1"}));
    Receive("aD2R1\r\n");
    EXPECT_EQ(journal.size(), 2u);
}

TEST_F(clsMirrorLinesTest, RZ100ALoneCrAD2R5AndCrLfInOnePieceDeliverNothingAndForwardNothing) {
    Receive("RZ100\raD2R5\r\n");
    EXPECT_EQ(journal, Journal{});
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorLinesTest, RZ100ALoneCrAndAfterwardsAD2R5WithCrLfDeliverBoth) {
    Receive("RZ100\r");
    Receive("aD2R5\r\n");
    EXPECT_EQ(journal, (Journal{"ergo RZ100", "X 5"}));
}

TEST_F(clsMirrorLinesTest, AMotorLineBehindAControllerLineIsPassedOn) {
    Receive("aD2R5\r\nRZ100\r");
    EXPECT_EQ(journal, (Journal{"X 5", "ergo RZ100"}));
}

TEST_F(clsMirrorLinesTest, XYWithALoneCrStaysPendingAndWithTheLfIsDroppedAsTooShort) {
    Receive("XY\r");
    Receive("\n");
    EXPECT_EQ(journal, Journal{});
    Receive("aD2R5\r\n");
    EXPECT_EQ(journal, Journal{"X 5"});
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorLinesTest, AMotorLineWhoseLfComesLaterLeavesTheLfToTheNextLine) {
    Receive("RZ1\r");
    Receive("\naD2R5\r\naD2R6\r\n");
    EXPECT_EQ(journal, (Journal{"ergo RZ1", "X 6"}));
}

TEST_F(clsMirrorLinesTest, ACandidateThatIsNoMotorLineBecomesPartOfTheNextLine) {
    Receive("aD2\r");
    Receive("RZ1\r");
    EXPECT_EQ(journal, Journal{});
    Receive("aD2R5\r\naD2R6\r\n");
    EXPECT_EQ(journal, Journal{"X 6"});
}

TEST_F(clsMirrorLinesTest, TheBeginningOfAMotorLineIsExactInCaseAndPlace) {
    Receive("rz1\r");
    Receive(" RZ1\r");
    Receive("R\r");
    EXPECT_EQ(journal, Journal{});
}

TEST_F(clsMirrorLinesTest, AnEmptyLineIsDropped) {
    Receive("\r\n\r\n");
    EXPECT_EQ(journal, Journal{});
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorLinesTest, ALfWithoutACrEndsNothing) {
    Receive("aD2R5\n");
    EXPECT_EQ(journal, Journal{});
    Receive("\r\n");
    EXPECT_EQ(journal, Journal{});
}

TEST_F(clsMirrorLinesTest, TextOneByteAtATimeGivesTheSameLines) {
    for (const char byte : std::string("aD2R5\r\nRZ7\rsSAA1,-2,0,1,2,0,0,0\r\n")) {
        Receive(std::string(1, byte));
    }
    EXPECT_EQ(journal, (Journal{"X 5", "ergo RZ7", "magnification 2", "XY 1 -2", "motor 1"}));
}

TEST_F(clsMirrorLinesTest, AHundredKilobytesAtOnceGiveAllTheirLines) {
    std::string text;
    int lines = 0;
    while (text.size() < 100000) {
        text += "aD2R" + std::to_string(lines++) + "\r\n";
    }
    Receive(text);
    ASSERT_EQ(journal.size(), static_cast<std::size_t>(lines));
    EXPECT_EQ(journal.front(), "X 0");
    EXPECT_EQ(journal.back(), "X " + std::to_string(lines - 1));
}

TEST_F(clsMirrorLinesTest, ALineOfAMegabyteIsDroppedAndTheNextIsTaken) {
    Receive(std::string(1000000, 'x'));
    Receive("\r\naD2R5\r\n");
    EXPECT_EQ(journal, (Journal{"dropped 0", "X 5"}));
    EXPECT_TRUE(Silent());
}

// Noise for which a search from the beginning at every byte would take minutes.
TEST_F(clsMirrorLinesTest, NoiseWithoutALineEndOneByteAtATimeTakesTimeInProportion) {
    for (int bytes = 0; bytes < 2000000; ++bytes) {
        Receive("x");
    }
    Receive("\r\naD2R5\r\n");
    EXPECT_EQ(journal, (Journal{"dropped 0", "X 5"}));
}

TEST_F(clsMirrorLinesTest, NoiseOfLoneCarriageReturnsTakesTimeInProportion) {
    for (int bytes = 0; bytes < 2000000; ++bytes) {
        Receive("\r");
    }
    Receive("\naD2R5\r\n");
    EXPECT_EQ(journal, (Journal{"dropped 0", "X 5"}));
}

TEST_F(clsMirrorLinesTest, TenMegabytesOfMotorLinesInOnePieceTakeTimeInProportion) {
    std::string text;
    while (text.size() < 10000000) {
        text += "RZ1\r";
    }
    Receive(text);
    EXPECT_EQ(journal.size(), 2500000u);
}

TEST_F(clsMirrorLinesTest, ACallWithinABoxFindsNothingPendingAndItsRestIsReplacedByTheOuterOne) {
    boxes.whileShown = Once([&] {
        Receive("aD2R1\r\naD2R");  // its rest is lost
    });
    Receive("nD2A2\r\naD1R");
    Receive("7\r\n");
    EXPECT_EQ(journal, (Journal{"box nD2A2 : Mirror : Parametar Error", "X 1", "Y 7"}));
}

TEST_F(clsMirrorLinesTest, ACallWithinABoxKeepsItsRestWhereTheOuterOneLeavesNothing) {
    boxes.whileShown = Once([&] { Receive("aD2R"); });
    Receive("nD2A2\r\n");
    Receive("7\r\n");
    EXPECT_EQ(journal, (Journal{"box nD2A2 : Mirror : Parametar Error", "X 7"}));
}

TEST_F(clsMirrorLinesTest, TheLastLineIsSetBeforeTheLineIsActedOn) {
    boxes.whileShown = [&] { Receive("nD2A2\r\n"); };
    Receive("nD2A2\r\n");
    EXPECT_EQ(journal, Journal{"box nD2A2 : Mirror : Parametar Error"});
}

TEST_F(clsMirrorLinesTest, AFailureOfTheMotorPortGoesUpAndTheRestOfTheTextIsLost) {
    failing = {"ergo RZ1"};
    EXPECT_THROW(Receive("aD2R1\r\nRZ1\rRZ2\r"), std::runtime_error);
    Receive("aD2R5\r\n");
    EXPECT_EQ(journal, (Journal{"X 1", "ergo RZ1", "X 5"}));
    EXPECT_TRUE(Silent());
}

}  // namespace
}  // namespace travo::test
