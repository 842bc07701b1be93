#include "workbench/world/Microscope.h"

#include <gtest/gtest.h>

#include "core/ground/Arithmetic.h"
#include "workbench/world/World.h"

namespace workbench {

using std::chrono::milliseconds;

namespace {
constexpr std::int32_t X = Microscope::AxisX;
constexpr std::int32_t Y = Microscope::AxisY;
}  // namespace

TEST(MicroscopeTest, StartsCentredAtTwoTimesWithItsMotorsOn) {
    const Microscope optics;
    EXPECT_EQ(optics.MirrorCount(X, milliseconds(0)), 0);
    EXPECT_EQ(optics.Magnification(), 2);
    EXPECT_TRUE(optics.MirrorMotorsOn());
    EXPECT_EQ(optics.FocusNow(milliseconds(0)), 0.0);
    EXPECT_EQ(optics.GaugeReading(milliseconds(0)), 0.0);
}

TEST(MicroscopeTest, TheMirrorTravelsFourHundredCountsASecond) {
    Microscope optics;
    EXPECT_EQ(optics.MoveMirror(X, 100, milliseconds(1000)), MirrorMove::Started);
    EXPECT_DOUBLE_EQ(optics.MirrorNow(X, milliseconds(1100)), 40.0);
    EXPECT_TRUE(optics.MirrorMoves(milliseconds(1249)));
    EXPECT_FALSE(optics.MirrorMoves(milliseconds(1250)));
    EXPECT_EQ(optics.MirrorCount(X, milliseconds(1250)), 100);
    EXPECT_EQ(optics.MirrorCount(Y, milliseconds(1250)), 0);
}

TEST(MicroscopeTest, TheLimitFlagIsRaisedOnlyByAMoveBeyondTheRange) {
    Microscope optics;
    EXPECT_EQ(optics.MoveMirror(X, 180, milliseconds(0)), MirrorMove::Started);
    EXPECT_FALSE(optics.AtLimit(X));
    EXPECT_EQ(optics.MoveMirror(X, 181, milliseconds(1000)), MirrorMove::AtLimit);
    EXPECT_TRUE(optics.AtLimit(X));
    EXPECT_FALSE(optics.AtLimit(Y));
    EXPECT_EQ(optics.MirrorAtRest(X), 180.0);
    EXPECT_EQ(optics.MoveMirror(Y, INT32_MIN, milliseconds(1000)), MirrorMove::AtLimit);
    EXPECT_EQ(optics.MirrorAtRest(Y), -180.0);
    EXPECT_EQ(optics.MoveMirror(X, 179, milliseconds(2000)), MirrorMove::Started);
    EXPECT_FALSE(optics.AtLimit(X));
    EXPECT_TRUE(optics.AtLimit(Y));
}

TEST(MicroscopeTest, WithTheMotorsOffTheMirrorStopsAndRefuses) {
    Microscope optics;
    optics.MoveMirror(X, 100, milliseconds(0));
    optics.SwitchMirrorMotors(false, milliseconds(100));
    EXPECT_EQ(optics.MirrorCount(X, milliseconds(5000)), 40);
    EXPECT_EQ(optics.MoveMirror(X, 50, milliseconds(5000)), MirrorMove::MotorsOff);
    EXPECT_EQ(optics.MirrorAtRest(X), 40.0);
    optics.SwitchMirrorMotors(true, milliseconds(5000));
    EXPECT_EQ(optics.MoveMirror(X, 50, milliseconds(5000)), MirrorMove::Started);
}

TEST(MicroscopeTest, AnAxisOrAMagnificationThatIsNotThereIsAFailure) {
    Microscope optics;
    EXPECT_THROW(optics.MoveMirror(2, 0, milliseconds(0)), travo::BoundsFailure);
    EXPECT_THROW(optics.AtLimit(-1), travo::BoundsFailure);
    EXPECT_THROW(optics.SetMagnification(4), travo::BoundsFailure);
    EXPECT_THROW(optics.SetMagnification(-1), travo::BoundsFailure);
    EXPECT_THROW(FieldOfView(4), travo::BoundsFailure);
    EXPECT_EQ(optics.Magnification(), 2);
}

TEST(MicroscopeTest, TheFieldOfViewFollowsTheMagnification) {
    EXPECT_EQ(FieldOfView(0)[0], 0.0);
    EXPECT_EQ(FieldOfView(1)[0], 1524.0);
    EXPECT_EQ(FieldOfView(2)[1], 181.0);
    EXPECT_EQ(FieldOfView(3)[0], 121.4);
}

TEST(MicroscopeTest, TheFocusMovesAHundredCountsToAUnitAndFourHundredUnitsASecond) {
    Microscope optics;
    EXPECT_TRUE(optics.MoveFocus(80000, milliseconds(0)));
    EXPECT_DOUBLE_EQ(optics.FocusNow(milliseconds(500)), 200.0);
    EXPECT_EQ(optics.FocusAtRest(), 800.0);
    EXPECT_FALSE(optics.FocusMoves(milliseconds(2000)));
    EXPECT_EQ(optics.FocusCount(milliseconds(2000)), 80000);
}

TEST(MicroscopeTest, TheFocusRefusesToGoBeyondItsEndsAndHaltsWhereItIs) {
    Microscope optics;
    EXPECT_FALSE(optics.MoveFocus(std::int64_t{FocusRange} + 1, milliseconds(0)));
    EXPECT_FALSE(optics.MoveFocus(-std::int64_t{FocusRange} - 1, milliseconds(0)));
    EXPECT_FALSE(optics.FocusMoves(milliseconds(0)));
    EXPECT_TRUE(optics.MoveFocus(FocusRange, milliseconds(0)));
    optics.HaltFocus(milliseconds(10));
    EXPECT_EQ(optics.FocusCount(milliseconds(60000)), 400);
}

TEST(MicroscopeTest, TheGaugeReadsFromItsOwnZero) {
    Microscope optics;
    optics.MoveFocus(10000, milliseconds(0));
    EXPECT_DOUBLE_EQ(optics.GaugeReading(milliseconds(1000)), 100.0);
    optics.ZeroGauge(milliseconds(1000));
    EXPECT_DOUBLE_EQ(optics.GaugeReading(milliseconds(1000)), 0.0);
    EXPECT_DOUBLE_EQ(optics.GaugeZero(), 100.0);
    EXPECT_DOUBLE_EQ(optics.FocusNow(milliseconds(1000)), 100.0);
}

TEST(MicroscopeTest, TheViewsCentreFollowsTheMirror) {
    Microscope optics;
    optics.MoveMirror(X, -84, milliseconds(0));
    optics.MoveMirror(Y, 45, milliseconds(0));
    EXPECT_EQ(optics.ViewNow(milliseconds(0))[0], 0.0);
    EXPECT_DOUBLE_EQ(optics.ViewAtRest()[0], 420.0);
    EXPECT_NEAR(optics.ViewNow(milliseconds(1000))[1], World::Cells()[0].Place()[1], 1e-9);
}

}  // namespace workbench
