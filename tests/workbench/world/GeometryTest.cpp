#include "workbench/world/Geometry.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

constexpr double Tiny = 1e-9;

void ExpectPlace(const Vector& place, const Vector& expected) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(place[axis], expected[axis], 1e-6) << "axis " << axis;
    }
}

}  // namespace

TEST(GeometryTest, TheRotationWithoutTiltIsTheHalfTurnOfTheHeading) {
    const Matrix rotation = Rotation({30.0, 0.0, 0.0, {}});
    const double cosine = std::sqrt(3.0) / 2.0;
    const Matrix expected = {{{cosine, 0.5, 0.0}, {0.5, -cosine, 0.0}, {0.0, 0.0, -1.0}}};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            EXPECT_NEAR(rotation[row][column], expected[row][column], Tiny);
        }
    }
}

TEST(GeometryTest, AHalfTurnIsItsOwnInverse) {
    const Mount mount{135.0, 0.0, 0.0, {}};
    const Vector counts = {300.0, -200.0, 70.0};
    ExpectPlace(Rotation(mount) * (Rotation(mount) * counts), counts);
}

TEST(GeometryTest, XAdvancesTheTipAlongTheHeadingAndZCountsDownward) {
    const Mount mount{0.0, 0.0, 0.0, {10.0, 20.0, 30.0}};
    ExpectPlace(TipOf(mount, {100.0, 0.0, 0.0}), {110.0, 20.0, 30.0});
    ExpectPlace(TipOf(mount, {0.0, 100.0, 0.0}), {10.0, -80.0, 30.0});
    ExpectPlace(TipOf(mount, {0.0, 0.0, 100.0}), {10.0, 20.0, -70.0});
}

TEST(GeometryTest, YawTurnsTheHeading) {
    ExpectPlace(TipOf({40.0, 5.0, 0.0, {}}, {100.0, 50.0, 10.0}),
                TipOf({45.0, 0.0, 0.0, {}}, {100.0, 50.0, 10.0}));
}

TEST(GeometryTest, TiltMakesTheShaftDip) {
    const Vector tip = TipOf({0.0, 0.0, 30.0, {}}, {100.0, 0.0, 0.0});
    ExpectPlace(tip, {100.0 * std::sqrt(3.0) / 2.0, 0.0, -50.0});
}

TEST(GeometryTest, CountsForUndoesTipOfForEveryMount) {
    for (const double tilt : {0.0, 2.0, -7.0}) {
        for (const double heading : {0.0, 45.0, 135.0, 200.0, 315.0}) {
            const Mount mount{heading, 1.5, tilt, {1000.0, -2000.0, 500.0}};
            const Vector counts = {12345.0, 678.0, 9012.0};
            ExpectPlace(CountsFor(mount, TipOf(mount, counts)), counts);
        }
    }
}

TEST(GeometryTest, WholeCountsGoToNearestAndRefuseWhatNoCountCanHold) {
    EXPECT_EQ(Whole({1.4, -1.6, 2.5}), (travo::PositionXYZ{1, -2, 2}));
    EXPECT_THROW(Whole({1e10, 0.0, 0.0}), travo::OverflowFailure);
}

TEST(GeometryTest, TheShaftRunsFromTheTipToThePointWithXCountZero) {
    const Shaft shaft = ShaftOf({90.0, 0.0, 0.0, {5.0, 6.0, 7.0}}, {1000.0, 200.0, 50.0});
    EXPECT_NEAR(shaft.tip[0], 205.0, Tiny);
    EXPECT_NEAR(shaft.tip[1], 1006.0, Tiny);
    EXPECT_NEAR(shaft.rear[0], 205.0, Tiny);
    EXPECT_NEAR(shaft.rear[1], 6.0, Tiny);
}

TEST(GeometryTest, TheViewCentreFollowsTheMirrorCounts) {
    EXPECT_EQ(ViewCentreOf(0, 0), (PlanPoint{0.0, 0.0}));
    EXPECT_DOUBLE_EQ(ViewCentreOf(-84, 0)[0], 420.0);
    // 180 counts are 4.14 degrees.
    EXPECT_NEAR(ViewCentreOf(0, 180)[1], -12500.0 * 0.0723825, 0.05);
    EXPECT_NEAR(ViewCentreOf(0, -180)[1], 12500.0 * 0.0723825, 0.05);
}

TEST(GeometryTest, TheViewCentreAgreesWithTheWholeNumbersOfTheControlProgram) {
    for (std::int32_t count = -180; count <= 180; count += 7) {
        const PlanPoint centre = ViewCentreOf(count, count);
        // That conversion adds a half before it rounds to nearest.
        EXPECT_NEAR(centre[0], travo::MirrorXToCommon(count), 1.0);
        EXPECT_NEAR(centre[1], travo::MirrorYToCommon(count), 1.0);
    }
}

}  // namespace workbench
