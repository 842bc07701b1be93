#include "devices/links/clsMotor.h"

#include <limits>
#include <optional>

#include "devices/links/LinkRig.h"

namespace travo::test {
namespace {

class NoListener : public SharedState::Listener {
    void MagnificationChanged(std::int16_t) override {}
    void ViewChanged() override {}
};

class clsMotorTest : public LinkRig, public clsMotor::Panel {
protected:
    clsMotorTest() { link.emplace(serialPorts, eventLoop, state, *this, failures); }

    FakeSerialPort& Port() { return *serialPorts.created.front(); }
    void Open() {
        link->PortOpen(3);
        Port().TakeOutput();
        journal.clear();
    }
    void Receive(std::string_view text) { Port().Receive(text); }

    NoListener listener;
    SharedState state{listener};
    std::optional<clsMotor> link;

private:
    void ControlONOFF(bool ONOFF) override { FailIfAsked(ONOFF ? "unlock" : "lock"); }
};

const Journal Nothing;

TEST_F(clsMotorTest, PortOpenSetsThePortUp) {
    Port().handshaking = Port().inputLen = Port().inputMode = 9;
    link->PortOpen(3);
    EXPECT_EQ(Port().commPort, 3);
    EXPECT_EQ(Port().settings, "9600,N,8,1");
    EXPECT_EQ(Port().handshaking, 0);
    EXPECT_EQ(Port().inputLen, 0);
    EXPECT_EQ(Port().inputMode, 0);
    EXPECT_EQ(Port().rThreshold, 1);
    EXPECT_TRUE(link->PortOpenCheck());
}

TEST_F(clsMotorTest, PortOpenAsksWhoIsThereAndLocksTheButtons) {
    link->PortOpen(3);
    EXPECT_EQ(journal, (Journal{"port 3 open", "port 3 > WHO\r", "lock"}));
}

TEST_F(clsMotorTest, AFailureOfThePanelInPortOpenClosesThePortInSilence) {
    failing = {"lock"};
    link->PortOpen(3);
    EXPECT_FALSE(link->PortOpenCheck());
    EXPECT_EQ(journal.back(), "port 3 close");
    EXPECT_TRUE(Silent());
}

TEST_F(clsMotorTest, AFailureInPortCloseIsReported) {
    Open();
    Port().failClose = true;
    link->PortClose();
    EXPECT_EQ(Reported(), QStringLiteral("Motor : Communication failed"));
    Port().failClose = false;
}

struct Command {
    const char* bytes;
    void (*send)(clsMotor&);
};

const Command Commands[] = {
    {"ZERO\r", [](clsMotor& link) { link.ZeroReset(); }},
    {"WHEREZ\r", [](clsMotor& link) { link.ReceiveZData(); }},
    {"RESET\r", [](clsMotor& link) { link.ResetData(); }},
    {"RELMOVEZ-1000\r", [](clsMotor& link) { link.MoveRZ(-1000); }},
    {"RELMOVEZ100\r", [](clsMotor& link) { link.MoveRZ(100); }},
    {"MOVEZ0\r", [](clsMotor& link) { link.MoveMZ(0); }},
    {"MOVEZ-2147483648\r", [](clsMotor& link) { link.MoveMZ(std::numeric_limits<std::int32_t>::min()); }},
    {"HALT\r", [](clsMotor& link) { link.HALT(); }},
    {"WHO\r", [](clsMotor& link) { link.WHO(); }},
    {"RZ100\r", [](clsMotor& link) { link.ErgoConnect("RZ100"); }},
    {"\r", [](clsMotor& link) { link.ErgoConnect(""); }},
};

TEST_F(clsMotorTest, EachCommandIsWrittenByteForByteAndThenLocksTheButtons) {
    Open();
    for (const Command& command : Commands) {
        journal.clear();
        command.send(*link);
        EXPECT_EQ(Port().TakeOutput(), command.bytes);
        EXPECT_EQ(journal, (Journal{"port 3 > " + std::string(command.bytes), "lock"}));
    }
}

TEST_F(clsMotorTest, MoveRZWithMinus1000WritesRELMOVEZMinus1000AndACr) {
    Open();
    link->MoveRZ(-1000);
    EXPECT_EQ(Port().TakeOutput(), "RELMOVEZ-1000\r");
}

TEST_F(clsMotorTest, AnyCommandWithThePortClosedNeitherWritesNorLocksTheButtons) {
    for (const Command& command : Commands) {
        command.send(*link);
    }
    EXPECT_EQ(journal, Nothing);
    EXPECT_TRUE(Silent());
}

TEST_F(clsMotorTest, AnErgoLineIsPassedOnWithEveryByteAsItStands) {
    Open();
    const std::string line("RZ\0\xE4\n1", 6);
    link->ErgoConnect(line);
    EXPECT_EQ(Port().TakeOutput(), line + "\r");
}

TEST_F(clsMotorTest, TheLineRemoteDriveAccessorySetsBMotorONOFFSinceTheTextHoldsAnA) {
    Open();
    Receive("Remote Drive Accessory\r");
    EXPECT_TRUE(state.bMotorONOFF);
    EXPECT_EQ(journal, Journal{"unlock"});
    EXPECT_TRUE(Silent());
}

TEST_F(clsMotorTest, TheIdentificationCountsAnywhereInALineButExactInCase) {
    Open();
    Receive("A remote drive accessory\rA Remote Drive accessory\r");
    EXPECT_FALSE(state.bMotorONOFF);
    Receive("A: MFC Remote Drive Accessory V2\r");
    EXPECT_TRUE(state.bMotorONOFF);
}

TEST_F(clsMotorTest, TheLineZShowsZFollowedByMotorUnknownError) {
    Open();
    Receive("Z\r");
    EXPECT_EQ(Reported(), QStringLiteral("Z: Motor : Unknown Error"));
    EXPECT_EQ(journal, (Journal{"unlock", "box Z: Motor : Unknown Error"}));
}

TEST_F(clsMotorTest, TheLineNShowsNFollowedByMotorUnknownError) {
    Open();
    Receive("N\r");
    EXPECT_EQ(Reported(), QStringLiteral("N: Motor : Unknown Error"));
}

TEST_F(clsMotorTest, ALineWithAnAIsGoodEvenWithAnN) {
    Open();
    Receive("NA\rN Remote\r");
    EXPECT_EQ(journal, (Journal{"unlock", "unlock", "box N Remote: Motor : Unknown Error"}));
    EXPECT_FALSE(state.bMotorONOFF);
}

TEST_F(clsMotorTest, TheLineAUnlocksTheButtonsAndShowsNothing) {
    Open();
    Receive("A\r");
    EXPECT_EQ(journal, Journal{"unlock"});
    EXPECT_TRUE(Silent());
}

TEST_F(clsMotorTest, ASmallAIsNoGoodAnswer) {
    Open();
    Receive("a\r");
    EXPECT_EQ(Reported(), QStringLiteral("a: Motor : Unknown Error"));
}

TEST_F(clsMotorTest, AnEmptyLineIsAnUnknownAnswer) {
    Open();
    Receive("\r");
    EXPECT_EQ(Reported(), QStringLiteral(": Motor : Unknown Error"));
}

TEST_F(clsMotorTest, AnAnswerToWHOSplitOverTwoReceiveEventsGivesOneLine) {
    Open();
    Receive("Remote Drive ");
    EXPECT_EQ(journal, Nothing);
    Receive("Accessory\r");
    EXPECT_EQ(journal, Journal{"unlock"});
    EXPECT_TRUE(state.bMotorONOFF);
}

TEST_F(clsMotorTest, AnEventOfAnotherKindThanReceptionLeavesTheInputBufferUnread) {
    Open();
    for (const int code : {1, 3, 4, 1001}) {
        Port().Receive("A\r", code);
    }
    EXPECT_EQ(Port().buffer, "A\rA\rA\rA\r");
    EXPECT_EQ(journal, Nothing);
    Port().Tell(platform::ReceptionEvent);
    EXPECT_EQ(journal.size(), 4u);
}

TEST_F(clsMotorTest, AReceptionWithoutInputDoesNotEvenServeTheEventLoop) {
    Open();
    Port().Tell(platform::ReceptionEvent);
    EXPECT_EQ(eventLoop.served, 0);
}

TEST_F(clsMotorTest, TheEventLoopIsServedOnceBeforeEachLineAndOnceBeforeTheRest) {
    Open();
    eventLoop.whileServed = [&] { journal.push_back("serve"); };
    Receive("A\rA\rA");
    EXPECT_EQ(journal, (Journal{"serve", "unlock", "serve", "unlock", "serve"}));
}

TEST_F(clsMotorTest, ACallWithinTheServedLoopFindsNothingPendingAndItsRestIsOverwritten) {
    Open();
    Receive("first ");
    eventLoop.whileServed = Once([&] { Receive("inner A\rlost"); });
    Receive("outer A\rkept ");
    Receive("Z\r");
    EXPECT_EQ(journal, (Journal{"unlock", "unlock", "unlock", "box kept Z: Motor : Unknown Error"}));
}

TEST_F(clsMotorTest, ARestOfTheInnerCallStaysWhereTheOuterOneLeavesNothing) {
    Open();
    eventLoop.whileServed = Once([&] { Receive("kept "); });
    Receive("A\r");
    Receive("Z\r");
    EXPECT_EQ(Reported(), QStringLiteral("kept Z: Motor : Unknown Error"));
}

TEST_F(clsMotorTest, ACallWithinTheBoxIsTakenAtOnce) {
    Open();
    boxes.whileShown = Once([&] { Receive("A\r"); });
    Receive("Z\rA\r");
    EXPECT_EQ(journal, (Journal{"unlock", "box Z: Motor : Unknown Error", "unlock", "unlock"}));
}

TEST_F(clsMotorTest, AFailureOfThePanelAtAGoodAnswerEndsInTheSameMessage) {
    Open();
    failing = {"unlock"};
    Receive("A Remote Drive Accessory\r");
    EXPECT_TRUE(state.bMotorONOFF);
    EXPECT_EQ(journal, (Journal{"unlock", "unlock", "box A Remote Drive Accessory: Motor : Unknown Error"}));
    EXPECT_EQ(Logged(), boxes.Texts());
}

TEST_F(clsMotorTest, AFailureOfThePanelAtAnUnknownAnswerDoesNotHideTheMessage) {
    Open();
    failing = {"unlock"};
    Receive("Z\rZ\r");
    EXPECT_EQ(boxes.shown.size(), 2u);
}

TEST_F(clsMotorTest, WhateverThePanelThrowsAtAnAnswerEndsInTheSameMessage) {
    Open();
    throwsNumbers = true;
    failing = {"unlock"};
    EXPECT_NO_THROW(Receive("A\rZ\r"));
    EXPECT_EQ(boxes.Texts(), (QStringList{QStringLiteral("A: Motor : Unknown Error"),
                                          QStringLiteral("Z: Motor : Unknown Error")}));
}

TEST_F(clsMotorTest, EqualLinesAreAllTaken) {
    Open();
    Receive("Z\rZ\r");
    EXPECT_EQ(boxes.shown.size(), 2u);
}

TEST_F(clsMotorTest, BytesOfTheLineAreReportedInTheCodePage) {
    Open();
    Receive(std::string("\0\x80\xE4\n\r", 5));
    const QString line = QString(QChar(0)) + QChar(0x20AC) + QChar(0xE4) + QLatin1Char('\n');
    EXPECT_EQ(boxes.Texts(), QStringList{line + QStringLiteral(": Motor : Unknown Error")});
}

TEST_F(clsMotorTest, ALineOfAMegabyteIsDroppedAndTheNextIsTaken) {
    Open();
    Receive(std::string(1000000, 'x'));
    Receive("A\rA\r");
    EXPECT_EQ(journal, (Journal{"dropped 2", "unlock"}));
}

TEST_F(clsMotorTest, TextOneByteAtATimeGivesTheSameLines) {
    Open();
    for (const char byte : std::string("A\rRemote Drive Accessory\rA12")) {
        Receive(std::string(1, byte));
    }
    EXPECT_EQ(journal, (Journal{"unlock", "unlock"}));
    EXPECT_TRUE(state.bMotorONOFF);
}

TEST_F(clsMotorTest, AHundredKilobytesAtOnceGiveAllTheirLines) {
    Open();
    std::string text;
    for (int line = 0; line < 50000; ++line) {
        text += "A\r";
    }
    Receive(text);
    EXPECT_EQ(journal.size(), 50000u);
    EXPECT_EQ(eventLoop.served, 50001);
}

TEST_F(clsMotorTest, NoiseWithoutALineEndOneByteAtATimeTakesTimeInProportion) {
    Open();
    for (int bytes = 0; bytes < 2000000; ++bytes) {
        Receive("x");
    }
    Receive("A\rA\r");
    EXPECT_EQ(journal, (Journal{"dropped 2", "unlock"}));
}

TEST_F(clsMotorTest, TextWithoutALineEndSurvivesAReopening) {
    Open();
    Receive("Remote Drive ");
    link->PortClose();
    Open();
    Receive("Accessory\r");
    EXPECT_TRUE(state.bMotorONOFF);
}

}  // namespace
}  // namespace travo::test
