#include "devices/links/clsManipulator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

#include "core/ground/Arithmetic.h"
#include "devices/links/ManipulatorRig.h"

namespace travo::test {
namespace {

using platform::PointerShape;
using Moves = std::vector<std::array<std::int32_t, 3>>;

class clsManipulatorTest : public ::testing::Test, public ManipulatorRig {};

// Reports whatever number and place the test gives.
class ReportingLibrary : public platform::ManipulatorDriverLibrary {
public:
    platform::ManipulatorDriver::Position position;
    std::int32_t count = 1;

    std::unique_ptr<platform::ManipulatorDriver> Create() override { return std::make_unique<Driver>(*this); }

private:
    class Driver : public platform::ManipulatorDriver {
    public:
        explicit Driver(ReportingLibrary& library) : library_(library) {}
        Position DriverGetPosition() override { return library_.position; }
        void DriverMoveTo(std::int32_t, std::int32_t, std::int32_t) override {}
        std::int32_t DriverSelect(std::int32_t) override { return 1; }
        std::int32_t DriverGetCount() override { return library_.count; }
        void DriverReconnect() override {}

    private:
        ReportingLibrary& library_;
    };
};

class ReportedPlaceTest : public clsManipulatorTest {
protected:
    ReportingLibrary reporting;
    clsManipulator subject{{reporting, clock, eventLoop, pointer}, failures};
};

// Wakes from each wait after 100 ms at most, as events arrive.
class WakingEventLoop : public FakeEventLoop {
public:
    explicit WakingEventLoop(FakeClock& clock) : FakeEventLoop(clock), clock_(clock) {}
    void ServeUntilEventOr(std::int64_t milliseconds) override {
        asked.push_back(milliseconds);
        clock_.ticks += std::min<std::int64_t>(milliseconds, 100);
    }

    std::vector<std::int64_t> asked;

private:
    FakeClock& clock_;
};

TEST_F(clsManipulatorTest, CreatesTheDriverOnceAndReleasesItAtItsEnd) {
    EXPECT_EQ(driver.created, 1);
    EXPECT_EQ(driver.released, 0);
    link.reset();
    EXPECT_EQ(driver.released, 1);
}

TEST_F(clsManipulatorTest, RequestDataForManipulatorNumber1At100_200_300ReturnsTheText0_100_200_300) {
    EXPECT_EQ(link->RequestData(), "0,100,200,300");
}

TEST_F(clsManipulatorTest, RequestDataNeitherWaitsNorServesEvents) {
    link->RequestData();
    EXPECT_EQ(clock.sleeps, 0);
    EXPECT_EQ(eventLoop.served, 0);
    EXPECT_EQ(journal, Journal{"DriverGetPosition"});
}

TEST_F(clsManipulatorTest, RequestDataPassesTheEndsOfTheRange) {
    driver.position[0] = {0, 25000, 0};
    EXPECT_EQ(link->RequestData(), "0,0,25000,0");
}

TEST_F(clsManipulatorTest, RequestDataWithAnyCoordinateOutOfRangeReturnsMinus1WithoutAMessage) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        for (const std::int32_t count : {-1, 25001}) {
            driver.position[0] = {100, 200, 300};
            driver.position[0][axis] = count;
            EXPECT_EQ(link->RequestData(), "-1") << axis << " " << count;
            EXPECT_TRUE(GuardIsTaken()) << axis << " " << count;
        }
    }
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(Logged().isEmpty());
}

TEST_F(ReportedPlaceTest, RequestDataGivesTheDriversNumberMinus1WhateverItIs) {
    reporting.position = {5, {1, 2, 3}};
    EXPECT_EQ(subject.RequestData(), "4,1,2,3");
    reporting.position.number = 0;
    EXPECT_EQ(subject.RequestData(), "-1,1,2,3");
}

TEST_F(ReportedPlaceTest, RequestDataReportsANumberThatCannotBeReducedBy1) {
    reporting.position.number = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(subject.RequestData(), "-1");
    EXPECT_EQ(boxes.Texts(), QStringList{CommunicationFailed});
}

TEST_F(ReportedPlaceTest, ConnectTestTakesANumberOf0AsNoPosition) {
    reporting.position = {0, {1, 2, 3}};
    std::int16_t number = 3;
    subject.ConnectTest(number);
    EXPECT_EQ(number, 3);
    EXPECT_EQ(boxes.Texts(), QStringList{CommunicationFailed});
}

