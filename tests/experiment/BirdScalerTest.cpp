// The canvas brought to a window's size.
#include "experiment/BirdScaler.h"

#include <gtest/gtest.h>

#include "core/Arithmetic.h"
#include "experiment/BirdPictures.h"

namespace travo::test {
namespace {

// The source pixel under the middle of the target pixel.
QImage Nearest(const QImage& canvas, const QSize& size) {
    QImage target(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const long double middleX = (x + 0.5L) * canvas.width() / size.width();
            const long double middleY = (y + 0.5L) * canvas.height() / size.height();
            target.setPixel(x, y, canvas.pixel(static_cast<int>(middleX), static_cast<int>(middleY)));
        }
    }
    return target;
}

TEST(BirdScaler, TakesThePixelUnderTheMiddleAtAnySize) {
    const QImage canvas = Patterned(756, 756);
    BirdScaler scaler;
    for (const QSize& size : {QSize(378, 378), QSize(377, 378), QSize(340, 200), QSize(756, 756), QSize(1, 1),
                              QSize(757, 755), QSize(1600, 1511), QSize(2, 900), QSize(378, 378)}) {
        QImage target = Filled(size.width(), size.height());
        scaler.Scale(canvas, target);
        EXPECT_EQ(Differences(target, Nearest(canvas, size)), 0) << size.width() << " by " << size.height();
    }
}

TEST(BirdScaler, AtHalfSizeTakesTheOddRowsAndColumns) {
    const QImage canvas = Patterned(756, 756);
    QImage target = Filled(378, 378);
    BirdScaler().Scale(canvas, target);
    for (int i = 0; i < 378; ++i) {
        ASSERT_EQ(target.pixel(i, 377 - i), canvas.pixel(2 * i + 1, 2 * (377 - i) + 1));
    }
}

TEST(BirdScaler, TheSameSizeIsTheSamePicture) {
    const QImage canvas = Patterned(30, 20);
    QImage target = Filled(30, 20);
    BirdScaler().Scale(canvas, target);
    EXPECT_EQ(Differences(target, canvas), 0);
}

TEST(BirdScaler, AnotherCanvasWidthIsTakenUp) {
    BirdScaler scaler;
    QImage target = Filled(10, 10);
    scaler.Scale(Patterned(100, 100), target);
    scaler.Scale(Patterned(37, 41), target);
    EXPECT_EQ(Differences(target, Nearest(Patterned(37, 41), QSize(10, 10))), 0);
}

TEST(BirdScaler, PicturesWithoutPixelsAreLeft) {
    BirdScaler scaler;
    QImage nothing;
    EXPECT_NO_THROW(scaler.Scale(Patterned(10, 10), nothing));
    EXPECT_TRUE(nothing.isNull());
    QImage target = Filled(3, 3);
    scaler.Scale(QImage(), target);
    EXPECT_EQ(Differences(target, Filled(3, 3)), 0);
}

TEST(BirdScaler, APictureThatHasNot32BitsIsAFailure) {
    BirdScaler scaler;
    QImage grey(5, 5, QImage::Format_Grayscale8);
    QImage target = Filled(3, 3);
    EXPECT_THROW(scaler.Scale(grey, target), BoundsFailure);
    EXPECT_THROW(scaler.Scale(target, grey), BoundsFailure);
}

TEST(BirdScaler, EveryShaftIsSeenAtHalfSize) {
    BirdCanvas canvas(SkinHome());
    BirdScene scene;
    scene.intTotalManipulatorNumber = 0;
    QImage target = Filled(378, 378);
    BirdScaler scaler;
    for (std::int32_t root = -900; root <= 900; root += 9) {
        scene.needles[0] = NeedlePlace({0, 0, 0}, {0, 0, 0}, {root, -900, 0});
        scaler.Scale(canvas.Compose(QImage(), scene), target);
        for (int y = 2; y < 180; ++y) {
            int black = 0;
            for (int x = 0; x < 378; ++x) {
                black += target.pixel(x, y) == 0xFF000000U ? 1 : 0;
            }
            ASSERT_GE(black, 1) << "row " << y << ", root " << root;
        }
    }
}

}  // namespace
}  // namespace travo::test
