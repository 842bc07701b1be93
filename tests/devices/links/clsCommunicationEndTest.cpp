// What the facade still sends once the end of the program is decided, or the system has asked for it.
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <vector>

#include "core/state/SharedState.h"
#include "devices/links/ManipulatorRig.h"
#include "devices/links/clsCommunication.h"
#include "support/InstrumentsListener.h"

namespace travo::test {
namespace {

using Moves = std::vector<std::array<std::int32_t, 3>>;

enum class Reason { Decided, Asked };

class clsCommunicationEndTest : public ::testing::TestWithParam<Reason>, public ManipulatorRig {
protected:
    clsCommunicationEndTest() {
        link.reset();
        facade.emplace(clsCommunication::Machine{Machine(), serialPorts, eventLoop}, state, failures,
                       instruments);
        facade->MagnescalePortOpen(1);
        facade->MirrorPortOpen(2);
        facade->MotorPortOpen(3);
        journal.clear();
    }

    void End() {
        if (GetParam() == Reason::Decided) {
            facade->EndMoves();
        } else {
            eventLoop.endAsked = true;
        }
    }

    class NoListener : public SharedState::Listener {
        void MagnificationChanged(std::int16_t) override {}
        void ViewChanged() override {}
    };

    NoListener listener;
    SharedState state{listener};
    InstrumentsListener instruments{journal};
    std::optional<clsCommunication> facade;
};

TEST_P(clsCommunicationEndTest, NothingIsSentThatMovesAnything) {
    End();
    EXPECT_EQ(facade->SendManipulatorData(0, {400, 5, 6}, {0, 5, 6}), 0);
    facade->SendMirrorData(0, 10);
    facade->SendMirrorData(1, 10);
    facade->SendMirrorMagnificationData(2);
    facade->SendMotorLock(1);
    facade->MotorMoveMZ(5);
    facade->MotorMoveRZ(5);
    facade->MotorErgoConnect("RZ1");
    std::int16_t number = 1;
    facade->TestManipulator(number);
    EXPECT_EQ(journal, Journal());
    EXPECT_TRUE(driver.moves.empty());
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(clock.slept, 0);
}

TEST_P(clsCommunicationEndTest, WhatStopsAsksSwitchesOffAndClosesIsSent) {
    End();
    facade->MotorHALT();
    facade->SendMotorLock(0);
    facade->MagnescaleKeyON();
    facade->MagnescalePortClose();
    facade->MirrorPortClose();
    facade->MotorPortClose();
    EXPECT_EQ(journal, (Journal{"port 3 > HALT\r", "ControlONOFF 0", "port 2 > cPMS0\r", "port 1 > KEYON\r\n",
                                "port 1 close", "port 2 close", "port 3 close"}));
}

TEST_P(clsCommunicationEndTest, TheWayBackOfATestThatIsUnderWayIsSent) {
    eventLoop.whileServed = [this] { End(); };
    std::int16_t number = 1;
    facade->TestManipulator(number);
    EXPECT_EQ(driver.moves, (Moves{{150, 200, 300}, {100, 200, 300}}));
}

INSTANTIATE_TEST_SUITE_P(Either, clsCommunicationEndTest, ::testing::Values(Reason::Decided, Reason::Asked),
                         [](const auto& reason) {
                             return reason.param == Reason::Decided ? "OnceTheClosingIsDecided"
                                                                    : "OnceTheSystemHasAskedForTheEnd";
                         });

}  // namespace
}  // namespace travo::test
