#include "devices/links/clsMagnescale.h"

#include <optional>

#include "devices/links/LinkRig.h"

namespace travo::test {
namespace {

class clsMagnescaleTest : public LinkRig, public clsMagnescale::Receiver {
protected:
    clsMagnescaleTest() { link.emplace(serialPorts, failures, *this); }

    FakeSerialPort& Port() { return *serialPorts.created.front(); }
    void Open() {
        link->PortOpen(2);
        Port().TakeOutput();
        journal.clear();
    }
    // Text arrives and Clear To Send changes behind it.
    void Receive(std::string_view text) { Port().Receive(text, platform::ClearToSendEvent); }
    // What a whole answer brings.
    Journal After(const std::string& text) {
        journal.clear();
        Receive(text);
        return journal;
    }

    std::optional<clsMagnescale> link;

private:
    void MagnescaleData(std::int32_t Data) override { FailIfAsked("Z " + std::to_string(Data)); }
};

const Journal Nothing;

TEST_F(clsMagnescaleTest, PortOpenSetsThePortUpAndLeavesHandshakingAtTheDefault) {
    Port().handshaking = Port().inputLen = Port().inputMode = Port().rThreshold = 9;
    link->PortOpen(2);
    EXPECT_EQ(Port().commPort, 2);
    EXPECT_EQ(Port().settings, "2400,N,8,1");
    EXPECT_EQ(Port().handshaking, 9);
    EXPECT_EQ(Port().inputLen, 0);
    EXPECT_EQ(Port().inputMode, 0);
    EXPECT_EQ(Port().rThreshold, 0);
    EXPECT_TRUE(link->PortOpenCheck());
}

TEST_F(clsMagnescaleTest, PortOpenAsksForAReading) {
    link->PortOpen(2);
    EXPECT_EQ(journal, (Journal{"port 2 open", "port 2 > Ar\r\n"}));
}

TEST_F(clsMagnescaleTest, AFailureInPortCloseIsReported) {
    Open();
    Port().failClose = true;
    link->PortClose();
    EXPECT_EQ(Reported(), QStringLiteral("Error : Magnescale : Communication Port Close failed"));
    Port().failClose = false;
}

void SendAll(clsMagnescale& link) {
    link.RequestData();
    link.ZeroReset();
    link.KeyOFF();
    link.KeyON();
}

TEST_F(clsMagnescaleTest, EachCommandIsWrittenByteForByte) {
    Open();
    SendAll(*link);
    EXPECT_EQ(journal,
              (Journal{"port 2 > Ar\r\n", "port 2 > ARES\r\n", "port 2 > KEYOFF\r\n", "port 2 > KEYON\r\n"}));
}

TEST_F(clsMagnescaleTest, AnyCommandWithThePortClosedSendsNothing) {
    SendAll(*link);
    EXPECT_EQ(journal, Nothing);
    EXPECT_TRUE(Silent());
}

TEST_F(clsMagnescaleTest, APlus00Point100WithCrLfArrivingInOnePieceGives100) {
    Open();
    EXPECT_EQ(After("A+00.100\r\n"), Journal{"Z 100"});
}

TEST_F(clsMagnescaleTest, APlus00FollowedInALaterEventByPoint100WithCrLfGives100) {
    Open();
    EXPECT_EQ(After("A+00"), Nothing);
    EXPECT_EQ(After(".100\r\n"), Journal{"Z 100"});
}

TEST_F(clsMagnescaleTest, XxAPlus00Point100Gives100AndTheNoiseAheadOfTheAIsSkipped) {
    Open();
    EXPECT_EQ(After("xxA+00.100"), Journal{"Z 100"});
}

TEST_F(clsMagnescaleTest, TwoReadingsInOnePieceGiveTheFirstOnlyAndTheSecondIsDropped) {
    Open();
    EXPECT_EQ(After("A+00.100A+00.200"), Journal{"Z 100"});
    EXPECT_EQ(After("A+00.300"), Journal{"Z 300"});
}

TEST_F(clsMagnescaleTest, AReceptionWithoutAChangeOfClearToSendLeavesTheTextInThePortsBuffer) {
    Open();
    for (const int code : {1, 2, 4, 1010}) {
        Port().Receive("A+00.100", code);
    }
    EXPECT_EQ(journal, Nothing);
    EXPECT_EQ(Port().buffer.size(), 32u);
    Port().Tell(platform::ClearToSendEvent);
    EXPECT_EQ(journal, Journal{"Z 100"});
    EXPECT_EQ(Port().buffer, "");
}

TEST_F(clsMagnescaleTest, AReadingIsTakenAtTheChangeThatCompletesItEvenWithoutNewText) {
    Open();
    EXPECT_EQ(After("A+00.10"), Nothing);
    Port().Tell(platform::ClearToSendEvent);
    EXPECT_EQ(journal, Nothing);
    EXPECT_EQ(After("0"), Journal{"Z 100"});
}

TEST_F(clsMagnescaleTest, TheReadingTimes1000IsRoundedToNearestWithTiesToEven) {
    Open();
    EXPECT_EQ(After("A+01.234"), Journal{"Z 1234"});
    EXPECT_EQ(After("A-00.500"), Journal{"Z -500"});
    EXPECT_EQ(After("A-00.000"), Journal{"Z 0"});
    EXPECT_EQ(After("A0000.5\r"), Nothing);
    EXPECT_EQ(After("A.000500"), Journal{"Z 0"});
    EXPECT_EQ(After("A.001500"), Journal{"Z 2"});
    EXPECT_EQ(After("A.002500"), Journal{"Z 2"});
    EXPECT_EQ(After("A-.00251"), Journal{"Z -3"});
    EXPECT_EQ(After("A0.00049"), Journal{"Z 0"});
}

TEST_F(clsMagnescaleTest, ANumberNeedsNoSignAndNoPoint) {
    Open();
    EXPECT_EQ(After("A0000012"), Journal{"Z 12000"});
    EXPECT_EQ(After("A+000012"), Journal{"Z 12000"});
    EXPECT_EQ(After("A00012.5"), Journal{"Z 12500"});
    EXPECT_EQ(After("A-00012."), Journal{"Z -12000"});
}

TEST_F(clsMagnescaleTest, AReadingThatIsNoDecimalNumberEndsTheCallbackAndWhatWasReceivedIsLost) {
    Open();
    for (const char* const text :
         {"A+0x0.12", "A1e99999", "Anan+nan", "A+inf   ", "A 1.2345", "A1.2345 ", "A1.2.345", "A++1.234",
          "A+-1.234", "A1.234+5", "A+.-----", "A.......", "A1,23456", "AA+00.10", "A+00\r\n.1", "A1e+0001",
          "A0001.5f", "A\262000000"}) {
        EXPECT_EQ(After(text), Nothing) << text;
    }
    EXPECT_TRUE(Silent());
    EXPECT_EQ(After("A+00.100"), Journal{"Z 100"});
}

TEST_F(clsMagnescaleTest, WhatStandsBehindABadReadingIsLostWithIt) {
    Open();
    EXPECT_EQ(After("noiseAbad bad\r\nA+00.100\r\n"), Nothing);
    EXPECT_EQ(After("A+00.200"), Journal{"Z 200"});
}

TEST_F(clsMagnescaleTest, AReadingBeyond32BitsIsDroppedInSilence) {
    Open();
    EXPECT_EQ(After("A2147483"), Journal{"Z 2147483000"});
    EXPECT_EQ(After("A2147484"), Nothing);
    EXPECT_EQ(After("A9999999"), Nothing);
    EXPECT_EQ(After("A-999999"), Journal{"Z -999999000"});
    EXPECT_TRUE(Silent());
}

TEST_F(clsMagnescaleTest, NulAndBytesAbove127AreNoise) {
    Open();
    EXPECT_EQ(After(std::string("\0\xFF\xE4", 3)), Nothing);
    EXPECT_EQ(After("A+00.100"), Journal{"Z 100"});
    EXPECT_EQ(After(std::string("A+00\0.10", 8)), Nothing);
}

TEST_F(clsMagnescaleTest, NoiseWithoutAnATakesTimeInProportion) {
    Open();
    for (int bytes = 0; bytes < 2000000; ++bytes) {
        Receive("x");
    }
    EXPECT_EQ(journal, Journal{"dropped 1"});
    EXPECT_EQ(After("A+00.100"), Journal{"Z 100"});
}

TEST_F(clsMagnescaleTest, TextOneByteAtATimeGivesTheSameReading) {
    Open();
    for (const char byte : std::string("xA+01.500\r\n")) {
        Receive(std::string(1, byte));
    }
    EXPECT_EQ(journal, Journal{"Z 1500"});
    EXPECT_EQ(After("A+02.000"), Journal{"Z 2000"});
}

TEST_F(clsMagnescaleTest, AHundredKilobytesAtOnceGiveTheFirstReading) {
    Open();
    EXPECT_EQ(After(std::string(100000, '#') + "A+01.500" + std::string(100000, 'A')), Journal{"Z 1500"});
}

TEST_F(clsMagnescaleTest, TextWithoutAWholeReadingSurvivesAReopening) {
    Open();
    Receive("A+00");
    link->PortClose();
    Open();
    EXPECT_EQ(After(".100"), Journal{"Z 100"});
}

// Fresh readings.

TEST_F(clsMagnescaleTest, BeforeAnyZeroResetEveryReadingIsFresh) {
    EXPECT_TRUE(link->ReadingIsFresh());
    Open();
    EXPECT_TRUE(link->ReadingIsFresh());
}

TEST_F(clsMagnescaleTest, AfterAZeroResetAReadingIsFreshOnceARequestSentAfterItIsAnswered) {
    Open();
    Receive("A+00.100\r\n");
    link->ZeroReset();
    EXPECT_FALSE(link->ReadingIsFresh());
    link->RequestData();
    EXPECT_FALSE(link->ReadingIsFresh()) << "asked, not answered";
    Receive("A+00.000\r\n");
    EXPECT_TRUE(link->ReadingIsFresh());
}

TEST_F(clsMagnescaleTest, AnEqualValueIsAsFreshAsAnyOther) {
    Open();
    Receive("A+00.000\r\n");
    link->ZeroReset();
    link->RequestData();
    Receive("A+00.000\r\n");
    EXPECT_TRUE(link->ReadingIsFresh());
}

TEST_F(clsMagnescaleTest, LateAnswersToRequestsSentBeforeAZeroResetAreNotFresh) {
    Open();
    link->RequestData();
    link->RequestData();
    link->ZeroReset();
    link->RequestData();
    for (int late = 0; late < 3; ++late) {
        EXPECT_EQ(After("A+00.100\r\n"), Journal{"Z 100"}) << "it is told all the same";
        EXPECT_FALSE(link->ReadingIsFresh()) << late;
    }
    Receive("A+00.000\r\n");
    EXPECT_TRUE(link->ReadingIsFresh());
}

TEST_F(clsMagnescaleTest, AnAnswerThatNobodyAskedForIsNotFreshAndCountsForNoRequest) {
    Open();
    Receive("A+00.100\r\n");
    link->ZeroReset();
    Receive("A+00.100\r\n");
    EXPECT_FALSE(link->ReadingIsFresh());
    link->RequestData();
    EXPECT_FALSE(link->ReadingIsFresh());
    Receive("A+00.000\r\n");
    EXPECT_TRUE(link->ReadingIsFresh());
}

TEST_F(clsMagnescaleTest, AReadingThatIsNoNumberAnswersNothing) {
    Open();
    Receive("A+00.100\r\n");
    link->ZeroReset();
    link->RequestData();
    Receive("Abad bad\r\n");
    EXPECT_FALSE(link->ReadingIsFresh());
}

TEST_F(clsMagnescaleTest, AfterAReopeningOldRequestsAreForgottenAndTheFirstAnswerIsFresh) {
    Open();
    for (int unanswered = 0; unanswered < 10; ++unanswered) {
        link->RequestData();
    }
    link->ZeroReset();
    link->PortOpen(2);
    EXPECT_FALSE(link->ReadingIsFresh());
    Receive("A+00.000\r\n");
    EXPECT_TRUE(link->ReadingIsFresh());
}

TEST_F(clsMagnescaleTest, AnOutageHoldsTheFreshReadingUpForThirtyTwoAnswersAtMost) {
    Open();
    for (int unanswered = 0; unanswered < 1000; ++unanswered) {
        link->RequestData();
    }
    link->ZeroReset();
    for (int answer = 1; answer <= 32; ++answer) {
        EXPECT_FALSE(link->ReadingIsFresh()) << answer;
        link->RequestData();
        Receive("A+00.000\r\n");
    }
    EXPECT_TRUE(link->ReadingIsFresh());
}

TEST_F(clsMagnescaleTest, SilenceAloneMakesNothingFresh) {
    Open();
    link->ZeroReset();
    for (int unanswered = 0; unanswered < 1000; ++unanswered) {
        link->RequestData();
    }
    EXPECT_FALSE(link->ReadingIsFresh());
}

TEST_F(clsMagnescaleTest, AZeroResetThatThePortRefusesWantsAFreshReadingAllTheSameAndOneWithoutAPortDoesNot) {
    link->ZeroReset();
    EXPECT_TRUE(link->ReadingIsFresh());
    Open();
    Port().failOutput = true;
    EXPECT_THROW(link->ZeroReset(), std::runtime_error);
    EXPECT_FALSE(link->ReadingIsFresh());
}

TEST_F(clsMagnescaleTest, AFailureOfTheReceiverGoesUpAndTheReadingIsGone) {
    Open();
    failing = {"Z 100"};
    EXPECT_THROW(Receive("A+00.100"), std::runtime_error);
    EXPECT_TRUE(Silent());
    EXPECT_EQ(After("A+00.200"), Journal{"Z 200"});
}

}  // namespace
}  // namespace travo::test
