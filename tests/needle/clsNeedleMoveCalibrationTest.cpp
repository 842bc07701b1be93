// Calibration data and maps as the needles' owner sees them.
#include "NeedleRig.h"

namespace travo::test {
namespace {

class clsNeedleMoveCalibrationTest : public NeedleRig {};

TEST_F(clsNeedleMoveCalibrationTest, StartsWithoutPointsAndZeroAndWithEverythingElseAtNothing) {
    EXPECT_EQ(needles.lngXYOffset, 0);
    EXPECT_EQ(needles.lngMinimumXYOffset, 0);
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        EXPECT_FALSE(needles.ManiDirect(needle));
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            EXPECT_EQ(needles.PosZero(needle, axis), -100000);
            for (std::int32_t point = 0; point < 4; ++point) {
                EXPECT_EQ(needles.ManipulatorCalibrationPosXYZ(needle, axis, point), -100000);
            }
        }
    }
}

TEST_F(clsNeedleMoveCalibrationTest, EveryPointAndZeroHasItsOwnPlace) {
    std::int32_t value = 0;
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            needles.PosZero(needle, axis, ++value);
            for (std::int32_t point = 0; point < 4; ++point) {
                needles.ManipulatorCalibrationPosXYZ(needle, axis, point, ++value);
            }
        }
    }
    value = 0;
    for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
        for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
            EXPECT_EQ(needles.PosZero(needle, axis), ++value);
            for (std::int32_t point = 0; point < 4; ++point) {
                EXPECT_EQ(needles.ManipulatorCalibrationPosXYZ(needle, axis, point), ++value);
            }
        }
    }
}

TEST_F(clsNeedleMoveCalibrationTest, AnIndexOutsideItsBoundsIsAFailure) {
    for (const std::int32_t needle : {-1, 4}) {
        EXPECT_THROW(needles.ManipulatorCalibrationPosXYZ(needle, 0, 0), BoundsFailure);
        EXPECT_THROW(needles.ManipulatorCalibrationPosXYZ(needle, 0, 0, 1), BoundsFailure);
        EXPECT_THROW(needles.ManiCenter(needle, 0, 1), BoundsFailure);
        EXPECT_THROW(needles.PosZero(needle, 0), BoundsFailure);
        EXPECT_THROW(needles.PosZero(needle, 0, 1), BoundsFailure);
        EXPECT_THROW(needles.ManiDirect(needle), BoundsFailure);
        EXPECT_THROW(needles.InverseCalculation(needle), BoundsFailure);
        EXPECT_THROW(needles.Calibration(needle, 0, {}), BoundsFailure);
        EXPECT_THROW(needles.InverseCalibration(needle, 0, {}), BoundsFailure);
    }
    for (const std::int32_t axis : {-1, 3}) {
        EXPECT_THROW(needles.ManipulatorCalibrationPosXYZ(0, axis, 0), BoundsFailure);
        EXPECT_THROW(needles.ManipulatorCalibrationPosXYZ(0, axis, 0, 1), BoundsFailure);
        EXPECT_THROW(needles.ManiCenter(0, axis, 1), BoundsFailure);
        EXPECT_THROW(needles.PosZero(0, axis), BoundsFailure);
        EXPECT_THROW(needles.PosZero(0, axis, 1), BoundsFailure);
        EXPECT_THROW(needles.Calibration(0, axis, {}), BoundsFailure);
        EXPECT_THROW(needles.InverseCalibration(0, axis, {}), BoundsFailure);
    }
    for (const std::int32_t point : {-1, 4}) {
        EXPECT_THROW(needles.ManipulatorCalibrationPosXYZ(0, 0, point), BoundsFailure);
        EXPECT_THROW(needles.ManipulatorCalibrationPosXYZ(0, 0, point, 1), BoundsFailure);
    }
}