TEST_F(ReportedPlaceTest, ConnectTestReportsANumberBeyond16Bits) {
    std::int16_t number = 3;
    reporting.position = {32768, {1, 2, 3}};
    subject.ConnectTest(number);
    EXPECT_EQ(number, 32767);
    reporting.position.number = 32769;
    subject.ConnectTest(number);
    EXPECT_EQ(number, 32767);
    EXPECT_EQ(boxes.Texts(), QStringList{CommunicationFailed});
}

TEST_F(clsManipulatorTest, SendDataWithTheTargetEqualToTheCurrentPositionMovesAndReturns1AfterAtMostOneTick) {
    EXPECT_EQ(link->SendData(0, {100, 200, 300}, {100, 200, 300}), 1);
    EXPECT_EQ(driver.moves, (Moves{{100, 200, 300}}));
    EXPECT_LE(clock.slept, 1);
}

TEST_F(clsManipulatorTest, SendDataWithADistanceOf25000CountsBlocksFor6250Milliseconds) {
    EXPECT_EQ(link->SendData(0, {25000, 0, 0}, {0, 0, 0}), 1);
    // The tick at 6250 is still not beyond the time.
    EXPECT_EQ(clock.slept, 6251);
}

TEST_F(clsManipulatorTest, SendDataWaitsForTheLongestAxisInEitherDirection) {
    link->SendData(0, {100, 0, 40}, {140, 400, 0});
    EXPECT_EQ(clock.slept, 101);
}

TEST_F(clsManipulatorTest, SendDataWaitsForAFractionOfAMillisecond) {
    link->SendData(0, {7, 0, 0}, {0, 0, 0});
    EXPECT_EQ(clock.slept, 2);
}

TEST_F(clsManipulatorTest, SendDataSleepsInSlicesOfAMillisecondAndServesNoEvents) {
    link->SendData(0, {400, 0, 0}, {0, 0, 0});
    EXPECT_EQ(clock.longestSleep, 1);
    EXPECT_EQ(eventLoop.served, 0);
}

TEST_F(clsManipulatorTest, AMoveThatAPressBeganIsAStandStillFromTheDriversCallToTheEndOfTheWait) {
    driver.whileCalled = [this](const std::string&) { EXPECT_TRUE(eventLoop.standsStill); };
    link->SendData(0, {500, 200, 300}, {100, 200, 300});
    EXPECT_FALSE(eventLoop.standsStill);
    EXPECT_EQ(eventLoop.standStills, 1);
}

TEST_F(clsManipulatorTest, AMoveThatATickBeganKeepsThePressesMadeMeanwhile) {
    driver.whileCalled = [this](const std::string&) { EXPECT_FALSE(eventLoop.standsStill); };
    link->SendData(0, {500, 200, 300}, {100, 200, 300}, clsManipulator::Presses::Kept);
    EXPECT_EQ(driver.moves.size(), 1U);
    EXPECT_EQ(eventLoop.standStills, 0);
}

TEST_F(clsManipulatorTest, TheStandStillOfAMoveThatFailsIsOverBeforeItsBoxIsOnShow) {
    driver.failing = {"DriverMoveTo"};
    boxes.whileShown = [this] { EXPECT_FALSE(eventLoop.standsStill); };
    link->SendData(0, {500, 200, 300}, {100, 200, 300});
    EXPECT_EQ(boxes.Texts(), QStringList{CommunicationFailed});
    EXPECT_EQ(eventLoop.standStills, 1);
}

TEST_F(clsManipulatorTest, AMoveThatIsRefusedStandsNotStill) {
    link->SendData(0, {25001, 200, 300}, {100, 200, 300});
    EXPECT_EQ(eventLoop.standStills, 0);
}

TEST_F(clsManipulatorTest, SendDataCountsADistanceBeyondTheRangeInFull) {
    EXPECT_EQ(link->SendData(0, {25000, 0, 0}, {-100000, 0, 0}), 1);
    EXPECT_EQ(clock.slept, 31251);
}

TEST_F(clsManipulatorTest, SendDataMovesTheManipulatorThatIsSelectedWhateverNumberIsGiven) {
    for (const std::int16_t number : std::vector<std::int16_t>{-1, 0, 3, 32767}) {
        EXPECT_EQ(link->SendData(number, {1, 2, 3}, {1, 2, 3}), 1);
    }
    EXPECT_EQ(journal, Journal(4, "DriverMoveTo"));
}

