// What the link reports, and what it leaves behind.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "devices/links/ManipulatorRig.h"

namespace travo::test {
namespace {

using platform::PointerShape;

constexpr std::int32_t Lowest = std::numeric_limits<std::int32_t>::min();

class clsManipulatorFailureTest : public ::testing::Test, public ManipulatorRig {
protected:
    clsManipulatorFailureTest() {
        boxes.whileShown = Once([this] {
            driver.failing.clear();
            driver.position[0] = {7, 8, 9};
            readInBox = link->RequestData();
            pointerInBox = pointer.mainWindow;
        });
    }

    // Each text once in the log and once in a box with OK alone, and the guard free during the first.
    void ExpectReported(const QStringList& texts) {
        EXPECT_EQ(boxes.Texts(), texts);
        EXPECT_EQ(Logged(), texts);
        for (const FakeBoxes::Box& box : boxes.shown) {
            EXPECT_EQ(box.buttons, platform::BoxButtons::OK);
            EXPECT_EQ(box.icon, platform::BoxIcon::None);
        }
        EXPECT_EQ(readInBox, "0,7,8,9");
    }

    std::string readInBox;
    std::vector<PointerShape> pointerInBox;
};

TEST_F(clsManipulatorFailureTest, SendDataOutOfRangeIsReportedFreesTheGuardAndReturns0) {
    TakeGuard();
    EXPECT_EQ(link->SendData(0, {25001, 0, 0}, {0, 0, 0}), 0);
    ExpectReported({OutsideRange});
    EXPECT_TRUE(driver.moves.empty());
    EXPECT_EQ(clock.sleeps, 0);
}

TEST_F(clsManipulatorFailureTest, WhateverTheDriverThrowsIsReportedAndFreesTheGuard) {
    driver.throwsNumbers = true;
    driver.failing = {"DriverMoveTo"};
    EXPECT_EQ(link->SendData(0, {101, 200, 300}, {100, 200, 300}), 0);
    ExpectReported({CommunicationFailed});
}

TEST_F(clsManipulatorFailureTest, SendDataWithOneCoordinate25001OrMinus1SendsNothing) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        for (const std::int32_t count : {25001, -1}) {
            PositionXYZ target{1, 2, 3};
            target[axis] = count;
            EXPECT_EQ(link->SendData(0, target, {1, 2, 3}), 0);
        }
    }
    EXPECT_TRUE(driver.moves.empty());
    EXPECT_EQ(boxes.Texts(), QStringList(6, OutsideRange));
}

TEST_F(clsManipulatorFailureTest, SendDataOutOfRangeSetsTheScreensPointerToDefaultBeforeTheBox) {
    std::vector<PointerShape> screenInBox;
    boxes.whileShown = [&] { screenInBox = pointer.screen; };
    link->SendData(0, {0, 0, -1}, {0, 0, 0});
    EXPECT_EQ(screenInBox, std::vector{PointerShape::Default});
    EXPECT_EQ(pointer.screen.size(), 1U);
    EXPECT_TRUE(pointer.mainWindow.empty());
}

TEST_F(clsManipulatorFailureTest, SendDataWithAFailingDriverIsReportedAndReturns0) {
    driver.failing = {"DriverMoveTo"};
    EXPECT_EQ(link->SendData(0, {1, 2, 3}, {0, 0, 0}), 0);
    ExpectReported({CommunicationFailed});
    EXPECT_EQ(clock.sleeps, 0);
}

TEST_F(clsManipulatorFailureTest, SendDataWithAFailingDriverLeavesNoHourglass) {
    driver.failing = {"DriverMoveTo"};
    link->SendData(0, {1, 2, 3}, {0, 0, 0});
    EXPECT_EQ(pointerInBox, (std::vector{PointerShape::Hourglass, PointerShape::Default}));
    EXPECT_EQ(pointer.mainWindow, pointerInBox);
}

TEST_F(clsManipulatorFailureTest, SendDataWithADistanceBeyond32BitsFailsAndSendsNothing) {
    EXPECT_EQ(link->SendData(0, {0, 2, 3}, {Lowest, 2, 3}), 0);
    ExpectReported({CommunicationFailed});
    EXPECT_TRUE(driver.moves.empty());
}