TEST_F(clsNeedleMoveCalibrationTest, StraightWorkedExample) {
    CalibrateFromPoints(2, StraightNeedle, {100, -200, 0});
    EXPECT_TRUE(needles.ManiDirect(2));
    EXPECT_EQ(ToCommon(2, {11000, 21000, 5100}), (PositionXYZ{1100, -1200, 100}));
    EXPECT_EQ(ToManipulator(2, {1100, -1200, 100}), (PositionXYZ{11000, 21000, 5100}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(clsNeedleMoveCalibrationTest, TiltedWorkedExample) {
    CalibrateFromPoints(1, TiltedNeedle, {100, -200, 0});
    EXPECT_TRUE(needles.ManiDirect(1));
    EXPECT_EQ(ToCommon(1, {11000, 21000, 5100}), (PositionXYZ{1016, -1200, -413}));
    EXPECT_EQ(ToManipulator(1, {1016, -1200, -413}), (PositionXYZ{11000, 21000, 5100}));
}

TEST_F(clsNeedleMoveCalibrationTest, AReversedNeedleGivesOutputXAsZeroMinusTheSumAndItsRoundTripsHold) {
    CalibrateFromPoints(3, ReversedNeedle, {100, -200, 0});
    EXPECT_FALSE(needles.ManiDirect(3));
    EXPECT_EQ(ToCommon(3, {11000, 21000, 5100}), (PositionXYZ{-900, -1200, 100}));
    for (std::int32_t step = 0; step <= 25000; step += 625) {
        const PositionXYZ place{step, 25000 - step, step / 2};
        EXPECT_EQ(ToManipulator(3, ToCommon(3, place)), place);
    }
}

TEST_F(clsNeedleMoveCalibrationTest, PointsOneAndTwoEqualShowNoMessageAndAnyTargetGivesTheRoundedCentre) {
    CalibrationMap::Points points = StraightNeedle;
    points[2] = points[1];
    CalibrateFromPoints(0, points, {0, 0, 0});
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_TRUE(LogTexts().isEmpty());
    EXPECT_EQ(ToManipulator(0, {777, -777, 7}), (PositionXYZ{8500, 22000, 5000}));
}

TEST_F(clsNeedleMoveCalibrationTest, ASumOfPointsBeyond32BitsIsReportedAsCalibrationCalculationFailed) {
    CalibrateFromPoints(0, StraightNeedle, {100, -200, 0});
    needles.ManipulatorCalibrationPosXYZ(0, 0, 1, 1'500'000'000);
    needles.ManipulatorCalibrationPosXYZ(0, 0, 2, 1'500'000'000);
    needles.CalibrationCalculation(0);
    EXPECT_TRUE(OnlyPlainBox(QStringLiteral("Calibration calculation failed")));
    EXPECT_EQ(LogTexts(), QStringList{QStringLiteral("Calibration calculation failed")});
    // What was there before is still in force.
    EXPECT_EQ(ToCommon(0, {11000, 21000, 5100}), (PositionXYZ{1100, -1200, 100}));
}

TEST_F(clsNeedleMoveCalibrationTest, ANeedleIndexOutOfBoundsIsReportedAsCalibrationCalculationFailed) {
    needles.CalibrationCalculation(4);
    EXPECT_TRUE(OnlyPlainBox(QStringLiteral("Calibration calculation failed")));
    EXPECT_EQ(LogTexts(), QStringList{QStringLiteral("Calibration calculation failed")});
    needles.CalibrationCalculation(-1);
    EXPECT_EQ(boxes.shown.size(), 2U);
}

TEST_F(clsNeedleMoveCalibrationTest, AWrittenCentreOverridesTheOneFromThePointsAndLeavesTheVectors) {
    CalibrateFromPoints(0, TiltedNeedle, {0, 0, 0});
    const PositionXYZ before = ToCommon(0, {11000, 22000, 5000});
    Calibrate(0, TiltedNeedle, {0, 22000, 5000}, {0, 0, 0});
    EXPECT_EQ(ToCommon(0, {1000, 22000, 5000}), before);
    EXPECT_EQ(ToManipulator(0, {0, 0, 0}), (PositionXYZ{0, 22000, 5000}));
    needles.CalibrationCalculation(0);
    EXPECT_EQ(ToManipulator(0, {0, 0, 0}), (PositionXYZ{10000, 22000, 5000}));
}

TEST_F(clsNeedleMoveCalibrationTest, AnUncalibratedNeedleSimplyGivesNumbers) {
    EXPECT_EQ(ToCommon(0, {1, 2, 3}), (PositionXYZ{-100000, -100000, -100000}));
    EXPECT_EQ(ToManipulator(0, {1, 2, 3}), (PositionXYZ{0, 0, 0}));
    needles.ManiCenter(0, 1, -100000);
    EXPECT_EQ(ToManipulator(0, {1, 2, 3}), (PositionXYZ{0, -100000, 0}));
}

TEST_F(clsNeedleMoveCalibrationTest, OneNeedlesCalibrationLeavesTheOthersAlone) {
    CalibrateFromPoints(1, StraightNeedle, {0, 0, 0});
    CalibrateFromPoints(2, ReversedNeedle, {0, 0, 0});
    EXPECT_EQ(ToCommon(1, {10001, 22000, 5000}), (PositionXYZ{1, 0, 0}));
    EXPECT_EQ(ToCommon(2, {10001, 22000, 5000}), (PositionXYZ{-1, 0, 0}));
    EXPECT_EQ(ToCommon(3, {10001, 22000, 5000}), (PositionXYZ{-100000, -100000, -100000}));
}

class clsNeedleMoveChangeZeroPositionTest : public NeedleRig {
protected:
    clsNeedleMoveChangeZeroPositionTest() {
        for (std::int32_t needle = 0; needle < NeedleCount; ++needle) {
            for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
                needles.PosZero(needle, axis, 1000 * (needle + 1) + axis);
            }
        }
        state.StoreZeroXYZ(0, 7);
        state.StoreZeroXYZ(1, 8);
        state.StoreZeroXYZ(2, 300);
    }

    PositionXYZ Zero(std::int32_t needle) const {
        return {needles.PosZero(needle, 0), needles.PosZero(needle, 1), needles.PosZero(needle, 2)};
    }
};

TEST_F(clsNeedleMoveChangeZeroPositionTest, WithNoneConnectedDoesNothing) {
    state.intTotalManipulatorNumber = -1;
    needles.ChangeZeroPosition();
    EXPECT_EQ(Zero(0), (PositionXYZ{1000, 1001, 1002}));
}

TEST_F(clsNeedleMoveChangeZeroPositionTest, WithHighestIndexZeroChangesNeedleZeroOnly) {
    state.intTotalManipulatorNumber = 0;
    needles.ChangeZeroPosition();
    EXPECT_EQ(Zero(0), (PositionXYZ{1000, 1001, 702}));
    EXPECT_EQ(Zero(1), (PositionXYZ{2000, 2001, 2002}));
}

TEST_F(clsNeedleMoveChangeZeroPositionTest, WithFourConnectedChangesZOfAllAndNothingElse) {
    state.intTotalManipulatorNumber = 3;
    needles.ChangeZeroPosition();
    EXPECT_EQ(Zero(0), (PositionXYZ{1000, 1001, 702}));
    EXPECT_EQ(Zero(3), (PositionXYZ{4000, 4001, 3702}));
    state.StoreZeroXYZ(2, -300);
    needles.ChangeZeroPosition();
    EXPECT_EQ(Zero(3), (PositionXYZ{4000, 4001, 4002}));
}

TEST_F(clsNeedleMoveChangeZeroPositionTest, AnOverflowGoesToTheCaller) {
    state.intTotalManipulatorNumber = 1;
    needles.PosZero(1, 2, Smallest);
    EXPECT_THROW(needles.ChangeZeroPosition(), OverflowFailure);
    EXPECT_EQ(Zero(0), (PositionXYZ{1000, 1001, 702}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(clsNeedleMoveChangeZeroPositionTest, WithAFifthManipulatorTheFourNeedlesChange) {
    state.intTotalManipulatorNumber = 4;
    needles.ChangeZeroPosition();
    EXPECT_EQ(Zero(0), (PositionXYZ{1000, 1001, 702}));
    EXPECT_EQ(Zero(3), (PositionXYZ{4000, 4001, 3702}));
}

}  // namespace
}  // namespace travo::test