TEST_F(clsManipulatorTest, SendDataPasses25000And0) {
    EXPECT_EQ(link->SendData(0, {25000, 0, 25000}, {25000, 0, 25000}), 1);
    EXPECT_EQ(link->SendData(0, {0, 25000, 0}, {0, 25000, 0}), 1);
    EXPECT_EQ(driver.moves, (Moves{{25000, 0, 25000}, {0, 25000, 0}}));
}

TEST_F(clsManipulatorTest, SendDataShowsTheHourglassOnTheMainWindowForAsLongAsTheMoveLasts) {
    std::vector<PointerShape> whileMoving;
    driver.whileCalled = [&](const std::string&) { whileMoving = pointer.mainWindow; };
    link->SendData(0, {100, 0, 0}, {0, 0, 0});
    EXPECT_EQ(whileMoving, std::vector{PointerShape::Hourglass});
    EXPECT_EQ(pointer.mainWindow, (std::vector{PointerShape::Hourglass, PointerShape::Default}));
    EXPECT_TRUE(pointer.screen.empty());
}

TEST_F(clsManipulatorTest, ConnectTestAtX24950JogsTo25000AndBack) {
    driver.position[1] = {24950, 20, 30};
    std::int16_t number = 2;
    link->ConnectTest(number);
    EXPECT_EQ(driver.moves, (Moves{{25000, 20, 30}, {24950, 20, 30}}));
    EXPECT_EQ(journal, (Journal{"DriverSelect 2", "DriverGetPosition", "DriverMoveTo", "DriverMoveTo"}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(clsManipulatorTest, ConnectTestAtX24951RefusesAsOutsideTheMovementRange) {
    driver.position[0] = {24951, 20, 30};
    std::int16_t number = 1;
    link->ConnectTest(number);
    EXPECT_TRUE(driver.moves.empty());
    EXPECT_EQ(boxes.Texts(), QStringList{OutsideRange});
    EXPECT_EQ(number, 0);
}

TEST_F(clsManipulatorTest, ConnectTestTakesA1BasedNumberAndHoldsTheReported0BasedOneOnReturn) {
    std::int16_t number = 3;
    link->ConnectTest(number);
    EXPECT_EQ(number, 2);
}

TEST_F(clsManipulatorTest, ConnectTestOfAManipulatorThatIsNotConnectedJogsTheSelectedOne) {
    driver.count = 1;
    std::int16_t number = 4;
    link->ConnectTest(number);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(driver.moves, (Moves{{150, 200, 300}, {100, 200, 300}}));
}

TEST_F(clsManipulatorTest, ConnectTestReturns501MillisecondsAfterTheJogAndDoesNotWaitForTheWayBack) {
    std::vector<std::int64_t> movedAt;
    driver.whileCalled = [&](const std::string& operation) {
        if (operation == "DriverMoveTo") {
            movedAt.push_back(clock.ticks);
        }
    };
    std::int16_t number = 1;
    const std::int64_t start = clock.ticks;
    link->ConnectTest(number);
    EXPECT_EQ(movedAt, (std::vector<std::int64_t>{start, start + 501}));
    EXPECT_EQ(clock.ticks, start + 501);
    EXPECT_EQ(clock.sleeps, 0);
}

TEST_F(clsManipulatorTest, ConnectTestWaitsOnForWhatIsLeftWhenEventsWakeIt) {
    WakingEventLoop waking(clock);
    clsManipulator subject({driverLibrary, clock, waking, pointer}, failures);
    std::int16_t number = 1;
    subject.ConnectTest(number);
    EXPECT_EQ(waking.asked, (std::vector<std::int64_t>{501, 401, 301, 201, 101, 1}));
}

TEST_F(clsManipulatorTest, ConnectChangeHandsUpTheDriversAnswer) {
    driver.selectAnswer = 70000;
    EXPECT_EQ(link->ConnectChange(2), 70000);
    driver.selectAnswer = 0;
    EXPECT_EQ(link->ConnectChange(3), 0);
    EXPECT_EQ(journal, (Journal{"DriverSelect 2", "DriverSelect 3"}));
}

TEST_F(clsManipulatorTest, ConnectedNumberIsTheCountMinus1) {
    EXPECT_EQ(link->ConnectedNumber(), 3);
    driver.count = 0;
    EXPECT_EQ(link->ConnectedNumber(), -1);
}

TEST_F(clsManipulatorTest, ConnectedNumberBeyond16BitsGoesToTheCaller) {
    driver.count = 32768;
    EXPECT_EQ(link->ConnectedNumber(), 32767);
    driver.count = 32769;
    EXPECT_THROW(link->ConnectedNumber(), OverflowFailure);
    driver.count = std::numeric_limits<std::int32_t>::min();
    EXPECT_THROW(link->ConnectedNumber(), OverflowFailure);
}

TEST_F(clsManipulatorTest, ReConnectConnectsAnewAndReturns0) {
    EXPECT_EQ(link->ReConnect(), 0);
    EXPECT_EQ(journal, Journal{"DriverReconnect"});
}

TEST_F(clsManipulatorTest, WithoutADriverEveryOperationReturnsAtOnceWithoutAMessage) {
    driver.libraryMissing = true;
    Build();
    driver.created = 0;
    std::int16_t number = 2;
    link->ConnectTest(number);
    EXPECT_EQ(number, 2);
    EXPECT_EQ(link->ConnectChange(1), -1);
    EXPECT_EQ(link->SendData(0, {25001, 0, 0}, {0, 0, 0}), 0);
    EXPECT_EQ(link->RequestData(), "-1");
    EXPECT_EQ(link->ConnectedNumber(), -1);
    EXPECT_EQ(link->ReConnect(), 0);
    EXPECT_EQ(driver.created, 0);
    EXPECT_TRUE(journal.empty());
    EXPECT_TRUE(Logged().isEmpty());
    EXPECT_TRUE(pointer.mainWindow.empty() && pointer.screen.empty());
    EXPECT_EQ(clock.sleeps + eventLoop.served, 0);
}

std::vector<std::int16_t> SlotsOfNumbers(const clsManipulator& link) {
    std::vector<std::int16_t> slotOf;
    for (std::int16_t number = 0; number < 4; ++number) {
        slotOf.push_back(link.CheckNumberSetting(number));
    }
    return slotOf;
}

TEST_F(clsManipulatorTest, TheNumberTableStartsAs0_1_2_3) {
    EXPECT_EQ(SlotsOfNumbers(*link), (std::vector<std::int16_t>{0, 1, 2, 3}));
}

TEST_F(clsManipulatorTest, NumberSettingOf0And2On0_1_2_3Gives2_1_0_3) {
    link->NumberSetting(0, 2);
    EXPECT_EQ(SlotsOfNumbers(*link), (std::vector<std::int16_t>{2, 1, 0, 3}));
}

TEST_F(clsManipulatorTest, NumberSettingOfANumberInItsOwnSlotChangesNothing) {
    link->NumberSetting(3, 3);
    EXPECT_EQ(SlotsOfNumbers(*link), (std::vector<std::int16_t>{0, 1, 2, 3}));
}

TEST_F(clsManipulatorTest, NumberSettingOutsideTheSlotsIsABoundsFailure) {
    EXPECT_THROW(link->NumberSetting(4, 7), BoundsFailure);
    EXPECT_THROW(link->NumberSetting(-1, 7), BoundsFailure);
    EXPECT_EQ(SlotsOfNumbers(*link), (std::vector<std::int16_t>{0, 1, 2, 3}));
}

TEST_F(clsManipulatorTest, NumberSettingOutsideTheSlotsHasAlreadyWrittenTheSlotOfTheNumber) {
    EXPECT_THROW(link->NumberSetting(4, 2), BoundsFailure);
    EXPECT_EQ(SlotsOfNumbers(*link), (std::vector<std::int16_t>{0, 1, 4, 3}));
    EXPECT_EQ(link->CheckNumberSetting(4), 2);
}

TEST_F(clsManipulatorTest, CheckNumberSettingOf7Returns4) { EXPECT_EQ(link->CheckNumberSetting(7), 4); }

TEST_F(clsManipulatorTest, CheckNumberSettingReturnsTheFirstOfTwoEqualEntries) {
    link->NumberSetting(0, 7);
    link->NumberSetting(1, 1);
    link->NumberSetting(2, 9);
    // Number 0 has no slot any more: what gives way to a number takes 4.
    link->NumberSetting(0, 3);
    EXPECT_EQ(link->CheckNumberSetting(3), 0);
    EXPECT_EQ(link->CheckNumberSetting(4), 3);
}

}  // namespace
}  // namespace travo::test