TEST_F(clsManipulatorFailureTest, SendDataLooksAtTheAxesInTheirOrder) {
    link->SendData(0, {-1, 0, 0}, {0, Lowest, 0});
    link->SendData(0, {0, -1, 0}, {Lowest, 0, 0});
    EXPECT_EQ(boxes.Texts(), (QStringList{OutsideRange, CommunicationFailed}));
}

TEST_F(clsManipulatorFailureTest, ConnectTestOutOfRangeIsReportedAndFreesTheGuard) {
    driver.position[0] = {24951, 0, 0};
    std::int16_t number = 1;
    link->ConnectTest(number);
    ExpectReported({OutsideRange});
}

TEST_F(clsManipulatorFailureTest, ConnectTestWithNoPositionIsReportedAndFreesTheGuard) {
    driver.position[0] = {25001, 0, 0};
    std::int16_t number = 1;
    link->ConnectTest(number);
    ExpectReported({CommunicationFailed});
    EXPECT_EQ(number, 1);
    EXPECT_TRUE(driver.moves.empty());
}

TEST_F(clsManipulatorFailureTest, ConnectTestWithAFailingSelectIsReported) {
    driver.failing = {"DriverSelect"};
    std::int16_t number = 1;
    link->ConnectTest(number);
    ExpectReported({CommunicationFailed});
    EXPECT_EQ(number, 1);
}

TEST_F(clsManipulatorFailureTest, ConnectTestWithAFailingReadingIsReportedByBoth) {
    driver.failing = {"DriverGetPosition"};
    std::int16_t number = 1;
    link->ConnectTest(number);
    ExpectReported({CommunicationFailed, CommunicationFailed});
    EXPECT_EQ(number, 1);
}

TEST_F(clsManipulatorFailureTest, ConnectTestWithAFailingJogIsReportedAndDoesNotWait) {
    driver.failing = {"DriverMoveTo"};
    std::int16_t number = 1;
    link->ConnectTest(number);
    ExpectReported({CommunicationFailed});
    EXPECT_EQ(eventLoop.served, 0);
    EXPECT_EQ(number, 0);
}

TEST_F(clsManipulatorFailureTest, ConnectTestWithAFailingWayBackIsReported) {
    eventLoop.whileServed = [this] { driver.failing = {"DriverMoveTo"}; };
    std::int16_t number = 1;
    link->ConnectTest(number);
    ExpectReported({CommunicationFailed});
    EXPECT_EQ(driver.moves.size(), 1U);
}

TEST_F(clsManipulatorFailureTest, RequestDataWithAFailingDriverIsReportedAndReturnsMinus1) {
    driver.failing = {"DriverGetPosition"};
    EXPECT_EQ(link->RequestData(), "-1");
    ExpectReported({CommunicationFailed});
}

TEST_F(clsManipulatorFailureTest, ConnectChangeWithAFailingDriverIsReportedWithItsOwnTextAndReturnsMinus1) {
    driver.failing = {"DriverSelect"};
    EXPECT_EQ(link->ConnectChange(2), -1);
    ExpectReported({ChangeFailed});
}

TEST_F(clsManipulatorFailureTest, ConnectedNumberAndReConnectHandTheirFailuresToTheCaller) {
    driver.failing = {"DriverGetCount", "DriverReconnect"};
    EXPECT_THROW(link->ConnectedNumber(), platform::DriverFailure);
    EXPECT_THROW(link->ReConnect(), platform::DriverFailure);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(Logged().isEmpty());
}

TEST_F(clsManipulatorFailureTest, ALogThatCannotBeWrittenDoesNotKeepTheBoxAway) {
    log.LogFilePath(folder.filePath(QStringLiteral("nowhere/log.txt")));
    EXPECT_EQ(link->SendData(0, {25001, 0, 0}, {0, 0, 0}), 0);
    EXPECT_EQ(boxes.Texts(), QStringList{OutsideRange});
}

}  // namespace
}  // namespace travo::test
