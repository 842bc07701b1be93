#include "workbench/instruments/Manipulators.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "core/ground/Arithmetic.h"

namespace workbench {

using std::chrono::milliseconds;
using std::chrono::seconds;
using travo::PositionXYZ;

namespace {

constexpr PositionXYZ Start = {HomeCount - StartRetreat, HomeCount, HomeCount};
constexpr PositionXYZ Target = {10000, 12000, 12400};
constexpr Time Now = milliseconds(100);

struct ManipulatorsRig {
    World world;
    Manipulators manipulators{world};
};

// One state of the manipulators, and what each call answers in it.
struct Row {
    std::string state;
    std::function<void(ManipulatorsRig&)> enter;
    DriverStatus position = DriverStatus::Done;
    std::int32_t number = 1;
    std::int32_t x = Start[0];
    DriverStatus move = DriverStatus::Done;
    DriverStatus moveTooFar = DriverStatus::OutOfRange;
    DriverStatus select2 = DriverStatus::Done;
    std::int32_t answer2 = Manipulators::SelectionAnswer;
    DriverStatus count = DriverStatus::Done;
    std::int32_t connected = 4;
    DriverStatus reconnect = DriverStatus::Done;
    std::int32_t selectedAfterReconnect = 1;
};

Row Failing(const std::string& state, const std::function<void(ManipulatorsRig&)>& enter) {
    Row row{state, enter};
    row.position = row.move = row.moveTooFar = row.select2 = row.count = row.reconnect = DriverStatus::Failed;
    return row;
}

std::vector<Row> StateTable() {
    constexpr DriverStatus Gone = DriverStatus::NotConnected;
    return {
        {"as it should be", [](ManipulatorsRig&) {}},
        Failing("the next call fails", [](ManipulatorsRig& b) { b.manipulators.FailCalls(1); }),
        Failing("every call fails",
                [](ManipulatorsRig& b) { b.manipulators.FailCalls(Manipulators::Always); }),
        {.state = "every move fails",
         .enter =
             [](ManipulatorsRig& b) {
                 b.manipulators.FailCalls(Manipulators::Always, DriverOperation::MoveTo);
             },
         .move = DriverStatus::Failed,
         .moveTooFar = DriverStatus::Failed},
        {.state = "hanging: what answers in the end answers as always",
         .enter = [](ManipulatorsRig& b) { b.manipulators.HangUntil(seconds(10)); }},
        {.state = "two connected",
         .enter = [](ManipulatorsRig& b) { b.manipulators.ChangeCount(Now, 2); },
         .connected = 2},
        {.state = "one connected",
         .enter = [](ManipulatorsRig& b) { b.manipulators.ChangeCount(Now, 1); },
         .answer2 = 0,
         .connected = 1},
        {.state = "none connected",
         .enter = [](ManipulatorsRig& b) { b.manipulators.ChangeCount(Now, 0); },
         .position = Gone,
         .move = Gone,
         .moveTooFar = Gone,
         .answer2 = 0,
         .connected = 0},
        {.state = "the selected one gone",
         .enter =
             [](ManipulatorsRig& b) {
                 b.manipulators.SelectAtHardware(4);
                 b.manipulators.ChangeCount(Now, 3);
             },
         .position = Gone,
         .move = Gone,
         .moveTooFar = Gone,
         .connected = 3,
         .selectedAfterReconnect = 1},
        {.state = "the selected one out of range",
         .enter = [](ManipulatorsRig& b) { b.manipulators.StrayPosition(1); },
         .x = Manipulators::StrayCount},
        {.state = "another one out of range",
         .enter = [](ManipulatorsRig& b) { b.manipulators.StrayPosition(3); }},
        {.state = "another one selected at the hardware",
         .enter = [](ManipulatorsRig& b) { b.manipulators.SelectAtHardware(3); },
         .number = 3,
         .selectedAfterReconnect = 3},
    };
}

}  // namespace

TEST(ManipulatorsTest, EveryStateAnswersGetPositionAsTheTableSays) {
    for (const Row& row : StateTable()) {
        SCOPED_TRACE(row.state);
        ManipulatorsRig bench;
        row.enter(bench);
        Manipulators::Position position;
        EXPECT_EQ(bench.manipulators.GetPosition(Now, position), row.position);
        if (row.position == DriverStatus::Done) {
            EXPECT_EQ(position.number, row.number);
            EXPECT_EQ(position.xyz, (PositionXYZ{row.x, Start[1], Start[2]}));
        }
    }
}

TEST(ManipulatorsTest, EveryStateAnswersMoveToAsTheTableSaysAndARefusedMoveMovesNothing) {
    for (const Row& row : StateTable()) {
        SCOPED_TRACE(row.state);
        ManipulatorsRig bench;
        row.enter(bench);
        EXPECT_EQ(bench.manipulators.MoveTo(Now, Target), row.move);
        for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
            const bool moves = row.move == DriverStatus::Done && needle == row.number - 1;
            EXPECT_EQ(bench.world.NeedleMoves(needle, Now), moves) << "needle " << needle;
        }
    }
}

