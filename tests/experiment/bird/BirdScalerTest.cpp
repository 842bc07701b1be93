// The canvas brought to a window's size.
#include "experiment/bird/BirdScaler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "core/ground/Arithmetic.h"
#include "experiment/bird/BirdPictures.h"

namespace travo::test {
namespace {

// How much of each source pixel a target pixel takes, along one axis, in parts of `total`.
struct Parts {
    std::vector<std::int64_t> of;
    std::int64_t total;
};

Parts PartsOf(int place, int from, int to) {
    Parts parts{std::vector<std::int64_t>(static_cast<std::size_t>(from)), from};
    if (to >= from) {
        // The one under the middle, whole.
        const long double middle = (place + 0.5L) * from / to;
        parts.of[static_cast<std::size_t>(middle)] = from;
        return parts;
    }
    for (std::int64_t i = 0; i < from; ++i) {
        const std::int64_t begin = std::max<std::int64_t>(i * to, std::int64_t{place} * from);
        const std::int64_t end = std::min<std::int64_t>((i + 1) * to, (std::int64_t{place} + 1) * from);
        parts.of[static_cast<std::size_t>(i)] = std::max<std::int64_t>(end - begin, 0);
    }
    return parts;
}

// To nearest, ties to even, in whole numbers.
std::int64_t Quotient(std::int64_t sum, std::int64_t total) {
    const std::int64_t whole = sum / total;
    const std::int64_t twice = 2 * (sum % total);
    return whole + (twice > total || (twice == total && whole % 2 == 1) ? 1 : 0);
}

QRgb Mean(const QImage& canvas, const Parts& columns, const Parts& rows) {
    std::array<std::int64_t, 3> sums{};
    for (int y = 0; y < canvas.height(); ++y) {
        const std::int64_t row = rows.of[static_cast<std::size_t>(y)];
        for (int x = 0; row > 0 && x < canvas.width(); ++x) {
            const std::int64_t part = row * columns.of[static_cast<std::size_t>(x)];
            const QRgb pixel = canvas.pixel(x, y);
            sums[0] += part * qRed(pixel);
            sums[1] += part * qGreen(pixel);
            sums[2] += part * qBlue(pixel);
        }
    }
    const auto mean = [&](std::int64_t sum) {
        return static_cast<int>(Quotient(sum, columns.total * rows.total));
    };
    return qRgb(mean(sums[0]), mean(sums[1]), mean(sums[2]));
}

// The scaled canvas, pixel by pixel; some of them only where it is large.
int Wrong(const QImage& canvas, const QImage& target, int step = 1) {
    int wrong = 0;
    for (int y = 0; y < target.height(); y += step) {
        const Parts rows = PartsOf(y, canvas.height(), target.height());
        for (int x = 0; x < target.width(); x += step) {
            const QRgb expected = Mean(canvas, PartsOf(x, canvas.width(), target.width()), rows);
            wrong += RawPixel(target, x, y) == expected ? 0 : 1;
        }
    }
    return wrong;
}

QImage Scaled(const QImage& canvas, const QSize& size) {
    QImage target = Filled(size.width(), size.height(), 0);
    BirdScaler().Scale(canvas, target);
    return target;
}

TEST(BirdScalerTest, FewerPixelsThanTheCanvasAreEachTheMeanOfWhatTheyCoverMoreAreTheNearest) {
    const QImage canvas = Patterned(60, 60);
    BirdScaler scaler;
    for (const QSize& size : {QSize(30, 30), QSize(29, 30), QSize(59, 59), QSize(20, 15), QSize(60, 60),
                              QSize(1, 1), QSize(61, 59), QSize(17, 60), QSize(60, 17), QSize(7, 140),
                              QSize(140, 131), QSize(2, 90), QSize(30, 30)}) {
        QImage target = Filled(size.width(), size.height(), 0);
        scaler.Scale(canvas, target);
        EXPECT_EQ(Wrong(canvas, target), 0) << size.width() << " by " << size.height();
    }
}

TEST(BirdScalerTest, TheCanvasItselfIsScaledToTheSizesOfAWindowWithoutAMistake) {
    const QImage canvas = Patterned(756, 756);
    for (const int side : {378, 567, 473, 341, 755, 756, 757, 1512}) {
        EXPECT_EQ(Wrong(canvas, Scaled(canvas, {side, side}), 37), 0) << side;
    }
}

TEST(BirdScalerTest, AtHalfSizeAPixelIsTheMeanOfFourWithTiesToEven) {
    QImage canvas = Filled(8, 2, qRgb(0, 0, 0));
    // Sums of 1 to 8 quarters, on one channel each.
    const std::array<std::array<int, 4>, 4> fours{
        {{1, 0, 0, 1}, {2, 4, 0, 0}, {255, 255, 255, 252}, {1, 1, 1, 0}}};
    const std::array<int, 4> means{0, 2, 254, 1};
    for (int four = 0; four < 4; ++four) {
        for (int i = 0; i < 4; ++i) {
            const int value = fours[static_cast<std::size_t>(four)][static_cast<std::size_t>(i)];
            canvas.setPixel(2 * four + i % 2, i / 2, qRgb(value, 255 - value, value));
        }
    }
    const QImage half = Scaled(canvas, {4, 1});
    for (int four = 0; four < 4; ++four) {
        const int mean = means[static_cast<std::size_t>(four)];
        EXPECT_EQ(qRed(half.pixel(four, 0)), mean) << four;
        EXPECT_EQ(qBlue(half.pixel(four, 0)), mean) << four;
    }
    EXPECT_EQ(Wrong(canvas, half), 0);
}

TEST(BirdScalerTest, GroundStaysGroundAtEverySize) {
    const QImage canvas = Filled(756, 756, BirdGround);
    BirdScaler scaler;
    for (int side = 1; side <= 800; side += side < 20 ? 1 : 13) {
        QImage target = Filled(side, side, 0);
        scaler.Scale(canvas, target);
        ASSERT_EQ(Differences(target, Filled(side, side, BirdGround)), 0) << side;
    }
}

TEST(BirdScalerTest, TheTargetsFourthByteIsSetWhateverTheCanvasHolds) {
    const QImage canvas = Filled(20, 20, qRgba(10, 20, 30, 0));
    for (const int side : {10, 7}) {
        EXPECT_EQ(RawPixel(Scaled(canvas, {side, side}), 3, 3), qRgb(10, 20, 30));
    }
}

TEST(BirdScalerTest, TheSameSizeIsTheSamePicture) {
    const QImage canvas = Patterned(30, 20);
    QImage target = Filled(30, 20);
    BirdScaler().Scale(canvas, target);
    EXPECT_EQ(Differences(target, canvas), 0);
}

TEST(BirdScalerTest, AnotherCanvasWidthIsTakenUp) {
    BirdScaler scaler;
    QImage target = Filled(10, 10);
    scaler.Scale(Patterned(100, 100), target);
    scaler.Scale(Patterned(37, 41), target);
    EXPECT_EQ(Wrong(Patterned(37, 41), target), 0);
}

TEST(BirdScalerTest, PicturesWithoutPixelsAreLeft) {
    BirdScaler scaler;
    QImage nothing;
    EXPECT_NO_THROW(scaler.Scale(Patterned(10, 10), nothing));
    EXPECT_TRUE(nothing.isNull());
    QImage target = Filled(3, 3);
    scaler.Scale(QImage(), target);
    EXPECT_EQ(Differences(target, Filled(3, 3)), 0);
}

TEST(BirdScalerTest, APictureThatHasNot32BitsOrIsLargerThanAnyCanvasIsAFailure) {
    BirdScaler scaler;
    QImage grey(5, 5, QImage::Format_Grayscale8);
    QImage target = Filled(3, 3);
    EXPECT_THROW(scaler.Scale(grey, target), BoundsFailure);
    EXPECT_THROW(scaler.Scale(target, grey), BoundsFailure);
    EXPECT_THROW(scaler.Scale(Filled(3001, 1), target), BoundsFailure);
    EXPECT_THROW(scaler.Scale(Filled(1, 3001), target), BoundsFailure);
}

TEST(BirdScalerTest, EveryShaftIsSeenAtHalfSize) {
    BirdCanvas canvas(SkinHome());
    BirdScene scene;
    scene.intTotalManipulatorNumber = 0;
    QImage target = Filled(378, 378);
    BirdScaler scaler;
    for (std::int32_t root = -900; root <= 900; root += 9) {
        scene.needles[0] = NeedlePlace({0, 0, 0}, {0, 0, 0}, {root, -900, 0});
        scaler.Scale(canvas.Compose(QImage(), scene), target);
        for (int y = 2; y < 180; ++y) {
            int darkest = 255;
            for (int x = 0; x < 378; ++x) {
                darkest = std::min(darkest, qGreen(target.pixel(x, y)));
            }
            // Two canvas pixels of black, spread over two of the window's at the most.
            ASSERT_LE(darkest, qGreen(BirdGround) / 2 + 1) << "row " << y << ", root " << root;
        }
    }
}

}  // namespace
}  // namespace travo::test
