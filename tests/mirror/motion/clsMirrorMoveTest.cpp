#include "mirror/motion/clsMirrorMove.h"

#include "needle/NeedleRig.h"

namespace travo::test {

namespace {

class clsMirrorMoveTest : public NeedleRig {
protected:
    clsMirrorMoveTest() {
        communication.MirrorPortOpen(1);
        communication.MotorPortOpen(3);
        MirrorPort().TakeOutput();
        MotorPort().TakeOutput();
    }

    FakeSerialPort& MirrorPort() { return *serialPorts.created.at(1); }
    FakeSerialPort& MotorPort() { return *serialPorts.created.at(2); }
    // Nothing was sent, and this was shown and not logged.
    void ExpectOnlyBox(const QString& text) {
        EXPECT_EQ(MirrorPort().TakeOutput(), "");
        EXPECT_TRUE(OnlyPlainBox(text));
        EXPECT_TRUE(LogTexts().isEmpty());
    }

    clsMirrorMove mirror{state, communication, objective, failures};
};

TEST_F(clsMirrorMoveTest, AtX175AnAmountOf5Sends180) {
    state.CurrentXYZ(0, 175);
    mirror.MirrorMove(0, 0, 5);
    EXPECT_EQ(MirrorPort().TakeOutput(), "cD2A180\r");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(clsMirrorMoveTest, AtX175AnAmountOf6ShowsTheLimitAndSendsNothing) {
    state.CurrentXYZ(0, 175);
    mirror.MirrorMove(0, 0, 6);
    ExpectOnlyBox(QStringLiteral("Movement limit X"));
}

TEST_F(clsMirrorMoveTest, AtYMinus175TakingOff10ShowsTheLimit) {
    state.CurrentXYZ(1, -175);
    mirror.MirrorMove(1, 1, 10);
    ExpectOnlyBox(QStringLiteral("Movement limit Y"));
}

TEST_F(clsMirrorMoveTest, TheRangeIsMinus180To180Inclusive) {
    state.CurrentXY(0, 0);
    mirror.MirrorMove(0, 1, 180);
    mirror.MirrorMove(1, 0, 180);
    EXPECT_EQ(MirrorPort().TakeOutput(), "cD2A-180\rcD1A180\r");
    mirror.MirrorMove(0, 1, 181);
    ExpectOnlyBox(QStringLiteral("Movement limit X"));
}

TEST_F(clsMirrorMoveTest, WhileXIsNotSetEveryMoveOnItFailsWithTheLimit) {
    mirror.MirrorMove(0, 0, 1);
    ExpectOnlyBox(QStringLiteral("Movement limit X"));
}

TEST_F(clsMirrorMoveTest, AnotherSignOrAxisDoesNothingInSilence) {
    state.CurrentXY(0, 0);
    mirror.MirrorMove(0, 2, 5);
    mirror.MirrorMove(0, -1, 5);
    mirror.MirrorMove(2, 0, 5);
    mirror.MirrorMove(-1, 0, 5);
    EXPECT_EQ(MirrorPort().TakeOutput(), "");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(clsMirrorMoveTest, TwoMovesInQuickSuccessionStartFromTheSameReportedPlace) {
    state.CurrentXY(10, 0);
    mirror.MirrorMove(0, 0, 1);
    mirror.MirrorMove(0, 0, 1);
    EXPECT_EQ(MirrorPort().TakeOutput(), "cD2A11\rcD2A11\r");
}

TEST_F(clsMirrorMoveTest, WithThePortClosedNothingGoesOutButALimitIsStillShown) {
    communication.MirrorPortClose();
    state.CurrentXY(0, 0);
    mirror.MirrorMove(0, 0, 1);
    EXPECT_TRUE(boxes.shown.empty());
    mirror.MirrorMove(0, 0, 181);
    ExpectOnlyBox(QStringLiteral("Movement limit X"));
}

TEST_F(clsMirrorMoveTest, ATargetBeyond32BitsIsAnOverflowAndIsNotSent) {
    state.CurrentXY(1, 1);
    EXPECT_THROW(mirror.MirrorMove(0, 0, Largest), OverflowFailure);
    EXPECT_THROW(mirror.MirrorMove(0, 1, Smallest), OverflowFailure);
    EXPECT_EQ(MirrorPort().TakeOutput(), "");
}

TEST_F(clsMirrorMoveTest, MirrorMoveToCellTakesThePositionsAsTheyStand) {
    state.CurrentXYZ(2, 30);
    mirror.MirrorMoveToCell({500, -7, 30});
    EXPECT_EQ(MirrorPort().TakeOutput(), "cD2A500\rcD1A-7\r");
    EXPECT_EQ(MotorPort().TakeOutput(), "") << "the objective is there already";
}

TEST_F(clsMirrorMoveTest, MirrorMoveToCellBringsTheObjectiveToTheCellsHeight) {
    state.CurrentXYZ(2, 30);
    mirror.MirrorMoveToCell({1, 2, 130});
    EXPECT_EQ(MotorPort().TakeOutput(), "RELMOVEZ10000\r");
}

TEST_F(clsMirrorMoveTest, AHeightThatIsNotSetBecomesZeroForTheMoveAndNotInTheSharedState) {
    mirror.MirrorMoveToCell({1, 2, 10});
    EXPECT_EQ(MotorPort().TakeOutput(), "RELMOVEZ1000\r");
    EXPECT_EQ(state.CurrentXYZ(2), NoPositionValue);
}

TEST_F(clsMirrorMoveTest, MirrorMoveToCellWithAnUnsetZShowsTheEscapeMessageAfterTheMirrorHasSetOut) {
    mirror.MirrorMoveToCell({1, 2, NoPositionValue});
    EXPECT_EQ(MirrorPort().TakeOutput(), "cD2A1\rcD1A2\r");
    EXPECT_TRUE(OnlyPlainBox(QStringLiteral("Escape : Prease setting objective escape position")));
}

TEST_F(clsMirrorMoveTest, MirrorMoveToCenterSendsXThenY) {
    mirror.MirrorMoveToCenter();
    EXPECT_EQ(MirrorPort().TakeOutput(), "cD2A0\rcD1A0\r");
}

}  // namespace

}  // namespace travo::test
