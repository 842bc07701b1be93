#include "needle/CalibrationMap.h"

#include <gtest/gtest.h>

#include "NeedleRig.h"

namespace travo {
namespace {

using test::Largest;
using test::Smallest;
using Points = CalibrationMap::Points;

void PutZero(CalibrationMap& map, const PositionXYZ& zero) {
    for (std::size_t axis = 0; axis < zero.size(); ++axis) {
        map.PosZero(axis, zero[axis]);
    }
}

CalibrationMap MapOf(const Points& points, const PositionXYZ& zero = {0, 0, 0}) {
    CalibrationMap map;
    PutZero(map, zero);
    map.Calculate(points);
    return map;
}

TEST(CalibrationMapTest, StraightWorkedExample) {
    const CalibrationMap map = MapOf(test::StraightNeedle, {100, -200, 0});
    EXPECT_EQ(map.ManiCenter, (std::array<double, 3>{10000, 22000, 5000}));
    EXPECT_EQ(map.CalibAxisX.Raw, (std::array<double, 3>{6000, 0, 0}));
    EXPECT_EQ(map.CalibAxisY.Raw, (std::array<double, 3>{0, 8000, 0}));
    EXPECT_EQ(map.CalibAxisZ.Raw, (std::array<double, 3>{0, 0, 1000}));
    EXPECT_TRUE(map.ManiDirect);
    const std::array<double, 3> alongX{1, 0, 0};
    const std::array<double, 3> alongY{0, 1, 0};
    const std::array<double, 3> alongZ{0, 0, 1};
    EXPECT_EQ(map.CalibAxisX.Unit, alongX);
    EXPECT_EQ(map.CalibAxisY.Unit, alongY);
    EXPECT_EQ(map.CalibAxisZ.Unit, alongZ);
    EXPECT_EQ(map.CalibAxisX.Inverse, alongX);
    EXPECT_EQ(map.CalibAxisY.Inverse, alongY);
    EXPECT_EQ(map.CalibAxisZ.Inverse, alongZ);
    EXPECT_EQ(map.ToCommon({11000, 21000, 5100}), (PositionXYZ{1100, -1200, 100}));
    EXPECT_EQ(map.ToManipulator({1100, -1200, 100}), (PositionXYZ{11000, 21000, 5100}));
}

TEST(CalibrationMapTest, TiltedWorkedExampleToTheTenthDigit) {
    const CalibrationMap map = MapOf(test::TiltedNeedle, {100, -200, 0});
    constexpr double HalfDigit = 0.5e-10;
    EXPECT_EQ(map.CalibAxisX.Raw, (std::array<double, 3>{5200, 0, -3000}));
    EXPECT_EQ(map.CalibAxisZ.Raw, (std::array<double, 3>{500, 0, 866}));
    EXPECT_TRUE(map.ManiDirect);
    EXPECT_NEAR(map.CalibAxisX.Unit[0], 0.8661855860, HalfDigit);
    EXPECT_EQ(map.CalibAxisX.Unit[1], 0.0);
    EXPECT_NEAR(map.CalibAxisX.Unit[2], -0.4997224535, HalfDigit);
    EXPECT_NEAR(map.CalibAxisZ.Unit[0], 0.5000110004, HalfDigit);
    EXPECT_EQ(map.CalibAxisZ.Unit[1], 0.0);
    EXPECT_NEAR(map.CalibAxisZ.Unit[2], 0.8660190526, HalfDigit);
    EXPECT_NEAR(map.Determinant(), 0.9999999445, HalfDigit);
    EXPECT_EQ(map.ToCommon({11000, 21000, 5100}), (PositionXYZ{1016, -1200, -413}));
    EXPECT_EQ(map.ToManipulator({1016, -1200, -413}), (PositionXYZ{11000, 21000, 5100}));
}

TEST(CalibrationMapTest, TheVectorsAreTheColumnsOfTheForwardMatrix) {
    const CalibrationMap map = MapOf(test::TiltedNeedle);
    // A step of 10000 along manipulator X shows the first component of each vector: 8662 of X at common
    // X, 0 of Y, and at common Z the third of X. The transpose would give +5000 there.
    EXPECT_EQ(map.ToCommon({20000, 22000, 5000}), (PositionXYZ{8662, 0, -4997}));
    EXPECT_EQ(map.ToCommon({10000, 22000, 15000}), (PositionXYZ{5000, 0, 8660}));
}

TEST(CalibrationMapTest, TheInverseColumnsUndoTheForwardOnes) {
    const CalibrationMap map = MapOf(test::TiltedNeedle);
    const std::array columns{&map.CalibAxisX, &map.CalibAxisY, &map.CalibAxisZ};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            double sum = 0.0;
            for (std::size_t k = 0; k < 3; ++k) {
                sum += columns[k]->Inverse[row] * columns[column]->Unit[k];
            }
            EXPECT_NEAR(sum, row == column ? 1.0 : 0.0, 1e-15);
        }
    }
}

