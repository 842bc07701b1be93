#include "devices/links/clsCommunication.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <vector>

#include "core/ground/Arithmetic.h"
#include "core/state/SharedState.h"
#include "devices/links/ManipulatorRig.h"
#include "support/InstrumentsListener.h"

namespace travo::test {
namespace {

class clsCommunicationTest : public ::testing::Test, public ManipulatorRig {
protected:
    clsCommunicationTest() {
        link.reset();
        driver.created = driver.released = 0;
        Connect();
        journal.clear();
    }

    void Connect() {
        facade.emplace(clsCommunication::Machine{Machine(), serialPorts, eventLoop}, state, failures,
                       instruments);
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

TEST_F(clsCommunicationTest, CreatesItsLinkWhenItIsCreatedAndReleasesItWhenItEnds) {
    EXPECT_EQ(driver.created, 1);
    EXPECT_EQ(driver.released, 0);
    facade.reset();
    EXPECT_EQ(driver.released, 1);
}

TEST_F(clsCommunicationTest, SendManipulatorDataMovesAndBlocksUntilTheTimeOfTheMoveIsOver) {
    EXPECT_EQ(facade->SendManipulatorData(2, {400, 5, 6}, {0, 5, 6}), 1);
    EXPECT_EQ(driver.moves, (std::vector<std::array<std::int32_t, 3>>{{400, 5, 6}}));
    EXPECT_EQ(clock.slept, 101);
}

TEST_F(clsCommunicationTest, SendManipulatorDataReturns0WhenNothingWasMoved) {
    EXPECT_EQ(facade->SendManipulatorData(0, {25001, 0, 0}, {0, 0, 0}), 0);
    EXPECT_EQ(boxes.Texts(), QStringList{OutsideRange});
}

TEST_F(clsCommunicationTest, RequestManipulatorDataReturnsTheLinksText) {
    EXPECT_EQ(facade->RequestManipulatorData(), "0,100,200,300");
    driver.position[0][0] = 25001;
    EXPECT_EQ(facade->RequestManipulatorData(), "-1");
    EXPECT_EQ(facade->RequestManipulatorData(), "");
}

TEST_F(clsCommunicationTest, TestManipulatorPassesTheNumberByReference) {
    std::int16_t number = 2;
    facade->TestManipulator(number);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(journal, (Journal{"DriverSelect 2", "DriverGetPosition", "DriverMoveTo", "DriverMoveTo"}));
}

TEST_F(clsCommunicationTest, ChangeManipulatorReturnsTheDriversAnswer) {
    driver.selectAnswer = 5;
    EXPECT_EQ(facade->ChangeManipulator(3), 5);
    EXPECT_EQ(journal, Journal{"DriverSelect 3"});
}

TEST_F(clsCommunicationTest, ChangeManipulatorReturnsMinus1WhileAnotherDriverCallIsUnderWay) {
    std::int32_t answer = 0;
    driver.whileCalled = [once = Once([&] { answer = facade->ChangeManipulator(2); })](const std::string&) {
        once();
    };
    facade->RequestManipulatorData();
    EXPECT_EQ(answer, -1);
    EXPECT_EQ(journal, Journal{"DriverGetPosition"});
}

TEST_F(clsCommunicationTest, ConnectManipulatorReturnsTheHighestConnectedIndex) {
    driver.count = 2;
    EXPECT_EQ(facade->ConnectManipulator(), 1);
}

TEST_F(clsCommunicationTest, ConnectManipulatorReturnsMinus1WithoutADriver) {
    driver.libraryMissing = true;
    Connect();
    EXPECT_EQ(facade->ConnectManipulator(), -1);
    EXPECT_EQ(facade->ChangeManipulator(1), -1);
}

TEST_F(clsCommunicationTest, ReConnectManipulatorConnectsAnewAndHandsAFailureToTheCaller) {
    facade->ReConnectManipulator();
    EXPECT_EQ(journal, Journal{"DriverReconnect"});
    driver.failing = {"DriverReconnect"};
    EXPECT_THROW(facade->ReConnectManipulator(), platform::DriverFailure);
}

TEST_F(clsCommunicationTest, ManipulatorNumberSetAndCheckNumberReachTheNumberTable) {
    facade->ManipulatorNumberSet(0, 2);
    EXPECT_EQ(facade->ManipulatorCheckNumber(2), 0);
    EXPECT_EQ(facade->ManipulatorCheckNumber(0), 2);
    EXPECT_EQ(facade->ManipulatorCheckNumber(7), 4);
    EXPECT_THROW(facade->ManipulatorNumberSet(4, 2), BoundsFailure);
}

}  // namespace
}  // namespace travo::test
