#include "needle/clsObjectiveUpDown.h"

#include "needle/NeedleRig.h"

namespace travo::test {

namespace {

class clsObjectiveUpDownTest : public NeedleRig {
protected:
    // Ports are created by the links in the order gauge, mirror, motor.
    FakeSerialPort& MotorPort() { return *serialPorts.created.at(2); }
    void OpenMotor() {
        communication.MotorPortOpen(3);
        MotorPort().TakeOutput();
    }
};

TEST_F(clsObjectiveUpDownTest, MovesByTheDifferenceTimesOneHundredWithoutWaiting) {
    OpenMotor();
    std::int32_t z = 250;
    objective.ObjectiveUpDown(z, 1000);
    EXPECT_EQ(MotorPort().TakeOutput(), "RELMOVEZ75000\r");
    EXPECT_EQ(objective.lngAmountZMove, 750);
    EXPECT_EQ(clock.slept, 0);
}

TEST_F(clsObjectiveUpDownTest, CurrentZOfNoPositionBecomesZeroInTheCallersVariableBeforeTheDifference) {
    OpenMotor();
    std::int32_t z = NoPositionValue;
    objective.ObjectiveUpDown(z, -20);
    EXPECT_EQ(z, 0);
    EXPECT_EQ(MotorPort().TakeOutput(), "RELMOVEZ-2000\r");
}

TEST_F(clsObjectiveUpDownTest, AfterPositionEqualToCurrentZMovesNothing) {
    OpenMotor();
    objective.lngAmountZMove = 5;
    std::int32_t z = 40;
    objective.ObjectiveUpDown(z, 40);
    EXPECT_EQ(objective.lngAmountZMove, 0);
    EXPECT_EQ(MotorPort().TakeOutput(), "");
}

TEST_F(clsObjectiveUpDownTest, AnUnsetAfterPositionIsShownButNotLoggedAndStillClearsCurrentZ) {
    OpenMotor();
    std::int32_t z = NoPositionValue;
    objective.ObjectiveUpDown(z, NoPositionValue);
    EXPECT_TRUE(OnlyPlainBox(QStringLiteral("Escape : Prease setting objective escape position")));
    EXPECT_TRUE(LogTexts().isEmpty());
    EXPECT_EQ(z, 0);
    EXPECT_EQ(MotorPort().TakeOutput(), "");
}

TEST_F(clsObjectiveUpDownTest, WithThePortClosedNothingHappensAndNoMessageIsShown) {
    std::int32_t z = 0;
    objective.ObjectiveUpDown(z, 100);
    EXPECT_EQ(objective.lngAmountZMove, 100);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(MotorPort().TakeOutput(), "");
}

TEST_F(clsObjectiveUpDownTest, AnOverflowOfTheStepsGoesToTheCallersHandler) {
    OpenMotor();
    std::int32_t z = 0;
    EXPECT_THROW(objective.ObjectiveUpDown(z, 21474837), OverflowFailure);
    EXPECT_NO_THROW(objective.ObjectiveUpDown(z, 21474836));
    z = Smallest;
    EXPECT_THROW(objective.ObjectiveUpDown(z, 1), OverflowFailure);
    EXPECT_EQ(MotorPort().TakeOutput(), "RELMOVEZ2147483600\r");
}

TEST_F(clsObjectiveUpDownTest, WithThePortClosedNoProductIsTaken) {
    std::int32_t z = 0;
    EXPECT_NO_THROW(objective.ObjectiveUpDown(z, Largest));
}

}  // namespace

}  // namespace travo::test
