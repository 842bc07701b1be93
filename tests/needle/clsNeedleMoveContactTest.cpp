// The contact check on calibrated needles, through both maps.
#include "NeedleRig.h"

namespace travo::test {
namespace {

class clsNeedleMoveContactTest : public NeedleRig {};

TEST_F(clsNeedleMoveContactTest, AShaftAcrossTheWayIsAContactAndOneBesideItIsNot) {
    PlaceObstacle(1500, 100);
    PlaceTip(0, {1000, 0, 0});
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {2000, 0, 0}));
    PlaceTip(1, {2500, 100, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 1, {2000, 0, 0}));
}

TEST_F(clsNeedleMoveContactTest, OnlyXAndYAreUsedSoNeedlesWithVeryDifferentZStillConflict) {
    PlaceObstacle(1500, 100);
    PlaceTip(0, {1000, 0, 20000});
    PlaceTip(1, {1500, 100, -20000});
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {2000, 0, 20000}));
}

TEST_F(clsNeedleMoveContactTest, ANeedleWithoutCalibrationIsNoObstacle) {
    PlaceObstacle(1500, 100);
    PlaceTip(0, {1000, 0, 0});
    state.CalibrationON(1, false);
    EXPECT_TRUE(needles.ContactEvasion(0, 1, {2000, 0, 0}));
}

TEST_F(clsNeedleMoveContactTest, ANeedleBeyondTheHighestIndexIsNoObstacle) {
    PlaceObstacle(1500, 100);
    PlaceTip(0, {1000, 0, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 0, {2000, 0, 0}));
}

TEST_F(clsNeedleMoveContactTest, WithHighestIndexZeroAndNeedleZeroTheResultIsTrueAfterNoTest) {
    // So far out that any test of the moving shaft would overflow.
    Calibrate(0, StraightNeedle, {0, 0, 0}, {0, 0, 0});
    PlaceTip(0, {-1'000'000'000, 0, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 0, {1'000'000'000, 1'000'000'000, 0}));
    Calibrate(1, StraightNeedle, {0, 0, 0}, {0, 0, 0});
    EXPECT_THROW(needles.ContactEvasion(0, 1, {1'000'000'000, 1'000'000'000, 0}), OverflowFailure);
}

TEST_F(clsNeedleMoveContactTest, WithNoneConnectedTheResultIsTrue) {
    PlaceObstacle(1500, 100);
    EXPECT_TRUE(needles.ContactEvasion(0, -1, {2000, 0, 0}));
}

TEST_F(clsNeedleMoveContactTest, AForwardMoveExtendsThePresentShaftToTheTargetsX) {
    PlaceObstacle(1500, 100);
    PlaceTip(0, {1000, 0, 0});
    // The straight way from tip to target passes above the obstacle's tip, and so does the target shaft.
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {2000, 1000, 0}));
    PlaceTip(1, {2100, 100, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 1, {2000, 1000, 0}));
}

TEST_F(clsNeedleMoveContactTest, AMoveThatDrawsTheNeedleBackKeepsThePresentShaftAtThePresentTip) {
    PlaceObstacle(1500, 100);
    PlaceTip(0, {2000, 0, 0});
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {1000, 1000, 0}));
    PlaceTip(1, {2001, 100, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 1, {1000, 1000, 0}));
}

TEST_F(clsNeedleMoveContactTest, ATargetEqualToThePresentPositionGetsNoMargin) {
    PlaceObstacle(1010, 100);
    PlaceTip(0, {1000, 0, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 1, {1000, 0, 500}));
}

TEST_F(clsNeedleMoveContactTest, TheMarginReachesThirtyBeyondTheTargetInTheDirectionOfTravel) {
    Calibrate(0, StraightNeedle, {0, 0, 0}, {0, 0, 0});
    Calibrate(1, StraightNeedle, {0, 0, 0}, {500, 0, 0});
    PlaceTip(0, {1000, 10, 0});
    PlaceTip(1, {1500, 129, 0});
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {1000, 100, 0}));
    PlaceTip(1, {1500, 130, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 1, {1000, 100, 0}));
    // The other way round, from above.
    PlaceTip(0, {1000, 200, 0});
    PlaceTip(1, {1500, 71, 0});
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {1000, 100, 0}));
    PlaceTip(1, {1500, 70, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 1, {1000, 100, 0}));
}

TEST_F(clsNeedleMoveContactTest, StraightForwardThereIsNoMarginSinceThePresentShaftReachesTheTarget) {
    PlaceObstacle(1010, 100);
    PlaceTip(0, {900, 0, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 1, {1000, 0, 0}));
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {1011, 0, 0}));
}

TEST_F(clsNeedleMoveContactTest, TheRearOfAShaftIsWhereItsManipulatorXIsZero) {
    // The obstacle's rear is at Y -5000, whatever its tip is.
    PlaceObstacle(1500, -6000);
    PlaceTip(0, {2000, -5500, 0});
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {2000, -5500, 0}));
    PlaceTip(0, {2000, -4900, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 1, {2000, -4900, 0}));
    // The moving needle's rear is at X 0.
    PlaceTip(0, {3000, 0, 0});
    PlaceTip(1, {-1, 100, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 1, {3000, 0, 0}));
    PlaceTip(1, {1, 100, 0});
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {3000, 0, 0}));
}

