#include "workbench/live/PicturePainter.h"

#include <gtest/gtest.h>

#include <cmath>

namespace workbench::live {

namespace {

class PicturePainterTest : public ::testing::Test {
protected:
    PicturePainterTest() {
        scene.magnification = 2;
        scene.fieldOfView = {242.9, 181.0};
    }

    QPoint PixelOf(double x, double y) const {
        return View({scene.viewCentre[0], scene.viewCentre[1]}, FieldOf(&scene, 0), PictureSize)
            .Pixel(x, y)
            .toPoint();
    }
    // How far the pictures with and without a thing differ at a place, in grey values.
    int Difference(const QImage& with, const QImage& without, double x, double y) const {
        const QPoint at = PixelOf(x, y);
        return std::abs(qGray(with.pixel(at)) - qGray(without.pixel(at)));
    }
    void AddCell(double x, double y, double z) { scene.cells.push_back({{x, y, z}, 12.0}); }
    void AddNeedle(double x, double y, double z) {
        WorkbenchClient::CameraState::Needle needle;
        needle.connected = true;
        needle.tip = {x, y, z};
        needle.rear = {x + 9000.0, y};
        scene.needles.push_back(needle);
    }

    WorkbenchClient::CameraState scene;
};

TEST_F(PicturePainterTest, HasTheSizeOfTheStillOfTheBirdsEyeView) {
    EXPECT_EQ(PaintPicture(scene).size(), QSize(640, 480));
    EXPECT_EQ(PaintEmptyPicture(QStringLiteral("nothing")).size(), QSize(640, 480));
}

TEST_F(PicturePainterTest, TheSameWorldGivesTheSamePicture) {
    AddCell(10.0, 20.0, 5.0);
    AddNeedle(0.0, 0.0, -20.0);
    EXPECT_EQ(PaintPicture(scene), PaintPicture(scene));
}

TEST_F(PicturePainterTest, ACellIsWhereItIs) {
    const QImage without = PaintPicture(scene);
    AddCell(40.0, -30.0, 0.0);
    const QImage with = PaintPicture(scene);
    EXPECT_GT(Difference(with, without, 40.0, -30.0), 20);
    EXPECT_EQ(Difference(with, without, 40.0, 30.0), 0);
    EXPECT_EQ(Difference(with, without, 40.0 + 13.5, -30.0), 0);
}

TEST_F(PicturePainterTest, ThePictureMovesWithTheMirror) {
    AddCell(500.0, 300.0, 0.0);
    const QImage away = PaintPicture(scene);
    scene.viewCentre = {500.0, 300.0};
    EXPECT_EQ(PixelOf(500.0, 300.0), QPoint(320, 240));
    EXPECT_GT(std::abs(qGray(PaintPicture(scene).pixel(320, 240)) - qGray(away.pixel(320, 240))), 20);
}

TEST_F(PicturePainterTest, ANeedleReachesFromItsTipAlongItsShaft) {
    const QImage without = PaintPicture(scene);
    AddNeedle(-20.0, 10.0, 0.0);
    const QImage with = PaintPicture(scene);
    EXPECT_GT(Difference(with, without, -19.0, 10.0), 5);
    EXPECT_GT(Difference(with, without, 60.0, 10.0), 5);
    EXPECT_EQ(Difference(with, without, -22.0, 10.0), 0);
}

TEST_F(PicturePainterTest, ANeedleThatIsNotConnectedIsNotThere) {
    const QImage without = PaintPicture(scene);
    AddNeedle(-20.0, 10.0, 0.0);
    scene.needles.back().connected = false;
    EXPECT_EQ(PaintPicture(scene), without);
}

TEST_F(PicturePainterTest, ANeedleWithoutAnyLengthDoesNoHarm) {
    AddNeedle(0.0, 0.0, 0.0);
    scene.needles.back().rear = {0.0, 0.0};
    EXPECT_EQ(PaintPicture(scene).size(), PictureSize);
}

TEST_F(PicturePainterTest, BlurGrowsWithTheDistanceFromTheFocalPlane) {
    // Just beside a cell: sharp, there is nothing of it; blurred, the more the farther off it lies.
    std::array<int, 3> spill{};
    std::size_t index = 0;
    for (const double z : {0.0, 15.0, 60.0}) {
        scene.cells.clear();
        scene.focusZ = 0.0;
        const QImage without = PaintPicture(scene);
        AddCell(0.0, 0.0, z);
        spill.at(index++) = Difference(PaintPicture(scene), without, 13.5, 0.0);
    }
    EXPECT_EQ(spill[0], 0);
    EXPECT_GT(spill[1], spill[0]);
    EXPECT_GT(spill[2], 0);
}

TEST_F(PicturePainterTest, TheFocusDriveMakesSharp) {
    AddCell(0.0, 0.0, 30.0);
    const auto rim = [this] {
        const QImage picture = PaintPicture(scene);
        return std::abs(qGray(picture.pixel(PixelOf(11.8, 0.0))) - qGray(picture.pixel(PixelOf(14.0, 0.0))));
    };
    const int blurred = rim();
    scene.focusZ = 30.0;
    EXPECT_GT(rim(), 2 * blurred);
}

TEST_F(PicturePainterTest, BetweenTwoObjectivesThereIsNothingToSee) {
    scene.magnification = 0;
    scene.fieldOfView = {0.0, 0.0};
    AddCell(0.0, 0.0, 0.0);
    EXPECT_EQ(PaintPicture(scene),
              PaintEmptyPicture(QStringLiteral("The microscope stands between two objectives.")));
}

TEST_F(PicturePainterTest, BearsTheWordWorkbenchTopRight) {
    QImage picture(PictureSize, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    PaintWorkbenchMark(painter, QRectF(QPointF(), QSizeF(PictureSize)));
    painter.end();
    EXPECT_NE(picture.pixelColor(620, 15), QColor(Qt::white));
    EXPECT_EQ(picture.pixelColor(20, 15), QColor(Qt::white));
    EXPECT_EQ(picture.pixelColor(620, 100), QColor(Qt::white));
}

}  // namespace

}  // namespace workbench::live