TEST(ManipulatorsTest, EveryStateAnswersAMoveOutOfRangeAsTheTableSaysAndMovesNothing) {
    for (const Row& row : StateTable()) {
        SCOPED_TRACE(row.state);
        ManipulatorsRig bench;
        row.enter(bench);
        EXPECT_EQ(bench.manipulators.MoveTo(Now, {HighestCount + 1, 0, 0}), row.moveTooFar);
        for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
            EXPECT_FALSE(bench.world.NeedleMoves(needle, Now));
        }
    }
}

TEST(ManipulatorsTest, EveryStateAnswersSelectAsTheTableSays) {
    for (const Row& row : StateTable()) {
        SCOPED_TRACE(row.state);
        ManipulatorsRig bench;
        row.enter(bench);
        const std::int32_t before = bench.manipulators.Selected();
        std::int32_t answer = 0;
        EXPECT_EQ(bench.manipulators.Select(Now, 2, answer), row.select2);
        const bool selected = row.select2 == DriverStatus::Done && row.answer2 != 0;
        EXPECT_EQ(bench.manipulators.Selected(), selected ? 2 : before);
        if (row.select2 == DriverStatus::Done) {
            EXPECT_EQ(answer, row.answer2);
        }
    }
}

TEST(ManipulatorsTest, EveryStateAnswersGetCountAndReconnectAsTheTableSays) {
    for (const Row& row : StateTable()) {
        SCOPED_TRACE(row.state);
        ManipulatorsRig counting;
        row.enter(counting);
        std::int32_t count = -7;
        EXPECT_EQ(counting.manipulators.GetCount(Now, count), row.count);
        EXPECT_EQ(count, row.count == DriverStatus::Done ? row.connected : -7);
        ManipulatorsRig reconnecting;
        row.enter(reconnecting);
        EXPECT_EQ(reconnecting.manipulators.Reconnect(Now), row.reconnect);
        EXPECT_EQ(reconnecting.manipulators.Selected(), row.selectedAfterReconnect);
    }
}

TEST(ManipulatorsTest, SelectingANumberThatIsNotConnectedAnswersZeroAndChangesNothing) {
    for (const std::int32_t number : {0, -1, 5, INT32_MAX, INT32_MIN}) {
        ManipulatorsRig bench;
        bench.manipulators.SelectAtHardware(3);
        std::int32_t answer = 9;
        EXPECT_EQ(bench.manipulators.Select(Now, number, answer), DriverStatus::Done);
        EXPECT_EQ(answer, 0);
        EXPECT_EQ(bench.manipulators.Selected(), 3);
    }
}

