// Single operations on the canvas, each against the same done pixel by pixel.
#include "experiment/bird/BirdDrawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "experiment/bird/BirdPictures.h"

namespace travo::test {
namespace {

constexpr QRgb Black = 0xFF000000U;
constexpr double Infinite = std::numeric_limits<double>::infinity();
constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
// Out to the ends of a float, and what is no place at all.
constexpr double Nowhere[] = {
    -1e300,    -3.4e38, -2147483648.0 * 0.42, -1e6, 1e6, 2147483647.0 * 0.42, 3.4e38, 1e300, Infinite,
    -Infinite, NoNumber};

// 3 by 2 pixels: cut out, coloured, and left as the ground is.
BirdMarker SmallMarker() {
    BirdMarker marker{Filled(3, 2, 0xFFFFFFFFU), Filled(3, 2, 0)};
    const auto put = [&marker](int x, int y, QRgb mask, QRgb picture) {
        reinterpret_cast<QRgb*>(marker.mask.scanLine(y))[x] = mask;
        reinterpret_cast<QRgb*>(marker.picture.scanLine(y))[x] = picture;
    };
    put(0, 0, 0xFF000000U, 0x00FF9999U);
    put(1, 0, 0xFF000000U, 0x00000000U);
    put(1, 1, 0xFF000000U, 0x00123456U);
    put(2, 1, 0xFFFFFFFFU, 0x000F0F0FU);
    return marker;
}

TEST(DrawMarkerTest, AndWithTheMaskThenXorWithThePicture) {
    QImage canvas = Filled(5, 4, 0xFF33CC55U);
    DrawMarker(canvas, SmallMarker(), 1, 2);
    EXPECT_EQ(RawPixel(canvas, 1, 2), 0xFFFF9999U);  // shape
    EXPECT_EQ(RawPixel(canvas, 2, 2), 0xFF000000U);  // keyline
    EXPECT_EQ(RawPixel(canvas, 3, 2), 0xFF33CC55U);  // ground
    EXPECT_EQ(RawPixel(canvas, 1, 3), 0xFF33CC55U);
    EXPECT_EQ(RawPixel(canvas, 2, 3), 0xFF123456U);
    EXPECT_EQ(RawPixel(canvas, 3, 3), 0xFF33CC55U ^ 0x000F0F0FU);  // a colour on white inverts the ground
    EXPECT_EQ(RawPixel(canvas, 0, 2), 0xFF33CC55U);
    EXPECT_EQ(RawPixel(canvas, 4, 3), 0xFF33CC55U);
    EXPECT_EQ(RawPixel(canvas, 1, 1), 0xFF33CC55U);
}

TEST(DrawMarkerTest, PartlyOverEachEdgeItIsClipped) {
    const BirdMarker marker = SmallMarker();
    for (int y = -4; y <= 6; ++y) {
        for (int x = -5; x <= 7; ++x) {
            QImage canvas = Patterned(6, 5);
            QImage expected = canvas.copy();
            DrawMarker(canvas, marker, x, y);
            LayOn(expected, marker, x, y);
            ASSERT_EQ(Differences(canvas, expected), 0) << x << ", " << y;
        }
    }
}

TEST(DrawMarkerTest, APlaceGoesToTheNearestPixelWithTiesToEven) {
    for (const auto& [place, pixel] :
         {std::pair{1.5, 2}, {2.5, 2}, {0.5, 0}, {-0.5, 0}, {-1.5, -2}, {2.49, 2}, {2.51, 3}, {-2.5, -2}}) {
        QImage canvas = Patterned(8, 8);
        QImage expected = canvas.copy();
        DrawMarker(canvas, SmallMarker(), place, place);
        LayOn(expected, SmallMarker(), pixel, pixel);
        EXPECT_EQ(Differences(canvas, expected), 0) << place;
    }
}

TEST(DrawMarkerTest, APlaceOffTheCanvasDrawsNothing) {
    for (const double place : Nowhere) {
        QImage canvas = Patterned(8, 8);
        DrawMarker(canvas, SmallMarker(), place, 3);
        DrawMarker(canvas, SmallMarker(), 3, place);
        DrawMarker(canvas, SmallMarker(), place, place);
        EXPECT_EQ(Differences(canvas, Patterned(8, 8)), 0) << place;
    }
}

TEST(DrawMarkerTest, AMarkerWithoutPicturesDrawsNothing) {
    QImage canvas = Patterned(8, 8);
    DrawMarker(canvas, BirdMarker(), 3, 3);
    EXPECT_EQ(Differences(canvas, Patterned(8, 8)), 0);
}

// The same, pixel by pixel.
QImage GroundAndStill(int size, const QImage& still, int cornerX, int cornerY) {
    QImage canvas = Filled(size, size, Grey);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            if (still.rect().contains(x - cornerX, y - cornerY)) {
                canvas.setPixel(x, y, still.pixel(x - cornerX, y - cornerY));
            }
        }
    }
    return canvas;
}