TEST_F(clsNeedleMoveContactTest, AReversedNeedleReachesFromItsOwnSide) {
    PlaceObstacle(1500, 100);
    Calibrate(0, ReversedNeedle, {0, 0, 0}, {6000, 0, 0});
    PlaceTip(0, {2000, 0, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 1, {1600, 0, 0}));
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {1400, 0, 0}));
}

TEST_F(clsNeedleMoveContactTest, TheLastNeedleIsTestedAsTheFirst) {
    PlaceObstacle(1500, -4000);
    Calibrate(3, CrosswiseNeedle, {0, 0, 0}, {0, -5000, 0});
    PlaceTip(0, {1000, 0, 0});
    PlaceTip(3, {1500, 100, 0});
    EXPECT_TRUE(needles.ContactEvasion(0, 2, {2000, 0, 0}));
    EXPECT_FALSE(needles.ContactEvasion(0, 3, {2000, 0, 0}));
}

TEST_F(clsNeedleMoveContactTest, AnEarlierNeedleIsAnObstacleForALaterOne) {
    Calibrate(3, StraightNeedle, {0, 0, 0}, {0, 0, 0});
    Calibrate(0, CrosswiseNeedle, {0, 0, 0}, {0, -5000, 0});
    PlaceTip(3, {1000, 0, 0});
    PlaceTip(0, {1500, 100, 0});
    EXPECT_FALSE(needles.ContactEvasion(3, 3, {2000, 0, 0}));
    EXPECT_TRUE(needles.ContactEvasion(3, 3, {1400, 0, 0}));
}

TEST_F(clsNeedleMoveContactTest, AMovingNeedleWithoutCalibrationIsTestedWithAPresentShaftOfZeros) {
    PlaceObstacle(1500, 2000);
    state.CalibrationON(0, false);
    PlaceTip(0, {5000, 5000, 0});
    // The way from (0, 0) to beyond (3000, 1000) cuts the obstacle; the one to (1000, 1000) does not.
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {3000, 1000, 0}));
    EXPECT_TRUE(needles.ContactEvasion(0, 1, {1000, 1000, 0}));
}

TEST_F(clsNeedleMoveContactTest, IndicesOutsideTheTablesAreFailures) {
    EXPECT_THROW(needles.ContactEvasion(-1, 3, {0, 0, 0}), BoundsFailure);
    EXPECT_THROW(needles.ContactEvasion(4, 3, {0, 0, 0}), BoundsFailure);
}

TEST_F(clsNeedleMoveContactTest, AFifthManipulatorIsNoObstacleAndKeepsNoneFromBeingOne) {
    PlaceObstacle(1500, 100);
    PlaceTip(0, {1000, 0, 0});
    EXPECT_FALSE(needles.ContactEvasion(0, 4, {2000, 0, 0}));
    EXPECT_TRUE(needles.ContactEvasion(0, 4, {1200, 0, 0}));
}

TEST_F(clsNeedleMoveContactTest, AShaftThatOverflowsIsAFailureAlsoBehindAContact) {
    PlaceObstacle(1500, 100);
    PlaceTip(0, {1000, 0, 0});
    Calibrate(2, StraightNeedle, {0, 0, 0}, {-10, 0, 0});
    PlaceTip(2, {Largest, 0, 0});
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {2000, 0, 0}));
    EXPECT_THROW(needles.ContactEvasion(0, 2, {2000, 0, 0}), OverflowFailure);
}

TEST_F(clsNeedleMoveContactTest, ZOfARearThatOverflowsIsAFailureAlthoughZIsNotLookedAt) {
    Calibrate(0, TiltedNeedle, {0, 0, 0}, {0, 0, 0});
    EXPECT_NO_THROW(needles.ContactEvasion(0, -1, {0, 0, 1'600'000'000}));
    needles.PosZero(0, 2, 1'000'000'000);
    EXPECT_THROW(needles.ContactEvasion(0, -1, {-2'000'000'000, 0, 2'000'000'000}), OverflowFailure);
}

TEST_F(clsNeedleMoveContactTest, TheCheckDoesNotReadTheSwitchAndChangesNothing) {
    PlaceObstacle(1500, 100);
    PlaceTip(0, {1000, 0, 0});
    needles.ContactEvasionONOFF(true);
    EXPECT_FALSE(needles.ContactEvasion(0, 1, {2000, 0, 0}));
    EXPECT_EQ(state.Needles()[0], (PositionXYZ{1000, 0, 0}));
    EXPECT_EQ(state.Needles()[1], (PositionXYZ{1500, 100, 0}));
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(driver.moves.empty());
}

}  // namespace
}  // namespace travo::test
