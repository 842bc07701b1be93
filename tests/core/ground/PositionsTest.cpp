#include "core/ground/Positions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "core/ground/Arithmetic.h"

namespace travo {
namespace {

// Far more than the mirror travels either way, in steps of its Y axis; below a right angle.
constexpr std::int32_t FarthestMirrorY = 3900;

TEST(PositionsTest, MirrorXBecomesMinusFiveTimesItselfAndAHalfTiesToEven) {
    EXPECT_EQ(MirrorXToCommon(0), 0);
    EXPECT_EQ(MirrorXToCommon(1), -4);
    EXPECT_EQ(MirrorXToCommon(2), -10);
    EXPECT_EQ(MirrorXToCommon(3), -14);
    EXPECT_EQ(MirrorXToCommon(-1), 6);
    EXPECT_EQ(MirrorXToCommon(-2), 10);
    EXPECT_EQ(MirrorXToCommon(-3), 16);
}

TEST(PositionsTest, MirrorXFollowsTheWholeNumberRuleEverywhere) {
    for (std::int32_t x = -100000; x <= 100000; ++x) {
        ASSERT_EQ(MirrorXToCommon(x), x % 2 == 0 ? -5 * x : -5 * x + 1) << x;
    }
}

TEST(PositionsTest, MirrorYAgreesWithTheTangentInLongDouble) {
    for (std::int32_t y = -FarthestMirrorY; y <= FarthestMirrorY; ++y) {
        const long double angle = y * 0.023L * std::numbers::pi_v<long double> / 180.0L;
        const long double expected = std::nearbyint(-12500.0L * std::tan(angle) + 0.5L);
        ASSERT_EQ(MirrorYToCommon(y), static_cast<std::int32_t>(expected)) << y;
    }
}

TEST(PositionsTest, MirrorYAtZeroStaysAtZero) { EXPECT_EQ(MirrorYToCommon(0), 0); }

TEST(PositionsTest, AStepOfTheMirrorsYAxisIs23ThousandthsOfADegree) {
    EXPECT_NEAR(MirrorStepTimesPi, 0.023 * std::numbers::pi, 1e-15);
}

TEST(PositionsTest, MirrorToCommonConvertsXAndYAndLeavesZ) {
    EXPECT_EQ(MirrorToCommon({0, 0, 0}), (PositionXYZ{0, 0, 0}));
    EXPECT_EQ(MirrorToCommon({2, 100, -77}), (PositionXYZ{-10, MirrorYToCommon(100), -77}));
    EXPECT_EQ(MirrorToCommon({0, 0, INT32_MIN}), (PositionXYZ{0, 0, INT32_MIN}));
}

TEST(PositionsTest, AMirrorPositionTooFarForThirtyTwoBitsIsAnError) {
    EXPECT_THROW(MirrorXToCommon(429496730), OverflowFailure);
    EXPECT_THROW(MirrorXToCommon(INT32_MIN), OverflowFailure);
    EXPECT_THROW(MirrorToCommon({INT32_MAX, 0, 0}), OverflowFailure);
    EXPECT_EQ(MirrorXToCommon(429496729), -2147483644);
}

}  // namespace
}  // namespace travo