TEST(DrawGroundAndStillTest, PartlyOverEachEdgeTheStillIsClipped) {
    for (const QSize& size : {QSize(4, 3), QSize(12, 2), QSize(2, 12), QSize(14, 14)}) {
        const QImage still = Patterned(size.width(), size.height());
        for (int y = -15; y <= 10; ++y) {
            for (int x = -15; x <= 10; ++x) {
                QImage canvas = Filled(9, 9, 0xFF010203U);
                DrawGroundAndStill(canvas, {Grey, still, static_cast<double>(x), static_cast<double>(y)});
                ASSERT_EQ(Differences(canvas, GroundAndStill(9, still, x, y)), 0) << x << ", " << y;
            }
        }
    }
}

TEST(DrawGroundAndStillTest, APlaceGoesToTheNearestPixelWithTiesToEven) {
    const QImage still = Patterned(4, 3);
    for (const auto& [place, pixel] : {std::pair{1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {2.51, 3}}) {
        QImage canvas = Filled(9, 9, Black);
        DrawGroundAndStill(canvas, {Grey, still, place, place});
        EXPECT_EQ(Differences(canvas, GroundAndStill(9, still, pixel, pixel)), 0) << place;
    }
}

TEST(DrawGroundAndStillTest, AStillOffTheCanvasOrWithoutPixelsLeavesTheGround) {
    for (const double place : Nowhere) {
        QImage canvas = Patterned(9, 9);
        DrawGroundAndStill(canvas, {Grey, Patterned(4, 3), place, 2});
        EXPECT_EQ(Differences(canvas, Filled(9, 9, Grey)), 0) << place;
        DrawGroundAndStill(canvas, {Grey, Patterned(4, 3), 2, place});
        EXPECT_EQ(Differences(canvas, Filled(9, 9, Grey)), 0) << place;
    }
    QImage canvas = Patterned(9, 9);
    DrawGroundAndStill(canvas, {Grey, QImage(), 2, 2});
    EXPECT_EQ(Differences(canvas, Filled(9, 9, Grey)), 0);
}

TEST(DrawGroundAndStillTest, TheStillsFourthByteBecomes255) {
    QImage canvas = Filled(3, 3, Black);
    DrawGroundAndStill(canvas, {Grey, Filled(1, 1, 0x00102030U), 1, 1});
    EXPECT_EQ(RawPixel(canvas, 1, 1), 0xFF102030U);
}

std::vector<QPoint> BlackPixels(const QImage& canvas) {
    std::vector<QPoint> pixels;
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x) {
            if (RawPixel(canvas, x, y) == Black) {
                pixels.emplace_back(x, y);
            }
        }
    }
    return pixels;
}

QImage Shaft(BirdPoint from, BirdPoint to, double width = 2) {
    QImage canvas = Filled(40, 30, Grey);
    DrawShaft(canvas, from, to, width);
    return canvas;
}

TEST(DrawShaftTest, AnUprightOneCoversTheColumnOnEachSide) {
    std::vector<QPoint> expected;
    for (int y = 5; y < 8; ++y) {
        expected.emplace_back(9, y);
        expected.emplace_back(10, y);
    }
    EXPECT_EQ(BlackPixels(Shaft({10, 5}, {10, 8})), expected);
    EXPECT_EQ(BlackPixels(Shaft({10, 8}, {10, 5})), expected);
}

TEST(DrawShaftTest, ALevelOneCoversTheRowOnEachSide) {
    const std::vector<QPoint> expected{{5, 9}, {6, 9}, {7, 9}, {5, 10}, {6, 10}, {7, 10}};
    EXPECT_EQ(BlackPixels(Shaft({5, 10}, {8, 10})), expected);
    EXPECT_EQ(BlackPixels(Shaft({8, 10}, {5, 10})), expected);
}

