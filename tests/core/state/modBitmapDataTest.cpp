#include "core/state/modBitmapData.h"

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <array>
#include <random>

#include "core/ground/Arithmetic.h"

namespace travo::test {
namespace {

constexpr std::uint32_t Untouched = 0xDEADBEEF;

// Counts 1, 2, 3, ... from the top left, as one reads.
QImage Counted(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.setPixel(x, y, 0xFF000000U | static_cast<unsigned>(y * width + x + 1));
        }
    }
    return picture;
}

PixelBuffer Filled(std::int32_t boundX, std::int32_t boundY) {
    PixelBuffer buffer(boundX, boundY);
    std::ranges::fill(buffer.Pixels(), Untouched);
    return buffer;
}

std::uint32_t Count(const PixelBuffer& buffer, int x, int y) { return buffer.Pixel(x, y) & 0xFFFFFFU; }

TEST(PixelBufferTest, BothBoundsBelongToIt) {
    PixelBuffer buffer(3, 2);
    EXPECT_EQ(buffer.BoundX(), 3);
    EXPECT_EQ(buffer.BoundY(), 2);
    EXPECT_EQ(buffer.Pixels().size(), 12U);
    buffer.Pixel(3, 2, 7);
    EXPECT_EQ(buffer.Pixel(3, 2), 7U);
    EXPECT_EQ(buffer.Pixel(0, 0), 0U);
}

TEST(PixelBufferTest, BeyondItsBoundsIsAFailure) {
    PixelBuffer buffer(3, 2);
    EXPECT_THROW(buffer.Pixel(4, 0), BoundsFailure);
    EXPECT_THROW(buffer.Pixel(0, 3), BoundsFailure);
    EXPECT_THROW(buffer.Pixel(-1, 0), BoundsFailure);
    EXPECT_THROW(buffer.Pixel(0, -1, 1), BoundsFailure);
    EXPECT_THROW(PixelBuffer().Pixel(0, 0), BoundsFailure);
    EXPECT_THROW(PixelBuffer(-1, 0), BoundsFailure);
    EXPECT_THROW(PixelBuffer(0, -1), BoundsFailure);
}

TEST(modBitmapDataTest, ReadingTurnsThePictureLeftToRightIntoColumnsAndRowsFromOne) {
    PixelBuffer buffer = Filled(3, 2);
    ASSERT_EQ(ReadBitmapPixels(Counted(3, 2), buffer), 0);
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 3; ++x) {
            EXPECT_EQ(Count(buffer, 3 - x, y + 1), static_cast<std::uint32_t>(y * 3 + x + 1))
                << x << "," << y;
        }
    }
}

// The flat row of the 3 by 2 picture is 4 5 6 1 2 3 0.
TEST(modBitmapDataTest, ColumnZeroTakesTheFlatRowsNextElementAndRowZeroNothing) {
    PixelBuffer buffer = Filled(3, 2);
    ASSERT_EQ(ReadBitmapPixels(Counted(3, 2), buffer), 0);
    EXPECT_EQ(Count(buffer, 0, 2), 1U);
    EXPECT_EQ(buffer.Pixel(0, 1), 0U);
    for (int x = 0; x <= 3; ++x) {
        EXPECT_EQ(buffer.Pixel(x, 0), Untouched);
    }
}

TEST(modBitmapDataTest, ALargerBufferKeepsWhatLiesBeyondThePicture) {
    PixelBuffer buffer = Filled(5, 4);
    ASSERT_EQ(ReadBitmapPixels(Counted(3, 2), buffer), 0);
    EXPECT_EQ(Count(buffer, 3, 1), 1U);
    EXPECT_EQ(Count(buffer, 1, 2), 6U);
    EXPECT_EQ(buffer.Pixel(4, 1), Untouched);
    EXPECT_EQ(buffer.Pixel(3, 3), Untouched);
}

TEST(modBitmapDataTest, AReadFollowedByAWriteIsAnIdentity) {
    std::mt19937 random(20);
    for (const QSize& size : {QSize(1, 1), QSize(1, 9), QSize(9, 1), QSize(31, 17), QSize(640, 480)}) {
        QImage picture(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                picture.setPixel(x, y, 0xFF000000U | (random() & 0xFFFFFFU));
            }
        }
        PixelBuffer buffer(size.width(), size.height());
        ASSERT_EQ(ReadBitmapPixels(picture, buffer), 0);
        QImage written(size, QImage::Format_RGB32);
        written.fill(Qt::black);
        ASSERT_EQ(WriteBitmapPixels(written, buffer), 0);
        EXPECT_EQ(written, picture) << size.width() << " x " << size.height();
    }
}

TEST(modBitmapDataTest, WritingPutsAChangedPixelWhereItWasRead) {
    QImage picture = Counted(4, 3);
    PixelBuffer buffer(4, 3);
    ASSERT_EQ(ReadBitmapPixels(picture, buffer), 0);
    buffer.Pixel(4 - 2, 1 + 1, 0xFF123456);
    ASSERT_EQ(WriteBitmapPixels(picture, buffer), 0);
    EXPECT_EQ(picture.pixel(2, 1), 0xFF123456U);
    picture.setPixel(2, 1, Counted(4, 3).pixel(2, 1));
    EXPECT_EQ(picture, Counted(4, 3));
}

