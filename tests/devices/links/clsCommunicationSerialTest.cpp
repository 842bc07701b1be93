// The serial half of the facade: every operation to its link, every received value into the state.
#include <functional>
#include <optional>

#include "devices/links/LinkRig.h"
#include "devices/links/clsCommunication.h"
#include "support/InstrumentsListener.h"

namespace travo::test {
namespace {

// Journals each telling of the shared state.
class JournalState : public SharedState::Listener {
public:
    explicit JournalState(Journal& journal) : journal_(journal) {}

private:
    void MagnificationChanged(std::int16_t magnification) override {
        journal_.push_back("magnification " + std::to_string(magnification));
    }
    void ViewChanged() override { journal_.push_back("view changed"); }

    Journal& journal_;
};

// Says how many ports there were when the driver object was made.
class NotingLibrary : public platform::ManipulatorDriverLibrary {
public:
    NotingLibrary(const FakeSerialPorts& serialPorts, Journal& journal)
        : ports_(serialPorts), journal_(journal) {}
    std::unique_ptr<platform::ManipulatorDriver> Create() override {
        portsBefore = ports_.created.size();
        return std::make_unique<FakeDriver>(driver_, journal_);
    }
    std::size_t portsBefore = 0;

private:
    const FakeSerialPorts& ports_;
    Journal& journal_;
    FakeDriverState driver_;
};

class clsCommunicationSerialTest : public LinkRig {
protected:
    clsCommunicationSerialTest() {
        facade.emplace(
            clsCommunication::Machine{{library, clock, eventLoop, pointer}, serialPorts, eventLoop}, state,
            failures, instruments);
    }

    void OpenAll() {
        facade->MagnescalePortOpen(2);
        facade->MirrorPortOpen(1);
        facade->MotorPortOpen(3);
        journal.clear();
    }

    // Every outbound operation of the serial instruments but the opening and closing.
    void SendAll() {
        facade->SendMirrorData(0, -12);
        facade->SendMirrorData(1, 34);
        facade->SendMirrorMagnificationData(2);
        facade->SendMotorLock(1);
        facade->SendErgoZ(0);
        facade->RequestMirrorData();
        facade->RequestMagnescaleData();
        facade->MagnescaleZeroReset();
        facade->MagnescaleKeyON();
        facade->MagnescaleKeyOFF();
        facade->MotorZeroReset();
        facade->MotorMoveMZ(500);
        facade->MotorMoveRZ(-500);
        facade->MotorMoveWZ();
        facade->MotorHALT();
        facade->MotorErgoConnect("RZ1");
    }

