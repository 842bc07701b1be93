#include "needle/clsEscape.h"

#include "needle/NeedleRig.h"

namespace travo::test {

namespace {

class clsEscapeTest : public NeedleRig {
protected:
    clsEscapeTest() {
        Calibrate(0, StraightNeedle, {0, 0, 0}, {0, 0, 0});
        state.intManipulatorNumber = 0;
        communication.MotorPortOpen(3);
        MotorPort().TakeOutput();
    }

    FakeSerialPort& MotorPort() { return *serialPorts.created.at(2); }
    void SetHome() {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            escape.NeedleEscape(0, axis, 100 * (axis + 1));
        }
    }
    void EscapeHome(std::int32_t currentZ = 0) { escape.HomePositionEscape({}, currentZ, 0); }

    clsEscape escape{{clock, eventLoop}, state, communication, needles, failures};
};

TEST_F(clsEscapeTest, PositionsStartUnset) {
    EXPECT_EQ(escape.NowCurrentZPos, 0);
    EXPECT_EQ(escape.ZEscapePosition(), NoPositionValue);
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            EXPECT_EQ(escape.NeedleEscape(needle, axis), NoPositionValue);
        }
    }
    EXPECT_THROW(escape.NeedleEscape(4, 0), BoundsFailure);
    EXPECT_THROW(escape.NeedleEscape(0, 3, 1), BoundsFailure);
}

TEST_F(clsEscapeTest, ZEscapeMovesTheObjectiveOnItsOwnInstance) {
    objective.lngAmountZMove = 7;
    escape.ZEscapePosition(500);
    std::int32_t z = NoPositionValue;
    escape.ZEscape(z);
    EXPECT_EQ(z, 0);
    EXPECT_EQ(MotorPort().TakeOutput(), "RELMOVEZ50000\r");
    EXPECT_EQ(objective.lngAmountZMove, 7);
}

TEST_F(clsEscapeTest, TheObjectiveGoesFirstAndTheNeedleFollowsWhenItHasArrived) {
    SetHome();
    escape.ZEscapePosition(500);
    eventLoop.eventAfter = 200;
    eventLoop.whileServed = [this] {
        EXPECT_TRUE(driver.moves.empty());
        escape.NowCurrentZPos += 100;
    };
    EscapeHome();
    EXPECT_EQ(MotorPort().TakeOutput(), "RELMOVEZ50000\r");
    EXPECT_EQ(eventLoop.served, 5);
    EXPECT_EQ(driver.moves, (Moves{{100, 200, 300}}));
}

TEST_F(clsEscapeTest, TheZReachingExactlyTenBelowTheEscapePositionEndsTheWait) {
    SetHome();
    escape.ZEscapePosition(500);
    escape.NowCurrentZPos = 490;
    EscapeHome(490);
    EXPECT_EQ(eventLoop.served, 1) << "pending events are served once all the same";
    EXPECT_EQ(driver.moves.size(), 1U);
}

