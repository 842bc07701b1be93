// Compositions of still, view, needles and lines.
#include "experiment/bird/BirdCanvas.h"

#include <limits>

#include "core/ground/Arithmetic.h"
#include "experiment/bird/BirdCanvasRig.h"

namespace travo::test {
namespace {

class BirdCanvasTest : public BirdCanvasRig {};

TEST_F(BirdCanvasTest, TheCanvasIs756By756PlainPixelsWithA255FourthByte) {
    scene.chkMirror = true;
    scene.intTotalManipulatorNumber = 3;
    PlaceNeedles();
    scene.cells[0] = CellPlace({0, 0, 0});
    still = Filled(640, 480, 0x00102030U);
    const QImage& image = Composed();
    EXPECT_EQ(image.size(), QSize(756, 756));
    EXPECT_EQ(image.format(), QImage::Format_RGB32);
    EXPECT_EQ(image.devicePixelRatio(), 1.0);
    for (int y = 0; y < 756; ++y) {
        for (int x = 0; x < 756; ++x) {
            ASSERT_EQ(RawPixel(image, x, y) >> 24, 0xFFU) << x << ", " << y;
        }
    }
}

TEST_F(BirdCanvasTest, WithBothShiftsAt0TheStillIsCentredAt58And138) {
    const QImage& image = Composed();
    EXPECT_EQ(Differences(image, WithStillAt(58, 138)), 0);
    EXPECT_EQ(image.pixel(57, 138), Ground);
    EXPECT_EQ(image.pixel(58, 138), still.pixel(0, 0));
    EXPECT_EQ(image.pixel(697, 617), still.pixel(639, 479));
    EXPECT_EQ(image.pixel(698, 617), Ground);
}

TEST_F(BirdCanvasTest, AShiftMovesTheStillByThatPartOfItsSize) {
    for (const auto& [shiftX, shiftY, x, y] : {std::tuple{0.25, -0.5, 218, -102},
                                               {-0.5, 0.5, -262, 378},
                                               {1.0, 0.0, 698, 138},
                                               {0.5 / 640, 1.5 / 480, 58, 140},
                                               {1.5 / 640, 0.5 / 480, 60, 138}}) {
        scene.ShiftX = shiftX;
        scene.ShiftY = shiftY;
        EXPECT_EQ(Differences(Composed(), WithStillAt(x, y)), 0) << shiftX;
    }
}

TEST_F(BirdCanvasTest, AShiftOffTheCanvasLeavesTheGround) {
    for (const double shift : {1.1, -1.2, 1e300, -1e300, std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()}) {
        scene.ShiftX = shift;
        EXPECT_EQ(Differences(Composed(), Filled(756, 756, Ground)), 0) << shift;
    }
}

TEST_F(BirdCanvasTest, AStillOfAnotherSizeIsCentredToo) {
    still = Patterned(101, 40);  // its corner at 327.5 goes to the even pixel
    EXPECT_EQ(Differences(Composed(), WithStillAt(328, 358)), 0);
    still = Patterned(800, 900);
    EXPECT_EQ(Differences(Composed(), WithStillAt(-22, -72)), 0);
}

TEST_F(BirdCanvasTest, WithoutAStillThePictureShowsTheGround) {
    EXPECT_EQ(Differences(canvas.Compose(QImage(), scene), Filled(756, 756, Ground)), 0);
}

TEST_F(BirdCanvasTest, AStillOfAnotherFormatIsShownAllTheSame) {
    const QImage expected = Composed().copy();
    still = still.convertToFormat(QImage::Format_RGB888);
    EXPECT_EQ(Differences(Composed(), expected), 0);
}

TEST_F(BirdCanvasTest, WithChkMirrorFalseNoViewMarkAppears) {
    scene.intBirdMagnification = 2;
    scene.view = ViewPlace({0, 0, 0}, 2);
    EXPECT_EQ(Differences(Composed(), WithStill()), 0);
    scene.chkMirror = true;
    EXPECT_NE(Differences(Composed(), WithStill()), 0);
}

TEST_F(BirdCanvasTest, AtMagnification1OrNotKnownTheViewMarkIsTheCross) {
    scene.chkMirror = true;
    scene.view = {100, 200};
    QImage expected = WithStill();
    LayOn(expected, markers.View(1), 100, 200);
    for (const std::int16_t magnification : {std::int16_t{1}, std::int16_t{0}, std::int16_t{7}}) {
        scene.intBirdMagnification = magnification;
        EXPECT_EQ(Differences(Composed(), expected), 0) << magnification;
    }
    EXPECT_EQ(markers.View(1).mask.size(), QSize(23, 23));
}

TEST_F(BirdCanvasTest, AChangeOfMagnificationMovesTheMarksSizeAtOnceButItsOffsetOnlyWithTheNextPlace) {
    scene.chkMirror = true;
    scene.view = ViewPlace({0, 0, 0}, 2);
    for (const std::int16_t magnification : {std::int16_t{2}, std::int16_t{3}, std::int16_t{1}}) {
        scene.intBirdMagnification = magnification;
        QImage expected = WithStill();
        LayOn(expected, markers.View(magnification), 327, 340);
        EXPECT_EQ(Differences(Composed(), expected), 0) << magnification;
    }
    scene.intBirdMagnification = 3;
    scene.view = ViewPlace({0, 0, 0}, 3);
    QImage expected = WithStill();
    LayOn(expected, markers.View(3), 352, 359);
    EXPECT_EQ(Differences(Composed(), expected), 0);
    scene.intBirdMagnification = 2;
    expected = WithStill();
    LayOn(expected, markers.View(2), 352, 359);
    EXPECT_EQ(Differences(Composed(), expected), 0);
}

TEST_F(BirdCanvasTest, BeforeAnyPlaceTheViewMarkStandsAtTheMiddle) {
    scene.chkMirror = true;
    QImage expected = WithStill();
    LayOn(expected, markers.View(1), 366, 366);
    EXPECT_EQ(Differences(Composed(), expected), 0);
}

TEST_F(BirdCanvasTest, ATotalOfMinus1DrawsNoNeedlesAndNoLinesAlthoughTheirPositionsAreHeld) {
    PlaceNeedles();
    EXPECT_EQ(Differences(Composed(), WithStill()), 0);
}

TEST_F(BirdCanvasTest, NeedlesUpToAndIncludingTheTotalAreDrawnWithTheirLinesBelowAllMarkers) {
    PlaceNeedles();
    for (int total = 0; total < 4; ++total) {
        scene.intTotalManipulatorNumber = static_cast<std::int16_t>(total);
        QImage expected = WithStill();
        for (int needle = 0; needle <= total; ++needle) {
            Line(expected, needle);
        }
        for (int needle = 0; needle <= total; ++needle) {
            Needle(expected, needle);
        }
        EXPECT_EQ(Differences(Composed(), expected), 0) << total;
    }
}

TEST_F(BirdCanvasTest, ALineIsBlackFromTheRootToTheMiddleOfTheShape) {
    scene.intTotalManipulatorNumber = 0;
    scene.needles[0] = {0, 291, 191, 300, 20};  // upright at 300, from 20 down to 200
    const QImage& image = Composed();
    for (int y = 20; y < 185; ++y) {
        ASSERT_EQ(image.pixel(299, y), Black) << y;
        ASSERT_EQ(image.pixel(300, y), Black) << y;
        ASSERT_NE(image.pixel(298, y), Black) << y;
        ASSERT_NE(image.pixel(301, y), Black) << y;
    }
    EXPECT_EQ(image.pixel(300, 19), Ground);
    EXPECT_EQ(image.pixel(300, 201), qRgb(255, 153, 153));
}

TEST_F(BirdCanvasTest, WithLinesOffOnlyTheMarkersAreDrawn) {
    PlaceNeedles();
    scene.intTotalManipulatorNumber = 3;
    scene.bLineOFF = true;
    QImage expected = WithStill();
    for (int needle = 0; needle < 4; ++needle) {
        Needle(expected, needle);
    }
    EXPECT_EQ(Differences(Composed(), expected), 0);
}

TEST_F(BirdCanvasTest, ANeedleNeverReadStandsAtTheTopLeftCornerWithShape0) {
    scene.intTotalManipulatorNumber = 1;
    QImage expected = WithStill();
    for (int needle : {0, 1}) {
        Line(expected, needle);
    }
    LayOn(expected, markers.Needle(0), 0, 0);
    LayOn(expected, markers.Needle(1), 0, 0);
    EXPECT_EQ(Differences(Composed(), expected), 0);
    EXPECT_EQ(canvas.Compose(still, scene).pixel(9, 9), qRgb(255, 153, 153));
}

TEST_F(BirdCanvasTest, ATotalBeyondTheTableOrAnUnknownShapeIsAFailure) {
    scene.intTotalManipulatorNumber = 4;
    EXPECT_THROW(Composed(), BoundsFailure);
    scene.intTotalManipulatorNumber = 0;
    scene.needles[0].intNeedleShape = 3;
    EXPECT_THROW(Composed(), BoundsFailure);
    scene.intTotalManipulatorNumber = -2;
    EXPECT_EQ(Differences(Composed(), WithStill()), 0);
}

}  // namespace
}  // namespace travo::test
