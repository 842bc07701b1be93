// What the link does with each kind of line: answers, errors, status, and lines out of order.
#include <string>

#include "devices/links/MirrorRig.h"

namespace travo::test {
namespace {

class clsMirrorAnswersTest : public MirrorRig {
protected:
    clsMirrorAnswersTest() { Open(); }

    void Line(const std::string& line) { Receive(line + "\r\n"); }
    // What the link did with one line.
    Journal After(const std::string& line) {
        journal.clear();
        Line(line);
        return journal;
    }
};

const Journal Nothing;

TEST_F(clsMirrorAnswersTest, EachAnswerGoesToItsReceiver) {
    EXPECT_EQ(After("aD2R-2147483648"), Journal{"X -2147483648"});
    EXPECT_EQ(After("aD1R2147483647"), Journal{"Y 2147483647"});
    EXPECT_EQ(After("aMGR3"), Journal{"magnification 3"});
    EXPECT_EQ(After("aMGR-32768"), Journal{"magnification -32768"});
    EXPECT_EQ(After("aPMR1"), Journal{"motor 1"});
    EXPECT_EQ(After("aPMR2"), Journal{"motor 2"});
}

TEST_F(clsMirrorAnswersTest, ProgramNameErgoLockAndUnknownAnswersAreIgnored) {
    for (const char* const line : {"aPNMTRAVO 1", "aWER1", "aXXX1", "aZEN1", "aD3R5", "ad2r5"}) {
        EXPECT_EQ(After(line), Nothing) << line;
    }
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorAnswersTest, ClassesQAndOAreIgnoredWhateverTheirCommand) {
    for (const char* const line : {"qD2R5", "oD2R6", "qSAA1,2,3,1,2,1,1,0", "oMGR1", "qPMR1"}) {
        EXPECT_EQ(After(line), Nothing) << line;
    }
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorAnswersTest, AnyOtherFirstCharacterCountsAsClassA) {
    EXPECT_EQ(After("bD2R1"), Journal{"X 1"});
    EXPECT_EQ(After("QD2R2"), Journal{"X 2"});
    EXPECT_EQ(After("ND2R3"), Journal{"X 3"});
    EXPECT_EQ(After(" D2R4"), Journal{"X 4"});
    EXPECT_EQ(After(std::string("\0D2R5", 5)), Journal{"X 5"});
    EXPECT_EQ(After("\xFF"
                    "D2R6"),
              Journal{"X 6"});
}

TEST_F(clsMirrorAnswersTest, ClassSWithAnotherCommandDoesNothing) {
    EXPECT_EQ(After("sD2R5"), Nothing);
    EXPECT_EQ(After("sSAB1,2,0,1,2,1,1,0"), Nothing);
}

TEST_F(clsMirrorAnswersTest, EachErrorNumberIsReportedWithItsText) {
    const char* const texts[] = {" : Mirror : Command Error",
                                 " : Mirror : Parametar Error",
                                 " : Mirror : Timeout Error",
                                 " : Mirror : Reception buffer overflow",
                                 " : Mirror : PCL Error",
                                 " : Mirror : Command overflow",
                                 " : Mirror : Processing prohibition Error",
                                 " : Mirror : Unknown Error"};
    QStringList expected;
    for (int number = 1; number <= 8; ++number) {
        const std::string line = "nMAG" + std::to_string(number);
        Line(line);
        expected << QString::fromStdString(line + texts[number - 1]);
    }
    EXPECT_EQ(boxes.Texts(), expected);
    EXPECT_EQ(Logged(), expected);
}

TEST_F(clsMirrorAnswersTest, TheLineND2A2ShowsItselfFollowedByParametarErrorAndNZEN1ShowsNothing) {
    Line("nZEN1");
    EXPECT_TRUE(Silent());
    Line("nD2A2");
    EXPECT_EQ(Reported(), QStringLiteral("nD2A2 : Mirror : Parametar Error"));
}

TEST_F(clsMirrorAnswersTest, TheLineND2A9ShowsNothing) {
    for (const char* const line :
         {"nD2A9", "nD2A0", "nD2A", "nD2A10", "nD2A 1", "nD2A01", "nD2A-1", "nD2Ax"}) {
        EXPECT_EQ(After(line), Nothing) << line;
    }
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorAnswersTest, ARepeatedErrorLineIsNotShownTwice) {
    Line("nD2A2");
    Line("nD2A2");
    EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(clsMirrorAnswersTest, BytesOfTheLineAreReportedInTheCodePage) {
    Line(
        std::string("n\0\x80\xE4"
                    "2",
                    5));
    const QString line =
        QString(QLatin1Char('n')) + QChar(0) + QChar(0x20AC) + QChar(0xE4) + QLatin1Char('2');
    EXPECT_EQ(boxes.Texts(), QStringList{line + QStringLiteral(" : Mirror : Parametar Error")});
}

TEST_F(clsMirrorAnswersTest, AValueThatIsNoNumberIsDroppedWithoutAWord) {
    for (const char* const value : {"", " 5", "5 ", "+5", "--5", "-", "5.0", "0x5", "5,", "2147483648",
                                    "-2147483649", "99999999999999999999", "five"}) {
        EXPECT_EQ(After("aD2R" + std::string(value)), Nothing) << value;
        EXPECT_EQ(After("aD1R" + std::string(value)), Nothing) << value;
    }
    for (const char* const value : {"32768", "-32769", "65536", "4294967297", " 1"}) {
        EXPECT_EQ(After("aMGR" + std::string(value)), Nothing) << value;
        EXPECT_EQ(After("aPMR" + std::string(value)), Nothing) << value;
    }
    EXPECT_EQ(After(std::string("aD2R5\0", 6)), Nothing);
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorAnswersTest, LinesUnderFourCharactersAreDroppedWithoutAWord) {
    for (const char* const line : {"", "n", "a", "s", "q", "o", "nD", "sS", "nD2", "sSA", "123"}) {
        EXPECT_EQ(After(line), Nothing) << line;
    }
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorAnswersTest, AFailureOfAReceiverEntersTheErrorDispatchWithTheLinesValue) {
    failing = {"magnification 3"};
    Line("aMGR3");
    EXPECT_EQ(Reported(), QStringLiteral("aMGR3 : Mirror : Timeout Error"));
}

TEST_F(clsMirrorAnswersTest, WhateverAReceiverThrowsEntersTheErrorDispatchWithTheLinesValue) {
    throwsNumbers = true;
    failing = {"magnification 3"};
    EXPECT_NO_THROW(Line("aMGR3"));
    EXPECT_EQ(Reported(), QStringLiteral("aMGR3 : Mirror : Timeout Error"));
}

TEST_F(clsMirrorAnswersTest, AFailureOfAReceiverIsSilentWhereTheValueIsNoErrorNumber) {
    failing = {"X 9", "magnification 2"};
    EXPECT_EQ(After("aD2R9"), Journal{"X 9"});
    EXPECT_EQ(After("sSAA1,2,0,1,2,1,1,0"), Journal{"magnification 2"});
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorAnswersTest, AStatusLineDeliversMagnificationThenPositionThenMotor) {
    EXPECT_EQ(After("sSAA-12,34,7,1,3,0,0,8"), (Journal{"magnification 3", "XY -12 34", "motor 1"}));
}

TEST_F(clsMirrorAnswersTest, AStatusLineShowsTheLimitOfYBeforeThatOfX) {
    EXPECT_EQ(After("sSAA1,2,0,0,1,1,1,0"), (Journal{"magnification 1", "XY 1 2", "motor 0",
                                                     "box Movement limit Y", "box Movement limit X"}));
    EXPECT_EQ(boxes.shown[0].buttons, platform::BoxButtons::OK);
    EXPECT_TRUE(Logged().isEmpty());
}

TEST_F(clsMirrorAnswersTest, AStatusLineWithSevenFieldsChangesNothing) {
    EXPECT_EQ(After("sSAA1,2,0,1,2,1,1"), Nothing);
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorAnswersTest, StatusLinesOf0To20FieldsAreTakenFromEightOn) {
    for (int count = 0; count <= 20; ++count) {
        std::string line = "sSAA";
        for (int field = 0; field < count; ++field) {
            line += field == 0 ? "" : ",";
            line += std::to_string(field == 5 || field == 6 ? 0 : field);
        }
        const Journal taken{"magnification 4", "XY 0 1", "motor 3"};
        EXPECT_EQ(After(line), count < 8 ? Nothing : taken) << line;
    }
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorAnswersTest, TheFieldsThatAreNotUsedMayHoldAnything) {
    EXPECT_EQ(After("sSAA1,2,noise,1,2,0,0,"), (Journal{"magnification 2", "XY 1 2", "motor 1"}));
}

TEST_F(clsMirrorAnswersTest, ABadFieldEndsTheStatusLineThereInSilence) {
    EXPECT_EQ(After("sSAA1,2,0,1,x,1,1,0"), Nothing);
    EXPECT_EQ(After("sSAA1,2,0,1,32768,1,1,0"), Nothing);
    EXPECT_EQ(After("sSAA1, 2,0,1,2,1,1,0"), Journal{"magnification 2"});
    EXPECT_EQ(After("sSAA2147483648,2,0,1,2,1,1,0"), Journal{"magnification 2"});
    EXPECT_EQ(After("sSAA1,2,0,-32769,2,1,1,0"), (Journal{"magnification 2", "XY 1 2"}));
    EXPECT_EQ(After("sSAA1,2,0,1,2,,1,0"), (Journal{"magnification 2", "XY 1 2", "motor 1"}));
    EXPECT_EQ(After("sSAA1,2,0,1,2,1 ,1,0"), (Journal{"magnification 2", "XY 1 2", "motor 1"}));
    EXPECT_TRUE(Silent());
}

TEST_F(clsMirrorAnswersTest, ABadXLimitFieldComesAfterTheBoxOfY) {
    EXPECT_EQ(After("sSAA1,2,0,1,2,1,x,0"),
              (Journal{"magnification 2", "XY 1 2", "motor 1", "box Movement limit Y"}));
}

TEST_F(clsMirrorAnswersTest, AStatusLineWithAYLimitFlagShowsMovementLimitYOnceHoweverManyFollow) {
    for (int x = 0; x < 50; ++x) {
        Line("sSAA" + std::to_string(x) + ",2,0,1,2,1,0,0");
    }
    EXPECT_EQ(boxes.Texts(), QStringList{QStringLiteral("Movement limit Y")});
}

TEST_F(clsMirrorAnswersTest, TheLimitIsShownAgainOnlyAfterTheAxisWasOffIt) {
    for (const char* const limits : {"1,1", "-1,2", "0,1", "1,1", "1,0", "1,1"}) {
        Line("sSAA" + std::to_string(journal.size()) + ",2,0,1,2," + limits + ",0");
    }
    const QString y = QStringLiteral("Movement limit Y");
    const QString x = QStringLiteral("Movement limit X");
    EXPECT_EQ(boxes.Texts(), (QStringList{y, x, y, x}));
}

TEST_F(clsMirrorAnswersTest, ALimitBoxIsNotShownAgainWhileItIsUp) {
    boxes.whileShown = Once([&] {
        for (int x = 2; x < 32; ++x) {
            Line("sSAA" + std::to_string(x) + ",2,0,1,2,1,0,0");
        }
    });
    Line("sSAA1,2,0,1,2,1,0,0");
    EXPECT_EQ(boxes.Texts(), QStringList{QStringLiteral("Movement limit Y")});
    Line("sSAA40,2,0,1,2,1,0,0");
    EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(clsMirrorAnswersTest, AnAxisThatComesBackToItsLimitWhileItsBoxIsUpIsNotShownAgain) {
    boxes.whileShown = Once([&] {
        Line("sSAA2,2,0,1,2,0,0,0");
        Line("sSAA3,2,0,1,2,1,0,0");
    });
    Line("sSAA1,2,0,1,2,1,0,0");
    EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(clsMirrorAnswersTest, TheLimitOfTheOtherAxisIsShownWhileOneBoxIsUp) {
    boxes.whileShown = Once([&] {
        Line("sSAA2,2,0,1,2,1,1,0");
        Line("sSAA3,2,0,1,2,1,1,0");
    });
    Line("sSAA1,2,0,1,2,1,0,0");
    EXPECT_EQ(boxes.Texts(),
              (QStringList{QStringLiteral("Movement limit Y"), QStringLiteral("Movement limit X")}));
}

TEST_F(clsMirrorAnswersTest, AnAxisThatLeavesTheLimitDuringTheBoxIsLatchedAllTheSame) {
    boxes.whileShown = Once([&] { Line("sSAA2,2,0,1,2,0,0,0"); });
    Line("sSAA1,2,0,1,2,1,0,0");
    Line("sSAA3,2,0,1,2,1,0,0");
    EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(clsMirrorAnswersTest, AFloodOfDistinctErrorLinesShowsEachOfThem) {
    std::string flood;
    for (int number = 0; number < 2000; ++number) {
        flood += 'n';
        flood += std::to_string(100 + number % 900);
        flood += static_cast<char>('1' + number % 8);
        flood += "\r\n";
    }
    Receive(flood);
    EXPECT_EQ(boxes.shown.size(), 2000u);
    EXPECT_EQ(Logged(), boxes.Texts());
}

}  // namespace
}  // namespace travo::test