TEST(modBitmapDataTest, WhereTwoPixelsShareAnElementTheLastColumnCountsInWriting) {
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::black);
    PixelBuffer buffer(2, 2);
    buffer.Pixel(0, 2, 0xFFAAAAAA);  // after the lower row's end
    buffer.Pixel(2, 1, 0xFFBBBBBB);  // the upper row's first
    ASSERT_EQ(WriteBitmapPixels(picture, buffer), 0);
    EXPECT_EQ(picture.pixel(0, 0), 0xFFBBBBBBU);
}

TEST(modBitmapDataTest, ReadAndWriteWithAPictureOfOneByOnePixelTouchXZeroAndOne) {
    PixelBuffer buffer = Filled(1, 1);
    QImage picture = Counted(1, 1);
    ASSERT_EQ(ReadBitmapPixels(picture, buffer), 0);
    EXPECT_EQ(Count(buffer, 1, 1), 1U);
    EXPECT_EQ(buffer.Pixel(0, 1), 0U);
    EXPECT_EQ(buffer.Pixel(0, 0), Untouched);
    EXPECT_EQ(buffer.Pixel(1, 0), Untouched);

    buffer.Pixel(1, 1, 0xFF00FF00);
    buffer.Pixel(0, 1, 0xFFFF0000);
    ASSERT_EQ(WriteBitmapPixels(picture, buffer), 0);
    EXPECT_EQ(picture.pixel(0, 0), 0xFF00FF00U);
}

TEST(modBitmapDataTest, TheBufferMustHaveRoomForIndexOneOnBothAxes) {
    QImage picture = Counted(1, 1);
    for (const auto& [boundX, boundY] : {std::pair{0, 0}, {0, 1}, {1, 0}}) {
        PixelBuffer buffer = Filled(boundX, boundY);
        EXPECT_EQ(ReadBitmapPixels(picture, buffer), -1);
        EXPECT_EQ(std::ranges::count(buffer.Pixels(), Untouched),
                  static_cast<std::ptrdiff_t>(buffer.Pixels().size()));
        EXPECT_EQ(WriteBitmapPixels(picture, buffer), -1);
        EXPECT_EQ(picture, Counted(1, 1));
    }
    PixelBuffer none;
    EXPECT_EQ(ReadBitmapPixels(picture, none), -1);
    EXPECT_EQ(WriteBitmapPixels(picture, none), -1);
}

TEST(modBitmapDataTest, APictureWithoutPixelsOrWithAnotherDepthFails) {
    PixelBuffer buffer = Filled(8, 8);
    QImage null;
    QImage grey(4, 4, QImage::Format_Grayscale8);
    grey.fill(9);
    QImage threeBytes(4, 4, QImage::Format_RGB888);
    for (QImage* const picture : {&null, &grey, &threeBytes}) {
        EXPECT_EQ(ReadBitmapPixels(*picture, buffer), -1);
        EXPECT_EQ(WriteBitmapPixels(*picture, buffer), -1);
    }
    EXPECT_EQ(ReadBitmapPixels(ConstBitmapRows{}, buffer), -1);
    EXPECT_EQ(WriteBitmapPixels(BitmapRows{}, buffer), -1);
    EXPECT_EQ(buffer.Pixel(1, 1), Untouched);
    EXPECT_EQ(grey.pixelColor(0, 0).red(), 9);
}

// Rows of a part of a larger picture lie further apart than they are long.
TEST(modBitmapDataTest, RowsMayLieApartInMemory) {
    std::array<std::uint32_t, 12> memory{};
    memory.fill(Untouched);
    auto* const bytes = reinterpret_cast<std::byte*>(memory.data());
    const BitmapRows picture{bytes, 2, 3, 16};
    PixelBuffer buffer(2, 3);
    for (int y = 1; y <= 3; ++y) {
        for (int x = 1; x <= 2; ++x) {
            buffer.Pixel(x, y, static_cast<std::uint32_t>(10 * y + x));
        }
    }
    ASSERT_EQ(WriteBitmapPixels(picture, buffer), 0);
    const std::array<std::uint32_t, 12> expected{12,        11, Untouched, Untouched, 22,       21, Untouched,
                                                 Untouched, 32, 31,        Untouched, Untouched};
    EXPECT_EQ(memory, expected);
    PixelBuffer again(2, 3);
    ASSERT_EQ(ReadBitmapPixels(ConstBitmapRows{bytes, 2, 3, 16}, again), 0);
    EXPECT_EQ(again.Pixel(2, 1), 12U);
    EXPECT_EQ(again.Pixel(1, 3), 31U);
}

TEST(modBitmapDataTest, AWriteDoesNotReachAPictureThatSharesThePixels) {
    QImage picture = Counted(2, 2);
    const QImage before = picture;
    PixelBuffer buffer(2, 2);
    ASSERT_EQ(WriteBitmapPixels(picture, buffer), 0);
    EXPECT_EQ(before, Counted(2, 2));
    EXPECT_NE(picture, before);
}

}  // namespace
}  // namespace travo::test