TEST(CalibrationMapTest, AReversedNeedleTakesOutputXAsZeroMinusTheSum) {
    const CalibrationMap map = MapOf(test::ReversedNeedle, {100, -200, 0});
    EXPECT_FALSE(map.ManiDirect);
    EXPECT_EQ(map.CalibAxisX.Raw, (std::array<double, 3>{6000, 0, 0}));
    EXPECT_EQ(map.ToCommon({11000, 21000, 5100}), (PositionXYZ{-900, -1200, 100}));
    EXPECT_EQ(map.ToManipulator({-900, -1200, 100}), (PositionXYZ{11000, 21000, 5100}));
}

TEST(CalibrationMapTest, WithoutManiDirectTheSignChangesOnOutputXForwardAndOnInputXOfEveryAxisBack) {
    Points points = test::TiltedNeedle;
    std::swap(points[1], points[2]);
    const CalibrationMap reversed = MapOf(points);
    const CalibrationMap direct = MapOf(test::TiltedNeedle);
    ASSERT_FALSE(reversed.ManiDirect);
    ASSERT_EQ(reversed.CalibAxisX.Unit, direct.CalibAxisX.Unit);
    const PositionXYZ manipulator{11000, 21000, 5100};
    const PositionXYZ common = direct.ToCommon(manipulator);
    EXPECT_EQ(reversed.ToCommon(manipulator), (PositionXYZ{-common[0], common[1], common[2]}));
    // Both manipulator X and manipulator Z depend on common X in a tilted needle.
    EXPECT_EQ(reversed.ToManipulator({-common[0], common[1], common[2]}), manipulator);
    EXPECT_EQ(reversed.ToManipulator({-3000, 50, 70}), direct.ToManipulator({3000, 50, 70}));
    EXPECT_NE(direct.ToManipulator({3000, 0, 0})[2], direct.ToManipulator({-3000, 0, 0})[2]);
}

TEST(CalibrationMapTest, TheThirdComponentOfTheHandednessVectorHasTheOppositeSignToTheCrossProduct) {
    // The true cross product of X (6000, 0, 0) and Y (0, 8000, 0) points along +Z, as the Z vector does.
    EXPECT_TRUE(MapOf(test::StraightNeedle).ManiDirect);
    // With Z downwards the product of the two is positive.
    Points downwards = test::StraightNeedle;
    downwards[3][2] = 4000;
    EXPECT_FALSE(MapOf(downwards).ManiDirect);
    // In the first two components the sign is that of the cross product: here it is (8, 0, 0).
    EXPECT_FALSE(MapOf({{{0, 0, 0}, {0, -2, 1}, {0, 2, 1}, {20, 0, 0}}}).ManiDirect);
    EXPECT_TRUE(MapOf({{{0, 0, 0}, {0, -2, 1}, {0, 2, 1}, {-20, 0, 0}}}).ManiDirect);
    EXPECT_FALSE(MapOf({{{0, 0, 0}, {-2, 0, -1}, {2, 0, -1}, {0, 20, 0}}}).ManiDirect);
    EXPECT_TRUE(MapOf({{{0, 0, 0}, {-2, 0, -1}, {2, 0, -1}, {0, -20, 0}}}).ManiDirect);
}

TEST(CalibrationMapTest, ATieInDChoosesTheLowestAxis) {
    // H is (8, 8, 0), Z (-2, 18, 0): both distances are 10. Axis 0 says direct, axis 1 would not.
    EXPECT_TRUE(MapOf({{{0, 0, 0}, {2, -2, 1}, {-2, 2, 1}, {-2, 18, 0}}}).ManiDirect);
    // The same distances with the senses of the two axes changed over.
    EXPECT_FALSE(MapOf({{{0, 0, 0}, {2, -2, 1}, {-2, 2, 1}, {18, -2, 0}}}).ManiDirect);
}

TEST(CalibrationMapTest, AnAllZeroDLeavesTheFirstAxis) {
    // H equals Z, (8, 0, 0): no maximum at all, and on axis 0 the product is positive.
    EXPECT_FALSE(MapOf({{{0, 0, 0}, {0, -2, 1}, {0, 2, 1}, {8, 0, 0}}}).ManiDirect);
}

TEST(CalibrationMapTest, APositiveProductOnALesserAxisDoesNotCount) {
    // H is (8, 8, 0), Z (1, -30, 0): axis 1 is dominant with 38 against 7.
    EXPECT_TRUE(MapOf({{{0, 0, 0}, {2, -2, 1}, {-2, 2, 1}, {1, -30, 0}}}).ManiDirect);
}

TEST(CalibrationMapTest, PointsOneAndTwoEqualGiveTheRoundedCentreForAnyTarget) {
    Points points = test::StraightNeedle;
    points[2] = points[1];
    points[0] = {10001, 20000, 5000};
    const CalibrationMap map = MapOf(points);
    EXPECT_EQ(map.CalibAxisX.Unit, (std::array<double, 3>{}));
    EXPECT_EQ(map.Determinant(), 0.0);
    for (const CalibAxis* axis : {&map.CalibAxisX, &map.CalibAxisY, &map.CalibAxisZ}) {
        EXPECT_EQ(axis->Inverse, (std::array<double, 3>{}));
    }
    EXPECT_EQ(map.ManiCenter, (std::array<double, 3>{8500.5, 22000, 5000}));
    EXPECT_EQ(map.ToManipulator({1234, -5678, 90}), (PositionXYZ{8500, 22000, 5000}));
    EXPECT_EQ(map.ToManipulator({0, 0, 0}), (PositionXYZ{8500, 22000, 5000}));
}