TEST(ManipulatorsTest, TheNextCallsFailAndThenNoMore) {
    ManipulatorsRig bench;
    bench.manipulators.FailCalls(2);
    std::int32_t count = 0;
    EXPECT_TRUE(bench.manipulators.Misbehaves(FailureMode::CallsFail, Now));
    EXPECT_EQ(bench.manipulators.GetCount(Now, count), DriverStatus::Failed);
    EXPECT_EQ(bench.manipulators.Reconnect(Now), DriverStatus::Failed);
    EXPECT_EQ(bench.manipulators.GetCount(Now, count), DriverStatus::Done);
    EXPECT_FALSE(bench.manipulators.Misbehaves(FailureMode::CallsFail, Now));
}

TEST(ManipulatorsTest, AFailureOfOneOperationWaitsForThatOperation) {
    ManipulatorsRig bench;
    bench.manipulators.FailCalls(1, DriverOperation::GetCount);
    Manipulators::Position position;
    std::int32_t count = 0;
    EXPECT_EQ(bench.manipulators.GetPosition(Now, position), DriverStatus::Done);
    EXPECT_EQ(bench.manipulators.GetCount(Now, count), DriverStatus::Failed);
    EXPECT_EQ(bench.manipulators.GetCount(Now, count), DriverStatus::Done);
}

TEST(ManipulatorsTest, AHangLastsUntilItsEndAndCanBeEnded) {
    ManipulatorsRig bench;
    bench.manipulators.HangUntil(seconds(10));
    EXPECT_TRUE(bench.manipulators.HangsAt(milliseconds(9999)));
    EXPECT_TRUE(bench.manipulators.Misbehaves(FailureMode::Hangs, milliseconds(9999)));
    EXPECT_FALSE(bench.manipulators.HangsAt(seconds(10)));
    bench.manipulators.HangUntil(milliseconds(50));
    EXPECT_FALSE(bench.manipulators.HangsAt(Now));
}

TEST(ManipulatorsTest, AnotherNumberOfManipulatorsIsAFaultUntilAllFourAreBack) {
    ManipulatorsRig bench;
    bench.manipulators.ChangeCount(Now, 2);
    EXPECT_TRUE(bench.manipulators.Misbehaves(FailureMode::CountChanges, Now));
    bench.manipulators.ChangeCount(Now, 4);
    EXPECT_FALSE(bench.manipulators.Misbehaves(FailureMode::CountChanges, Now));
    EXPECT_THROW(bench.manipulators.ChangeCount(Now, 5), travo::BoundsFailure);
    EXPECT_THROW(bench.manipulators.ChangeCount(Now, -1), travo::BoundsFailure);
}

TEST(ManipulatorsTest, AStrayPositionIsAReadingAndMovesNoNeedle) {
    ManipulatorsRig bench;
    bench.manipulators.StrayPosition(1);
    EXPECT_TRUE(bench.manipulators.Misbehaves(FailureMode::PositionOutOfRange, Now));
    EXPECT_EQ(bench.world.CountsNow(0, Now), Start);
    bench.manipulators.StrayPosition(std::nullopt);
    Manipulators::Position position;
    EXPECT_EQ(bench.manipulators.GetPosition(Now, position), DriverStatus::Done);
    EXPECT_EQ(position.xyz, Start);
    EXPECT_THROW(bench.manipulators.StrayPosition(0), travo::BoundsFailure);
    EXPECT_THROW(bench.manipulators.StrayPosition(5), travo::BoundsFailure);
}

TEST(ManipulatorsTest, ASelectionAtTheHardwareOfOneThatIsNotConnectedIsRefused) {
    ManipulatorsRig bench;
    bench.manipulators.ChangeCount(Now, 2);
    EXPECT_THROW(bench.manipulators.SelectAtHardware(3), travo::BoundsFailure);
    EXPECT_THROW(bench.manipulators.SelectAtHardware(0), travo::BoundsFailure);
    EXPECT_EQ(bench.manipulators.Selected(), 1);
    bench.manipulators.SelectAtHardware(2);
    EXPECT_EQ(bench.manipulators.Selected(), 2);
    EXPECT_FALSE(bench.manipulators.Misbehaves(FailureMode::SelectedAtHardware, Now));
}