    NotingLibrary library{serialPorts, journal};
    JournalState listener{journal};
    SharedState state{listener};
    InstrumentsListener instruments{journal};
    std::optional<clsCommunication> facade;
};

const Journal Nothing;

TEST_F(clsCommunicationSerialTest, TheLinksAreCreatedInTheOrderGaugeMirrorManipulatorMotor) {
    EXPECT_EQ(library.portsBefore, 2u);
    ASSERT_EQ(serialPorts.created.size(), 3u);
    OpenAll();
    EXPECT_EQ(GaugePort().settings, "2400,N,8,1");
    EXPECT_EQ(GaugePort().commPort, 2);
    EXPECT_EQ(MirrorPort().commPort, 1);
    EXPECT_EQ(MotorPort().commPort, 3);
}

// What a link does at its opening, its first commands included, it does within the opening of its port.
TEST_F(clsCommunicationSerialTest, WhatFailsInTheOpeningOfAPortClosesItAndNobodyIsTold) {
    struct Row {
        FakeSerialPort& port;
        std::function<void()> open;
    };
    const Row rows[] = {{GaugePort(), [this] { facade->MagnescalePortOpen(2); }},
                        {MirrorPort(), [this] { facade->MirrorPortOpen(1); }},
                        {MotorPort(), [this] { facade->MotorPortOpen(3); }}};
    for (const Row& row : rows) {
        row.port.failOutput = true;
        EXPECT_NO_THROW(row.open());
        EXPECT_FALSE(row.port.open) << row.port.commPort;
        row.port.failOutput = false;
        serialPorts.missing = {row.port.commPort};
        EXPECT_NO_THROW(row.open());
        EXPECT_FALSE(row.port.open) << row.port.commPort;
    }
    EXPECT_TRUE(Silent());
}

TEST_F(clsCommunicationSerialTest, TheLinksAreReleasedInTheSameOrder) {
    OpenAll();
    facade.reset();
    EXPECT_EQ(journal, (Journal{"port 2 close", "port 1 close", "driver released", "port 3 close"}));
}

TEST_F(clsCommunicationSerialTest, EveryOutboundOperationReachesItsLink) {
    OpenAll();
    SendAll();
    EXPECT_EQ(journal, (Journal{"port 1 > cD2A-12\r",      "port 1 > cD1A34\r",   "port 1 > cMAG2\r",
                                "port 1 > cPMS1\r",        "port 1 > cZEN0\r",    "port 1 > rD2R\r",
                                "port 1 > rD1R\r",         "port 2 > Ar\r\n",     "port 2 > ARES\r\n",
                                "port 2 > KEYON\r\n",      "port 2 > KEYOFF\r\n", "port 3 > ZERO\r",
                                "ControlONOFF 0",          "port 3 > MOVEZ500\r", "ControlONOFF 0",
                                "port 3 > RELMOVEZ-500\r", "ControlONOFF 0",      "port 3 > WHEREZ\r",
                                "ControlONOFF 0",          "port 3 > HALT\r",     "ControlONOFF 0",
                                "port 3 > RZ1\r",          "ControlONOFF 0"}));
}

TEST_F(clsCommunicationSerialTest,
       WithAllPortsClosedEverySerialOperationReturnsAtOnceWithNoEffectAndNoMessage) {
    SendAll();
    facade->MirrorPortClose();
    facade->MagnescalePortClose();
    facade->MotorPortClose();
    EXPECT_EQ(journal, Nothing);
    EXPECT_EQ(clock.slept, 0);
    EXPECT_EQ(eventLoop.served, 0);
    EXPECT_TRUE(Silent());
}

TEST_F(clsCommunicationSerialTest, EachPortIsOpenedCheckedAndClosedByItself) {
    EXPECT_FALSE(facade->MirrorPortOpenCheck() || facade->MagnescalePortOpenCheck() ||
                 facade->MotorPortOpenCheck());
    facade->MirrorPortOpen(1);
    EXPECT_TRUE(facade->MirrorPortOpenCheck());
    EXPECT_FALSE(facade->MagnescalePortOpenCheck() || facade->MotorPortOpenCheck());
    facade->MagnescalePortOpen(2);
    EXPECT_TRUE(facade->MagnescalePortOpenCheck());
    EXPECT_FALSE(facade->MotorPortOpenCheck());
    facade->MotorPortOpen(3);
    EXPECT_TRUE(facade->MotorPortOpenCheck());
    facade->MirrorPortClose();
    EXPECT_FALSE(facade->MirrorPortOpenCheck());
    facade->MagnescalePortClose();
    EXPECT_FALSE(facade->MagnescalePortOpenCheck());
    facade->MotorPortClose();
    EXPECT_FALSE(facade->MotorPortOpenCheck());
}

TEST_F(clsCommunicationSerialTest, SendMirrorDataWithAxis2SendsNothingAndRaisesNothing) {
    OpenAll();
    for (const std::int16_t axis : std::initializer_list<std::int16_t>{2, -1, 3, INT16_MAX, INT16_MIN}) {
        facade->SendMirrorData(axis, 5);
    }
    EXPECT_EQ(journal, Nothing);
}

TEST_F(clsCommunicationSerialTest, MotorMoveWZSendsThePositionQuestionAndLeavesTheFocusWhereItIs) {
    OpenAll();
    MotorPort().TakeOutput();
    facade->MotorMoveWZ();
    EXPECT_EQ(MotorPort().TakeOutput(), "WHEREZ\r");
}

TEST_F(clsCommunicationSerialTest, ReceiveMotorDataWith2SetsBMirrorMotorONOFFAndPasses2On) {
    facade->ReceiveMotorData(2);
    EXPECT_TRUE(state.bMirrorMotorONOFF);
    EXPECT_EQ(journal, Journal{"checkMotor 2"});
    facade->ReceiveMotorData(0);
    EXPECT_FALSE(state.bMirrorMotorONOFF);
    EXPECT_EQ(journal, (Journal{"checkMotor 2", "checkMotor 0"}));
}

TEST_F(clsCommunicationSerialTest, ReceiveMotorDataWritesTheStateBeforeItTellsThePanels) {
    instruments.fail = true;
    EXPECT_THROW(facade->ReceiveMotorData(-1), std::runtime_error);
    EXPECT_TRUE(state.bMirrorMotorONOFF);
}

TEST_F(clsCommunicationSerialTest, MirrorAnswersGoIntoTheStateAndAreToldOnlyWhenTheyDiffer) {
    OpenAll();
    MirrorPort().Receive("aD2R5\r\naD1R6\r\naD2R5\r\naMGR2\r\naPMR1\r\n");
    EXPECT_EQ(state.CurrentXYZ(), (PositionXYZ{5, 6, NoPositionValue}));
    EXPECT_TRUE(state.bMirrorMotorONOFF);
    EXPECT_EQ(journal, (Journal{"view changed", "view changed", "magnification 2", "checkMotor 1"}));
}

TEST_F(clsCommunicationSerialTest, AStatusLineIsAlwaysToldOnce) {
    OpenAll();
    MirrorPort().Receive("sSAA5,6,0,1,2,0,0,0\r\nsSAA5,6,1,1,2,0,0,0\r\n");
    EXPECT_EQ(state.CurrentXYZ(0), 5);
    EXPECT_EQ(state.CurrentXYZ(1), 6);
    const Journal once{"magnification 2", "view changed", "checkMotor 1"};
    ASSERT_EQ(journal.size(), 6u);
    EXPECT_EQ(Journal(journal.begin(), journal.begin() + 3), once);
    EXPECT_EQ(Journal(journal.begin() + 3, journal.end()), once);
}

TEST_F(clsCommunicationSerialTest, AMagnificationOutside0To3ChangesNothing) {
    OpenAll();
    MirrorPort().Receive("aMGR4\r\naMGR-1\r\n");
    EXPECT_EQ(state.intMagnification(), 0);
    EXPECT_EQ(journal, Nothing);
}

TEST_F(clsCommunicationSerialTest, TheGaugesReadingBecomesZOfTheState) {
    OpenAll();
    GaugePort().Receive("A-00.500\r\n", platform::ClearToSendEvent);
    EXPECT_EQ(state.CurrentXYZ(2), -500);
    EXPECT_EQ(journal, Journal{"view changed"});
}

TEST_F(clsCommunicationSerialTest, AnErgoLineOnTheMirrorsWireGoesToTheMotorPort) {
    OpenAll();
    MirrorPort().Receive("RZ100\r");
    EXPECT_EQ(journal, (Journal{"port 3 > RZ100\r", "ControlONOFF 0"}));
}

TEST_F(clsCommunicationSerialTest, AnErgoLineIsDroppedWhileTheMotorPortIsClosed) {
    facade->MirrorPortOpen(1);
    journal.clear();
    MirrorPort().Receive("RZ100\r");
    EXPECT_EQ(journal, Nothing);
}

TEST_F(clsCommunicationSerialTest, TheMotorsAnswerUnlocksThePanelAndIdentifiesTheUnit) {
    OpenAll();
    MotorPort().Receive("Remote Drive Accessory\r");
    EXPECT_TRUE(state.bMotorONOFF);
    EXPECT_EQ(journal, Journal{"ControlONOFF 1"});
}

TEST_F(clsCommunicationSerialTest, AMirrorLineWithinTheMotorsServedLoopIsTakenThere) {
    OpenAll();
    eventLoop.whileServed = Once([&] { MirrorPort().Receive("RZ7\r"); });
    MotorPort().Receive("A\r");
    EXPECT_EQ(journal, (Journal{"port 3 > RZ7\r", "ControlONOFF 0", "ControlONOFF 1"}));
}

}  // namespace
}  // namespace travo::test
