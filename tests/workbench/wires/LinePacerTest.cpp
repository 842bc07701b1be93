#include "workbench/wires/LinePacer.h"

#include <gtest/gtest.h>

namespace workbench {

using std::chrono::milliseconds;

namespace {

constexpr auto Paced = WireLine::Manner::Paced;
constexpr auto Apart = WireLine::Manner::Apart;
constexpr auto InOnePiece = WireLine::Manner::Whole;

std::string Taken(LinePacer& pacer, Time now) {
    std::string text;
    for (const LinePacer::Piece& piece : pacer.Take(now)) {
        text += piece.bytes + "|";
    }
    return text;
}

}  // namespace

TEST(LinePacerTest, GivesNineHundredAndSixtyBytesASecondAt9600Baud) {
    LinePacer pacer(9600);
    pacer.Push({std::string(2000, 'x'), Paced}, milliseconds(0));
    EXPECT_EQ(Taken(pacer, milliseconds(1)), "");
    EXPECT_EQ(Taken(pacer, milliseconds(2)), "x|");
    EXPECT_EQ(Taken(pacer, milliseconds(1000)).size(), 959U + 1);
    EXPECT_EQ(Taken(pacer, milliseconds(2000)).size(), 960U + 1);
    EXPECT_FALSE(pacer.Idle());
}

TEST(LinePacerTest, GivesTwoHundredAndFortyBytesASecondAt2400Baud) {
    LinePacer pacer(2400);
    pacer.Push({std::string(2000, 'x'), Paced}, milliseconds(500));
    EXPECT_EQ(Taken(pacer, milliseconds(1500)).size(), 240U + 1);
}

TEST(LinePacerTest, LinesFollowEachOtherWithoutAGapAndNeverShareAPiece) {
    LinePacer pacer(10000);
    pacer.Push({"abc", Paced}, milliseconds(0));
    pacer.Push({"def", Paced}, milliseconds(0));
    EXPECT_EQ(Taken(pacer, milliseconds(2)), "ab|");
    EXPECT_EQ(Taken(pacer, milliseconds(5)), "c|de|");
    EXPECT_EQ(Taken(pacer, milliseconds(6)), "f|");
    EXPECT_TRUE(pacer.Idle());
}

TEST(LinePacerTest, ALineThatComesLaterDoesNotFindTimeSaved) {
    LinePacer pacer(10000);
    pacer.Push({"abc", Paced}, milliseconds(0));
    Taken(pacer, milliseconds(3));
    pacer.Push({"def", Paced}, milliseconds(1000));
    EXPECT_EQ(Taken(pacer, milliseconds(1000)), "");
    EXPECT_EQ(Taken(pacer, milliseconds(1001)), "d|");
}

TEST(LinePacerTest, ALineThatStandsApartHasAPauseBeforeAndBehindItHoweverLateTheCallerIs) {
    LinePacer pacer(10000);
    pacer.Push({"abc", Paced}, milliseconds(0));
    pacer.Push({"RE\r", Apart}, milliseconds(0));
    pacer.Push({"def", Paced}, milliseconds(0));
    EXPECT_EQ(Taken(pacer, milliseconds(500)), "abc|");
    EXPECT_EQ(Taken(pacer, milliseconds(530)), "");
    EXPECT_EQ(Taken(pacer, milliseconds(900)), "RE\r|");
    EXPECT_EQ(Taken(pacer, milliseconds(930)), "");
    EXPECT_EQ(Taken(pacer, milliseconds(933)), "def|");
}

TEST(LinePacerTest, AWholeLineComesInOnePieceAtTheTimeOfItsLastByte) {
    LinePacer pacer(10000);
    pacer.Push({"RE\rstatus\r\n", InOnePiece}, milliseconds(0));
    EXPECT_EQ(Taken(pacer, milliseconds(10)), "");
    EXPECT_EQ(Taken(pacer, milliseconds(11)), "RE\rstatus\r\n|");
}

TEST(LinePacerTest, TheLastPieceBringsItsLine) {
    LinePacer pacer(10000);
    pacer.Push({"abc", Paced}, milliseconds(0));
    EXPECT_EQ(pacer.Take(milliseconds(2)).front().line.bytes, "");
    const auto last = pacer.Take(milliseconds(3));
    EXPECT_EQ(last.front().bytes, "c");
    EXPECT_EQ(last.front().line.bytes, "abc");
}

TEST(LinePacerTest, ClearedItGivesNothingMore) {
    LinePacer pacer(10000);
    pacer.Push({"abc", Paced}, milliseconds(0));
    Taken(pacer, milliseconds(1));
    pacer.Clear();
    EXPECT_TRUE(pacer.Idle());
    EXPECT_EQ(Taken(pacer, milliseconds(900)), "");
    pacer.Push({"xy", Paced}, milliseconds(900));
    EXPECT_EQ(Taken(pacer, milliseconds(902)), "xy|");
}

}  // namespace workbench