TEST(ManipulatorsTest, ClearingEndsEveryFaultAndLeavesTheSelection) {
    ManipulatorsRig bench;
    bench.manipulators.SelectAtHardware(2);
    bench.manipulators.FailCalls(Manipulators::Always);
    bench.manipulators.HangUntil(seconds(100));
    bench.manipulators.StrayPosition(2);
    bench.manipulators.ChangeCount(Now, 0);
    bench.manipulators.ClearFaults(Now);
    for (const FailureMode mode : {FailureMode::CallsFail, FailureMode::Hangs, FailureMode::CountChanges,
                                   FailureMode::PositionOutOfRange}) {
        EXPECT_FALSE(bench.manipulators.Misbehaves(mode, Now));
    }
    EXPECT_EQ(bench.manipulators.Selected(), 2);
}

TEST(ManipulatorsTest, APositionReadWhileTheNeedleMovesIsThePlaceReachedSoFar) {
    ManipulatorsRig bench;
    ASSERT_EQ(bench.manipulators.MoveTo(Now, {Start[0] + 400, Start[1], Start[2] - 100}), DriverStatus::Done);
    Manipulators::Position position;
    ASSERT_EQ(bench.manipulators.GetPosition(Now + milliseconds(50), position), DriverStatus::Done);
    EXPECT_EQ(position.xyz, (PositionXYZ{Start[0] + 200, Start[1], Start[2] - 50}));
    ASSERT_EQ(bench.manipulators.GetPosition(Now + milliseconds(100), position), DriverStatus::Done);
    EXPECT_EQ(position.xyz, (PositionXYZ{Start[0] + 400, Start[1], Start[2] - 100}));
}

TEST(ManipulatorsTest, ANeedleGoesOnMovingWhenAnotherIsSelected) {
    ManipulatorsRig bench;
    ASSERT_EQ(bench.manipulators.MoveTo(Now, Target), DriverStatus::Done);
    std::int32_t answer = 0;
    ASSERT_EQ(bench.manipulators.Select(Now, 2, answer), DriverStatus::Done);
    EXPECT_EQ(bench.world.CountsNow(0, seconds(10)), Target);
}

TEST(ManipulatorsTest, ReceivedCallsAreCountedWhateverTheirAnswer) {
    ManipulatorsRig bench;
    Manipulators::Position position;
    std::int32_t value = 0;
    bench.manipulators.GetPosition(Now, position);
    bench.manipulators.GetPosition(Now, position);
    bench.manipulators.MoveTo(Now, {-1, 0, 0});
    bench.manipulators.FailCalls(1);
    bench.manipulators.Select(Now, 2, value);
    bench.manipulators.GetCount(Now, value);
    bench.manipulators.Reconnect(Now);
    EXPECT_EQ(bench.manipulators.Received(DriverOperation::GetPosition), 2);
    EXPECT_EQ(bench.manipulators.Received(DriverOperation::MoveTo), 1);
    EXPECT_EQ(bench.manipulators.Received(DriverOperation::Select), 1);
    EXPECT_EQ(bench.manipulators.Received(DriverOperation::GetCount), 1);
    EXPECT_EQ(bench.manipulators.Received(DriverOperation::Reconnect), 1);
    EXPECT_EQ(bench.manipulators.Refused(), 2);
    bench.manipulators.ForgetCounters();
    EXPECT_EQ(bench.manipulators.Received(DriverOperation::GetPosition), 0);
    EXPECT_EQ(bench.manipulators.Refused(), 0);
}

TEST(ManipulatorsTest, EveryCallLetsTheWorldsTimePass) {
    ManipulatorsRig bench;
    bench.world.MoveNeedle(1, {HomeCount + 400, HomeCount, HomeCount}, Time(0));
    bench.world.MoveNeedle(0, {HomeCount + 400, HomeCount, HomeCount}, Time(0));
    std::int32_t count = 0;
    bench.manipulators.GetCount(seconds(10), count);
    EXPECT_EQ(bench.world.CrossingsInAll(), 1);
}

}  // namespace workbench