TEST(CalibrationMapTest, ASecondCalculationClearsTheInverseOfTheFirst) {
    CalibrationMap map = MapOf(test::StraightNeedle);
    map.Calculate({});
    EXPECT_EQ(map.CalibAxisX.Inverse, (std::array<double, 3>{}));
    EXPECT_EQ(map.CalibAxisY.Unit, (std::array<double, 3>{}));
    EXPECT_TRUE(map.ManiDirect);
}

TEST(CalibrationMapTest, AValueExactlyHalfwayGoesToTheEvenOne) {
    Points points = test::StraightNeedle;
    points[0][0] = 10001;
    const CalibrationMap map = MapOf(points);
    ASSERT_EQ(map.ManiCenter[0], 10000.5);
    EXPECT_EQ(map.ToCommon(0, {10003, 22000, 5000}), 2);  // 2.5
    EXPECT_EQ(map.ToCommon(0, {10004, 22000, 5000}), 4);  // 3.5
    EXPECT_EQ(map.ToCommon(0, {9998, 22000, 5000}), -2);  // -2.5
    EXPECT_EQ(map.ToManipulator(0, {2, 0, 0}), 10002);    // 10002.5
    EXPECT_EQ(map.ToManipulator(0, {3, 0, 0}), 10004);    // 10003.5
}

TEST(CalibrationMapTest, TheCentreKeepsItsQuarters) {
    EXPECT_EQ(MapOf({{{2, 0, 0}, {1, 0, 0}, {0, 0, 0}, {0, 0, 0}}}).ManiCenter[0], 1.25);
    EXPECT_EQ(MapOf({{{-2, 0, 0}, {-1, 0, 0}, {0, 0, 0}, {0, 0, 0}}}).ManiCenter[0], -1.25);
}

TEST(CalibrationMapTest, TheDifferenceToTheCentreIsADoubleAndCannotOverflow) {
    CalibrationMap map = MapOf(test::StraightNeedle);
    map.ManiCenter = {-10.0, 0.0, 0.0};
    EXPECT_EQ(map.ToCommon(1, {Largest, 5, 0}), 5);
    EXPECT_THROW(map.ToCommon(0, {Largest, 5, 0}), OverflowFailure);
    map.PosZero(0, -10);
    EXPECT_EQ(map.ToCommon(0, {Largest, 5, 0}), Largest);
}

TEST(CalibrationMapTest, TheDifferencesToTheZeroAre32BitOnesOnEveryOutputAxis) {
    for (std::size_t input = 0; input < 3; ++input) {
        CalibrationMap map = MapOf(test::StraightNeedle);
        map.PosZero(input, -100000);
        PositionXYZ far{};
        far[input] = Largest;
        for (std::size_t output = 0; output < 3; ++output) {
            EXPECT_THROW(map.ToManipulator(output, far), OverflowFailure) << input << output;
        }
        far[input] = Largest - 100000;
        for (std::size_t output = 0; output < 3; ++output) {
            if (output == input) {
                EXPECT_THROW(map.ToManipulator(output, far), OverflowFailure);  // the centre on top
            } else {
                EXPECT_NO_THROW(map.ToManipulator(output, far));
            }
        }
    }
}

TEST(CalibrationMapTest, WithoutManiDirectTheFirstDifferenceIsTakenFromTheZero) {
    CalibrationMap map = MapOf(test::ReversedNeedle);
    // 0 - Smallest does not fit, Smallest - 0 would.
    EXPECT_THROW(map.ToManipulator(1, {Smallest, 0, 0}), OverflowFailure);
    EXPECT_NO_THROW(map.ToManipulator(1, {Largest, 0, 0}));
    map.ManiDirect = true;
    EXPECT_NO_THROW(map.ToManipulator(1, {Smallest, 0, 0}));
}

TEST(CalibrationMapTest, AResultThatIsNotFiniteIsAFailure) {
    CalibrationMap map = MapOf(test::StraightNeedle);
    map.CalibAxisX.Unit[0] = std::numeric_limits<double>::infinity();
    map.CalibAxisX.Inverse[0] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(map.ToCommon(0, {0, 0, 0}), OverflowFailure);
    EXPECT_THROW(map.ToManipulator(0, {1, 0, 0}), OverflowFailure);
}

TEST(CalibrationMapTest, AVectorThatIsNotFiniteHasNoInverse) {
    CalibrationMap map = MapOf(test::StraightNeedle);
    map.CalibAxisZ.Unit[2] = std::numeric_limits<double>::infinity();
    EXPECT_THROW(map.Invert(), OverflowFailure);
}

}  // namespace
}  // namespace travo