TEST_F(clsEscapeTest, OneBelowTheMarginWaitsTheFullFiveSecondsAndThenTheNeedleGoesHomeAllTheSame) {
    SetHome();
    escape.ZEscapePosition(500);
    escape.NowCurrentZPos = 489;
    const std::int64_t start = clock.ticks;
    eventLoop.eventAfter = 900;  // events end the sleep, not the wait
    eventLoop.whileServed = [this] { EXPECT_TRUE(driver.moves.empty()); };
    EscapeHome(489);
    EXPECT_GT(clock.ticks - start, 5000);
    EXPECT_EQ(driver.moves.size(), 1U);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(clsEscapeTest, WithTheMotorPortClosedTheObjectiveStaysAndTheWaitLastsUnlessZIsHighEnough) {
    communication.MotorPortClose();
    SetHome();
    escape.ZEscapePosition(500);
    const std::int64_t start = clock.ticks;
    EscapeHome();
    EXPECT_EQ(MotorPort().TakeOutput(), "");
    EXPECT_GE(clock.ticks - start, 5000);
    EXPECT_EQ(driver.moves.size(), 1U);
}

TEST_F(clsEscapeTest, WithoutAGaugeTheWaitLastsTheFullFiveSeconds) {
    SetHome();
    escape.ZEscapePosition(-5000);
    escape.NowCurrentZPos = NoPositionValue;
    const std::int64_t start = clock.ticks;
    EscapeHome();
    EXPECT_GE(clock.ticks - start, 5000);
}

TEST_F(clsEscapeTest, AnUnsetEscapeHeightShowsItsMessageAndTheNeedleStillGoesHomeAtOnce) {
    SetHome();
    EscapeHome();
    EXPECT_TRUE(OnlyPlainBox(QStringLiteral("Escape : Prease setting objective escape position")));
    EXPECT_EQ(eventLoop.served, 1);
    EXPECT_EQ(driver.moves.size(), 1U);
}

TEST_F(clsEscapeTest, AHomePositionWithOneAxisUnsetStopsBeforeAnyNeedleMotion) {
    SetHome();
    escape.NeedleEscape(0, 2, NoPositionValue);
    escape.ZEscapePosition(500);
    escape.NowCurrentZPos = 500;
    EscapeHome();
    EXPECT_EQ(MotorPort().TakeOutput(), "RELMOVEZ50000\r") << "the objective has moved";
    EXPECT_TRUE(driver.moves.empty());
    EXPECT_TRUE(OnlyPlainBox(QStringLiteral("Escape : Please set manipulator escape position.")));
    EXPECT_EQ(LogTexts(), QStringList{QStringLiteral("Escape : Please set manipulator escape position.")});
}

TEST_F(clsEscapeTest, TheNeedleMovedIsTheOneSelectedWhenTheWaitIsOver) {
    Calibrate(1, StraightNeedle, {0, 0, 0}, {0, 0, 0});
    PlaceTip(0, {100, -5000, 0});
    PlaceTip(1, {100, 5000, 0});
    SetHome();
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        escape.NeedleEscape(1, axis, 700);
    }
    escape.ZEscapePosition(500);
    eventLoop.whileServed = [this] {
        state.intManipulatorNumber = 1;
        escape.NowCurrentZPos = 500;
    };
    std::int32_t z = 0;
    escape.HomePositionEscape({}, z, 1);
    EXPECT_EQ(driver.moves, (Moves{{700, 700, 700}}));
}

TEST_F(clsEscapeTest, TheNeedleThatMayNotGoStaysWhenTheWaitIsOverAndTheObjectiveHasMoved) {
    SetHome();
    escape.ZEscapePosition(500);
    std::int32_t z = 0;
    escape.HomePositionEscape({}, z, 0, [this] {
        EXPECT_GE(eventLoop.served, 2) << "asked after the wait";
        return false;
    });
    EXPECT_EQ(MotorPort().TakeOutput(), "RELMOVEZ50000\r");
    EXPECT_TRUE(driver.moves.empty());
    EXPECT_TRUE(boxes.shown.empty()) << "whoever says no has told why";
    escape.HomePositionEscape({}, z, 0, [] { return true; });
    EXPECT_EQ(driver.moves.size(), 1U);
}

TEST_F(clsEscapeTest, TheWayHomeOfTheNeedleIsAStandStillAndTheWaitForTheObjectiveIsNone) {
    SetHome();
    escape.ZEscapePosition(500);
    eventLoop.whileServed = [this] { EXPECT_FALSE(eventLoop.standsStill); };
    driver.whileCalled = [this](const std::string&) { EXPECT_TRUE(eventLoop.standsStill); };
    EscapeHome();
    EXPECT_EQ(driver.moves.size(), 1U);
    EXPECT_EQ(eventLoop.standStills, 1);
}

TEST_F(clsEscapeTest, WithNoNeedleSelectedTheFailureIsReported) {
    state.intManipulatorNumber = -1;
    escape.ZEscapePosition(0);
    EscapeHome();
    EXPECT_TRUE(OnlyPlainBox(QStringLiteral("Escape : Communication failed")));
    EXPECT_EQ(LogTexts(), QStringList{QStringLiteral("Escape : Communication failed")});
}

TEST_F(clsEscapeTest, AnOverflowOfTheObjectivesWayIsReportedAndNothingMoves) {
    SetHome();
    escape.ZEscapePosition(Largest);
    EscapeHome(-1);
    EXPECT_TRUE(OnlyPlainBox(QStringLiteral("Escape : Communication failed")));
    EXPECT_TRUE(driver.moves.empty());
}

}  // namespace

}  // namespace travo::test
