// Compositions: what blinks, the cells, the canvas's edges, places far off.
#include <algorithm>
#include <limits>
#include <random>

#include "core/ground/Arithmetic.h"
#include "experiment/bird/BirdCanvas.h"
#include "experiment/bird/BirdCanvasRig.h"

namespace travo::test {
namespace {

class BirdCanvasMarkersTest : public BirdCanvasRig {};

TEST_F(BirdCanvasMarkersTest, TheSelectedNeedleIsShownInOneOfThreeCompositions) {
    PlaceNeedles();
    scene.bLineOFF = true;
    scene.intTotalManipulatorNumber = 3;
    scene.intManipulatorNumber = 2;
    for (int composition = 0; composition < 6; ++composition) {
        QImage expected = WithStill();
        for (int needle = 0; needle < 4; ++needle) {
            if (needle != 2 || composition % 3 == 0) {
                Needle(expected, needle);
            }
        }
        EXPECT_EQ(Differences(Composed(), expected), 0) << composition;
        scene.intBlinkPhase = NextBlinkPhase(scene.intBlinkPhase);
    }
}

TEST_F(BirdCanvasMarkersTest, TheSelectedCellIsShownInOneOfThreeCompositions) {
    for (std::size_t cell = 0; cell < 8; ++cell) {
        scene.cells[cell] = CellPlace({static_cast<std::int32_t>(cell) * 20 - 60, 5, 0});
    }
    scene.intCellNo = 5;
    for (int composition = 0; composition < 6; ++composition) {
        QImage expected = WithStill();
        for (int cell = 0; cell < 8; ++cell) {
            const BirdCell& place = scene.cells[static_cast<std::size_t>(cell)];
            if (cell != 5 || composition % 3 == 0) {
                LayOn(expected, markers.Cell(cell), static_cast<int>(place.sngCellX),
                      static_cast<int>(place.sngCellY));
            }
        }
        EXPECT_EQ(Differences(Composed(), expected), 0) << composition;
        scene.intBlinkPhase = NextBlinkPhase(scene.intBlinkPhase);
    }
}

TEST_F(BirdCanvasMarkersTest, AnUnsetOrUnknownCellThatIsSelectedHidesNoOther) {
    scene.cells[1] = CellPlace({0, 0, 0});
    const QImage shown = Composed().copy();
    scene.intBlinkPhase = 1;
    for (const int cell : {-1, 0, 8, 32767}) {
        scene.intCellNo = static_cast<std::int16_t>(cell);
        EXPECT_EQ(Differences(Composed(), shown), 0) << cell;
    }
}

TEST(NextBlinkPhaseTest, IsAgain0AboveTwo) {
    EXPECT_EQ(NextBlinkPhase(0), 1);
    EXPECT_EQ(NextBlinkPhase(1), 2);
    EXPECT_EQ(NextBlinkPhase(2), 0);
    EXPECT_EQ(NextBlinkPhase(INT16_MAX), 0);
}

TEST_F(BirdCanvasMarkersTest, OnlySetCellsAreDrawn) {
    scene.cells[3] = CellPlace({0, 0, 0});
    QImage expected = WithStill();
    LayOn(expected, markers.Cell(3), 369, 360);
    EXPECT_EQ(Differences(Composed(), expected), 0);
}

TEST_F(BirdCanvasMarkersTest, ACellCloseToTheRightEdgeShowsTheLeftHandedVariantWithTheCrossInTheSamePlace) {
    for (std::int32_t count = -172; count <= -155; ++count) {
        scene.cells[0] = CellPlace({count, 0, 0});
        const int pixel = convert(MirrorXToCommon(count) * 0.42 + 378);
        const bool isLeftHanded = pixel > 722;
        QImage expected = WithStill();
        LayOn(expected, markers.Cell(isLeftHanded ? 8 : 0), pixel - (isLeftHanded ? 25 : 9), 360);
        EXPECT_EQ(Differences(Composed(), expected), 0) << pixel;
        for (int x = pixel - 7; x <= pixel + 7 && x < 756; ++x) {
            EXPECT_EQ(Composed().pixel(x, 378), qRgb(0, 204, 255)) << x << " of " << pixel;
        }
    }
}

TEST_F(BirdCanvasMarkersTest, AllKindsLieOnEachOtherInTheirOrder) {
    scene.chkMirror = true;
    scene.intBirdMagnification = 2;
    scene.view = ViewPlace({0, 0, 0}, 2);
    scene.intTotalManipulatorNumber = 1;
    scene.needles[0] = NeedlePlace({0, 0, 5}, {0, 0, 0}, {-2000, 100, 0});
    scene.needles[1] = NeedlePlace({20, 10, -5}, {0, 0, 0}, {2000, -300, 0});
    scene.cells[6] = CellPlace({-2, 1, 0});
    scene.cells[7] = CellPlace({-4, 2, 0});
    QImage expected = WithStill();
    LayOn(expected, markers.View(2), 327, 340);
    Line(expected, 0);
    Line(expected, 1);
    Needle(expected, 0);
    Needle(expected, 1);
    for (const int cell : {6, 7}) {
        const BirdCell& place = scene.cells[static_cast<std::size_t>(cell)];
        LayOn(expected, markers.Cell(cell), static_cast<int>(place.sngCellX),
              static_cast<int>(place.sngCellY));
    }
    EXPECT_EQ(Differences(Composed(), expected), 0);
}

TEST_F(BirdCanvasMarkersTest, MarkersPartlyOverEachEdgeAreClipped) {
    scene.chkMirror = true;
    scene.intBirdMagnification = 2;
    for (const auto& [x, y] :
         {std::pair{-40, 300}, {700, 300}, {300, -40}, {300, 720}, {-90, -60}, {740, 740}}) {
        scene.view = {static_cast<float>(x), static_cast<float>(y)};
        QImage expected = WithStill();
        LayOn(expected, markers.View(2), x, y);
        EXPECT_EQ(Differences(Composed(), expected), 0) << x << ", " << y;
        EXPECT_TRUE(IsWithin(Composed(), QRect(0, 0, 756, 756), qRgb(255, 204, 176)));
    }
}

TEST_F(BirdCanvasMarkersTest, PositionsAtTheEndsOf32BitsAreDrawnNowhere) {
    scene.chkMirror = true;
    scene.bLineOFF = true;
    scene.intTotalManipulatorNumber = 3;
    constexpr std::int32_t ends[] = {INT32_MIN, INT32_MAX};
    for (const std::int32_t x : ends) {
        for (const std::int32_t y : ends) {
            scene.needles.fill(NeedlePlace({x, y, x}, {0, 0, y}, {y, x, 0}));
            scene.view = ViewPlace({x / 5, 89999, 0}, 2);
            scene.cells.fill(CellPlace({x / 5, 89999, 0}));
            EXPECT_EQ(Differences(Composed(), WithStill()), 0);
        }
    }
}

TEST_F(BirdCanvasMarkersTest, AShaftFromTheEndOf32BitsIsDrawnAsFarAsItCrossesTheCanvas) {
    scene.intTotalManipulatorNumber = 0;
    scene.needles[0] = NeedlePlace({0, 0, 0}, {0, 0, 0}, {INT32_MIN, 0, 0});
    const QImage& image = Composed();
    for (int x = 0; x < 365; ++x) {
        ASSERT_EQ(image.pixel(x, 377), Black) << x;
        ASSERT_EQ(image.pixel(x, 378), Black) << x;
        ASSERT_EQ(image.pixel(x, 376), WithStill().pixel(x, 376)) << x;
    }
}

TEST_F(BirdCanvasMarkersTest, FloatsThatAreNoPlaceDrawNothing) {
    scene.chkMirror = true;
    scene.intTotalManipulatorNumber = 3;
    for (const float place : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                              -std::numeric_limits<float>::infinity(), std::numeric_limits<float>::max(),
                              std::numeric_limits<float>::lowest()}) {
        scene.view = {place, place};
        scene.needles.fill({0, place, place, place, place});
        scene.cells.fill({true, place, place, false});
        EXPECT_EQ(Differences(Composed(), WithStill()), 0) << place;
    }
}

TEST_F(BirdCanvasMarkersTest, WithoutASkinOnlyStillAndLinesAreDrawn) {
    PlaceNeedles();
    scene.chkMirror = true;
    scene.intTotalManipulatorNumber = 3;
    scene.cells.fill(CellPlace({0, 0, 0}));
    QImage expected = WithStill();
    for (int needle = 0; needle < 4; ++needle) {
        Line(expected, needle);
    }
    BirdCanvas bare(QStringLiteral("/nowhere"));
    EXPECT_EQ(Differences(bare.Compose(still, scene), expected), 0);
}

TEST_F(BirdCanvasMarkersTest, ACompositionLeavesNothingOfTheOneBefore) {
    PlaceNeedles();
    scene.intTotalManipulatorNumber = 3;
    scene.chkMirror = true;
    scene.cells.fill(CellPlace({0, 0, 0}));
    Composed();
    scene = BirdScene();
    EXPECT_EQ(Differences(Composed(), WithStill()), 0);
}

// Scenes in a row of no order, whose places also lie across and beyond the edges.
BirdScene AnyScene(std::mt19937& chance) {
    const auto number = [&](int from, int to) { return std::uniform_int_distribution(from, to)(chance); };
    const auto place = [&] { return static_cast<float>(number(-60, 800)); };
    BirdScene scene;
    scene.chkMirror = number(0, 1) == 1;
    scene.bLineOFF = number(0, 3) == 0;
    scene.intBirdMagnification = static_cast<std::int16_t>(number(0, 3));
    scene.view = {place(), place()};
    for (BirdNeedle& needle : scene.needles) {
        needle = {static_cast<std::int16_t>(number(0, 2)), place(), place(), 4 * place(), 4 * place()};
    }
    for (BirdCell& cell : scene.cells) {
        cell = {number(0, 1) == 1, place(), place(), number(0, 1) == 1};
    }
    scene.intTotalManipulatorNumber = static_cast<std::int16_t>(number(-1, 3));
    scene.intManipulatorNumber = static_cast<std::int16_t>(number(-1, 3));
    scene.intCellNo = static_cast<std::int16_t>(number(0, 8));
    scene.ShiftX = number(0, 9) == 0 ? 0.25 : 0;
    scene.intBlinkPhase = static_cast<std::int16_t>(number(0, 2));
    return scene;
}

TEST_F(BirdCanvasMarkersTest, EveryCompositionIsThatOfAFreshCanvasWhateverStoodOnItBefore) {
    std::mt19937 chance(756);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same scenes at every run
    for (int round = 0; round < 60; ++round) {
        scene = AnyScene(chance);
        BirdCanvas fresh(SkinHome());
        EXPECT_EQ(Differences(Composed(), fresh.Compose(still, scene)), 0) << round;
    }
}

TEST_F(BirdCanvasMarkersTest, AStillThatIsWrittenToIsDrawnAnew) {
    Composed();
    for (int y = 0; y < still.height(); ++y) {
        std::fill_n(reinterpret_cast<QRgb*>(still.scanLine(y)), still.width(), qRgb(1, 2, 3));
    }
    EXPECT_EQ(Differences(Composed(), WithStill()), 0);
}

TEST_F(BirdCanvasMarkersTest, AFailedCompositionIsForgottenByTheNextOne) {
    PlaceNeedles();
    BirdScene failing = scene;
    failing.intTotalManipulatorNumber = 4;
    failing.chkMirror = true;
    EXPECT_THROW(canvas.Compose(still, failing), BoundsFailure);
    EXPECT_EQ(Differences(Composed(), WithStill()), 0);
}

}  // namespace
}  // namespace travo::test
