// The gate for automatic needle motion, through the facade and the link to the driver.
#include "NeedleRig.h"

namespace travo::test {
namespace {

const QString Failed = QStringLiteral("Needle move failed");
const QString PleaseCalibrate = QStringLiteral("Please do the calibration. ");
const QString Warning = QStringLiteral(
    "WARNING!\r\nThere is a possibility  the needles will come in contact.\r\n"
    "Movement is discontinued.  Please move the needles manually.");
const QString SynchroWarning =
    QStringLiteral("There is a possibility the needles will come in contact while moving.");

class clsNeedleMoveGateTest : public NeedleRig {
protected:
    clsNeedleMoveGateTest() { CalibrateFromPoints(0, StraightNeedle, {100, -200, 0}); }

    // Needle 0 at (1000, 0) and a target that cuts needle 1.
    void PlaceContact() {
        PlaceObstacle(1500, 100);
        PlaceTip(0, {1000, 0, 0});
    }
    static constexpr PositionXYZ BehindObstacle{2000, 0, 0};
};

TEST_F(clsNeedleMoveGateTest, AClearTargetGoesToTheDriverInManipulatorCoordinates) {
    PlaceTip(0, {100, -200, 0});
    EXPECT_TRUE(needles.NeedleMove(0, {1100, -1200, 100}, 0, false, false));
    EXPECT_EQ(driver.moves, (Moves{{11000, 21000, 5100}}));
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(LogTexts().isEmpty());
}

TEST_F(clsNeedleMoveGateTest, ThePresentPositionIsThatOfTheLastRead) {
    // 800 counts from the needle as last read, though the manipulator stands elsewhere by now.
    PlaceTip(0, {100, 600, 0});
    EXPECT_TRUE(needles.NeedleMove(0, {100, -200, 0}, 0, false, false));
    EXPECT_GE(clock.slept, 200);
    EXPECT_LE(clock.slept, 202);
}

TEST_F(clsNeedleMoveGateTest, PressesMadeDuringAMoveAreDroppedAndThoseOfASynchronisedMoveAreKept) {
    EXPECT_TRUE(needles.NeedleMove(0, {1100, -1200, 100}, 0, false, true));
    EXPECT_EQ(eventLoop.standStills, 0);
    EXPECT_TRUE(needles.NeedleMove(0, {1100, -1200, 100}, 0, false, false));
    EXPECT_EQ(eventLoop.standStills, 1);
    EXPECT_EQ(driver.moves.size(), 2U);
}

TEST_F(clsNeedleMoveGateTest, TheStandOffDoesNotTouchThePresentPosition) {
    needles.lngXYOffset = 400;
    PlaceTip(0, {100, -200, 0});
    EXPECT_TRUE(needles.NeedleMove(0, {100, -200, 0}, 0, true, false));
    EXPECT_EQ(driver.moves, (Moves{{9600, 22000, 5000}}));
    EXPECT_GE(clock.slept, 100);
    EXPECT_LE(clock.slept, 102);
}

TEST_F(clsNeedleMoveGateTest, WithAStandOffOfZeroTheTargetIsUnchanged) {
    EXPECT_TRUE(needles.NeedleMove(0, {1100, -1200, 100}, 0, true, false));
    EXPECT_EQ(driver.moves, (Moves{{11000, 21000, 5100}}));
}

TEST_F(clsNeedleMoveGateTest, WithoutChkOffsetTheStandOffIsNotApplied) {
    needles.lngXYOffset = 400;
    EXPECT_TRUE(needles.NeedleMove(0, {1100, -1200, 100}, 0, false, false));
    EXPECT_EQ(driver.moves, (Moves{{11000, 21000, 5100}}));
}

TEST_F(clsNeedleMoveGateTest, TheStandOffIsSubtractedAfterTheConversionAlsoOnAnObliqueNeedle) {
    CalibrateFromPoints(0, TiltedNeedle, {100, -200, 0});
    needles.lngXYOffset = 500;
    EXPECT_TRUE(needles.NeedleMove(0, {1016, -1200, -413}, 0, true, false));
    EXPECT_EQ(driver.moves, (Moves{{10500, 21000, 5100}}));
}

TEST_F(clsNeedleMoveGateTest, APredictedContactIsRefusedInThreeLinesWithTheStopIcon) {
    PlaceContact();
    EXPECT_FALSE(needles.NeedleMove(0, BehindObstacle, 1, false, false));
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text, Warning);
    EXPECT_EQ(boxes.shown[0].buttons, platform::BoxButtons::OK);
    EXPECT_EQ(boxes.shown[0].icon, platform::BoxIcon::Stop);
    EXPECT_TRUE(driver.moves.empty());
    EXPECT_TRUE(LogTexts().isEmpty());
}

TEST_F(clsNeedleMoveGateTest, APredictedContactOfASynchronisedMoveIsRefusedInAPlainBox) {
    PlaceContact();
    EXPECT_FALSE(needles.NeedleMove(0, BehindObstacle, 1, false, true));
    EXPECT_TRUE(OnlyPlainBox(SynchroWarning));
    EXPECT_TRUE(driver.moves.empty());
    EXPECT_TRUE(LogTexts().isEmpty());
}

TEST_F(clsNeedleMoveGateTest, TheTwoRefusalTextsDifferInTheirSpacing) {
    PlaceContact();
    needles.NeedleMove(0, BehindObstacle, 1, false, false);
    needles.NeedleMove(0, BehindObstacle, 1, false, true);
    ASSERT_EQ(boxes.shown.size(), 2U);
    EXPECT_TRUE(boxes.shown[0].text.contains(QStringLiteral("possibility  the")));
    EXPECT_FALSE(boxes.shown[1].text.contains(QStringLiteral("possibility  the")));
    EXPECT_TRUE(boxes.shown[1].text.contains(QStringLiteral("possibility the")));
}

TEST_F(clsNeedleMoveGateTest, WithTheVetoOffAPredictedContactNeitherStopsTheMoveNorShowsAnything) {
    PlaceContact();
    needles.ContactEvasionONOFF(true);
    EXPECT_TRUE(needles.NeedleMove(0, BehindObstacle, 1, false, false));
    EXPECT_TRUE(needles.NeedleMove(0, BehindObstacle, 1, false, true));
    EXPECT_EQ(driver.moves, (Moves{{2000, 0, 0}, {2000, 0, 0}}));
    EXPECT_TRUE(boxes.shown.empty());
    needles.ContactEvasionONOFF(false);
    PlaceTip(0, {1000, 0, 0});
    EXPECT_FALSE(needles.NeedleMove(0, BehindObstacle, 1, false, false));
}

TEST_F(clsNeedleMoveGateTest, ANeedleWithoutCalibrationIsToldAndTheResultIsTrue) {
    state.CalibrationON(0, false);
    EXPECT_TRUE(needles.NeedleMove(0, {1100, -1200, 100}, 0, false, false));
    EXPECT_TRUE(OnlyPlainBox(PleaseCalibrate));
    EXPECT_TRUE(LogTexts().isEmpty());
    EXPECT_TRUE(driver.moves.empty());
}

TEST_F(clsNeedleMoveGateTest, AContactRefusalComesBeforeTheMissingCalibration) {
    PlaceContact();
    state.CalibrationON(0, false);
    EXPECT_FALSE(needles.NeedleMove(0, BehindObstacle, 1, false, false));
    EXPECT_EQ(boxes.Texts(), QStringList{Warning});
}

TEST_F(clsNeedleMoveGateTest, TheConversionsComeBeforeTheMissingCalibration) {
    // The contact check does not read the present place of an uncalibrated needle, the conversion does.
    state.CalibrationON(0, false);
    PlaceTip(0, {0, Largest, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 0, {0, 0, 0}));
    EXPECT_FALSE(needles.NeedleMove(0, {0, 0, 0}, 0, false, false));
    EXPECT_TRUE(OnlyPlainBox(Failed));
}

TEST_F(clsNeedleMoveGateTest, TheStandOffComesBeforeTheMissingCalibration) {
    state.CalibrationON(0, false);
    needles.lngXYOffset = Smallest;
    EXPECT_FALSE(needles.NeedleMove(0, {0, 0, 0}, 0, true, false));
    EXPECT_TRUE(OnlyPlainBox(Failed));
}

TEST_F(clsNeedleMoveGateTest, AContactRefusalComesBeforeTheConversions) {
    PlaceContact();
    state.CalibrationON(0, false);
    PlaceTip(0, {0, Largest, 0});
    needles.PosZero(0, 1, -10);
    EXPECT_FALSE(needles.NeedleMove(0, BehindObstacle, 1, false, false));
    EXPECT_EQ(boxes.Texts(), QStringList{Warning});
}

TEST_F(clsNeedleMoveGateTest, AnOverflowOfTheContactCheckIsReportedAsNeedleMoveFailed) {
    PlaceContact();
    EXPECT_FALSE(needles.NeedleMove(0, {60000, 60000, 0}, 1, false, false));
    EXPECT_TRUE(OnlyPlainBox(Failed));
    EXPECT_EQ(LogTexts(), QStringList{Failed});
    EXPECT_TRUE(driver.moves.empty());
}

TEST_F(clsNeedleMoveGateTest, TheContactCheckRunsAndCanFailAlsoWithItsVetoOff) {
    PlaceContact();
    needles.ContactEvasionONOFF(true);
    EXPECT_FALSE(needles.NeedleMove(0, {60000, 60000, 0}, 1, false, false));
    EXPECT_TRUE(OnlyPlainBox(Failed));
    EXPECT_TRUE(driver.moves.empty());
}

TEST_F(clsNeedleMoveGateTest, AnIndexOutOfBoundsIsReportedAsNeedleMoveFailed) {
    EXPECT_FALSE(needles.NeedleMove(-1, {0, 0, 0}, 0, false, false));
    EXPECT_FALSE(needles.NeedleMove(4, {0, 0, 0}, 0, false, false));
    EXPECT_EQ(boxes.Texts(), (QStringList{Failed, Failed}));
    EXPECT_EQ(LogTexts(), (QStringList{Failed, Failed}));
    EXPECT_TRUE(driver.moves.empty());
}

TEST_F(clsNeedleMoveGateTest, WithAFifthManipulatorANeedleMovesAsBefore) {
    EXPECT_TRUE(needles.NeedleMove(0, {0, 0, 0}, 4, false, false));
    EXPECT_EQ(driver.moves.size(), 1U);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(clsNeedleMoveGateTest, ATargetOutsideTheRangeIsToldByTheLinkAndTheResultIsTrue) {
    EXPECT_TRUE(needles.NeedleMove(0, {20000, -200, 0}, 0, false, false));
    EXPECT_TRUE(OnlyPlainBox(QStringLiteral("Manipulator : Outside the movement range")));
    EXPECT_TRUE(driver.moves.empty());
}

TEST_F(clsNeedleMoveGateTest, TheStandOffIsInTheTargetWhoseRangeIsChecked) {
    needles.lngXYOffset = 6000;
    EXPECT_TRUE(needles.NeedleMove(0, {20000, -200, 0}, 0, true, false));
    EXPECT_EQ(driver.moves, (Moves{{23900, 22000, 5000}}));
}

TEST_F(clsNeedleMoveGateTest, ADriverThatFailsIsToldByTheLinkAndTheResultIsTrue) {
    driver.failing.insert("DriverMoveTo");
    EXPECT_TRUE(needles.NeedleMove(0, {1100, -1200, 100}, 0, false, false));
    EXPECT_TRUE(OnlyPlainBox(QStringLiteral("Manipulator : Communication failed")));
}

TEST_F(clsNeedleMoveGateTest, TheBoxIsUpWhileThePositionReadGoesOn) {
    PlaceContact();
    boxes.whileShown = [&] { PlaceTip(0, {7, 8, 9}); };
    EXPECT_FALSE(needles.NeedleMove(0, BehindObstacle, 1, false, false));
    EXPECT_EQ(state.Needles()[0], (PositionXYZ{7, 8, 9}));
}

class clsNeedleMoveTest : public clsNeedleMoveGateTest {};

TEST_F(clsNeedleMoveTest, BothStandOffsAreApplied) {
    objective.lngOffset = 150;
    needles.lngXYOffset = 400;
    needles.NeedleMoveCellPosition(0, {1100, -1200, 100}, 0);
    EXPECT_EQ(driver.moves, (Moves{{10600, 21000, 5250}}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(clsNeedleMoveTest, TheZStandOffIsAddedEvenWhenTheCellsZIsZero) {
    needles.NeedleMoveCellPosition(0, {100, -200, 0}, 0);
    EXPECT_EQ(driver.moves, (Moves{{10000, 22000, 5100}}));
}

TEST_F(clsNeedleMoveTest, WithBothOffsetsZeroTheNeedleGoesToTheCellItself) {
    objective.lngOffset = 0;
    needles.NeedleMoveCellPosition(0, {1100, -1200, 100}, 0);
    EXPECT_EQ(driver.moves, (Moves{{11000, 21000, 5100}}));
}

TEST_F(clsNeedleMoveTest, TheZStandOffIsAddedInTheCommonFrame) {
    CalibrateFromPoints(0, TiltedNeedle, {0, 0, 0});
    objective.lngOffset = 1000;
    needles.NeedleMoveCellPosition(0, {0, 0, 0}, 0);
    const PositionXYZ above = ToManipulator(0, {0, 0, 1000});
    EXPECT_NE(above[0], 10000);
    EXPECT_EQ(driver.moves, (Moves{{above[0], above[1], above[2]}}));
}

TEST_F(clsNeedleMoveTest, AContactGivesTheThreeLines) {
    PlaceContact();
    needles.NeedleMoveCellPosition(0, BehindObstacle, 1);
    EXPECT_EQ(boxes.Texts(), QStringList{Warning});
}

TEST_F(clsNeedleMoveTest, AnOverflowOfTheZAdditionGoesToTheCaller) {
    EXPECT_THROW(needles.NeedleMoveCellPosition(0, {0, 0, Largest - 99}, 0), OverflowFailure);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(LogTexts().isEmpty());
    EXPECT_TRUE(driver.moves.empty());
}

}  // namespace
}  // namespace travo::test