TEST(DrawShaftTest, AnEdgeThroughMiddlesStillGivesItsFullWidth) {
    EXPECT_EQ(BlackPixels(Shaft({10.5, 5}, {10.5, 6})), (std::vector<QPoint>{{9, 5}, {10, 5}}));
    EXPECT_EQ(BlackPixels(Shaft({5, 10.5}, {6, 10.5})).size(), 2U);
}

// Whether the pixel's middle lies in the bar, with `margin` to be taken from it all round.
bool Lies(QPoint pixel, BirdPoint from, BirdPoint to, double half, double margin) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    const double x = pixel.x() + 0.5 - from.x;
    const double y = pixel.y() + 0.5 - from.y;
    const double along = (x * (to.x - from.x) + y * (to.y - from.y)) / length;
    const double across = (x * (to.y - from.y) - y * (to.x - from.x)) / length;
    return std::abs(across) <= half - margin && along >= margin && along <= length - margin;
}

void ExpectBar(BirdPoint from, BirdPoint to, double margin) {
    const QImage canvas = Shaft(from, to);
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x) {
            const bool isBlack = RawPixel(canvas, x, y) == Black;
            if (Lies({x, y}, from, to, 1, margin)) {
                ASSERT_TRUE(isBlack) << x << ", " << y << " of " << from.x << ", " << from.y << " to " << to.x
                                     << ", " << to.y;
            } else if (!Lies({x, y}, from, to, 1, -margin)) {
                ASSERT_FALSE(isBlack)
                    << x << ", " << y << " of " << from.x << ", " << from.y << " to " << to.x << ", " << to.y;
            }
        }
    }
}

TEST(DrawShaftTest, AnyOneCoversThePixelsWhoseMiddleLiesWithin) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-20, 60);
    for (int i = 0; i < 3000; ++i) {
        ExpectBar({place(random), place(random)}, {place(random), place(random)}, 1e-9);
    }
}

TEST(DrawShaftTest, AFarEndChangesOnlyTheDirection) {
    std::mt19937 random(8);
    std::uniform_real_distribution<double> near(0, 30);
    std::uniform_real_distribution<double> far(-9e8, 9e8);
    for (int i = 0; i < 1000; ++i) {
        ExpectBar({far(random), far(random)}, {near(random), near(random)}, 1e-5);
        ExpectBar({near(random), near(random)}, {far(random), far(random)}, 1e-5);
    }
    // Through the canvas from beyond one edge to beyond the other.
    EXPECT_EQ(BlackPixels(Shaft({-9e8, 10}, {9e8, 10})).size(), 80U);
    EXPECT_EQ(BlackPixels(Shaft({10, -9e8}, {10, 9e8})).size(), 60U);
    EXPECT_GT(BlackPixels(Shaft({-9e8, -9e8}, {9e8, 9e8})).size(), 50U);
}

TEST(DrawShaftTest, WhatStandsAtNoNumberDrawsNothing) {
    for (const double place : {Infinite, -Infinite, NoNumber, 1e308, -1e308}) {
        EXPECT_TRUE(BlackPixels(Shaft({place, 5}, {9, 9})).empty() || std::isfinite(place)) << place;
        EXPECT_TRUE(BlackPixels(Shaft({5, 5}, {9, place})).empty() || std::isfinite(place)) << place;
        EXPECT_TRUE(BlackPixels(Shaft({place, place}, {-place, -place})).empty()) << place;
    }
}

TEST(DrawShaftTest, OneWithoutLengthOrOffTheCanvasDrawsNothing) {
    EXPECT_TRUE(BlackPixels(Shaft({9, 9}, {9, 9})).empty());
    EXPECT_TRUE(BlackPixels(Shaft({-5, -5}, {-2, 90})).empty());
    EXPECT_TRUE(BlackPixels(Shaft({45, 0}, {90, 90})).empty());
    EXPECT_TRUE(BlackPixels(Shaft({1e38, 1e38}, {2e38, 3e38})).empty());
    EXPECT_TRUE(BlackPixels(Shaft({0, -2}, {40, -2})).empty());
    EXPECT_TRUE(BlackPixels(Shaft({0, 32}, {40, 32})).empty());
}

TEST(DrawShaftTest, ItsWidthIsTheOneAskedFor) {
    EXPECT_EQ(BlackPixels(Shaft({10, 0}, {10, 30}, 6)).size(), 180U);
    EXPECT_EQ(BlackPixels(Shaft({0, 10}, {40, 10}, 4)).size(), 160U);
}

}  // namespace
}  // namespace travo::test
