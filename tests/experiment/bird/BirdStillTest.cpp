// Contrast and brightness of the still, at every value of a byte.
#include "experiment/bird/BirdStill.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "core/ground/Arithmetic.h"

namespace travo::test {
namespace {

// 256 pixels wide: column x has the red byte x, other bytes that must play no part.
PixelBuffer AllReds() {
    PixelBuffer raw(255, 1);
    for (std::int32_t x = 0; x <= 255; ++x) {
        const auto red = static_cast<std::uint32_t>(x) << 16;
        raw.Pixel(x, 0, 0xFF000000U | red | 0x0000AB13U);
        raw.Pixel(x, 1, 0x12000000U | red | 0x000000FFU);
    }
    return raw;
}

PixelBuffer FilledBuffer(std::int32_t boundX, std::int32_t boundY, std::uint32_t pixel) {
    PixelBuffer buffer(boundX, boundY);
    for (std::uint32_t& each : buffer.Pixels()) {
        each = pixel;
    }
    return buffer;
}

long double ToEven(long double value) {
    const long double below = std::floor(value);
    const long double rest = value - below;
    if (rest != 0.5L) {
        return rest < 0.5L ? below : below + 1;
    }
    return std::fmod(below, 2.0L) == 0 ? below : below + 1;
}

// The grey of one red byte, by the sine and cosine of the angle in a wider type.
std::uint32_t Expected(int red, int brightness, int contrast) {
    const long double angle = (contrast + 256.0L) / 512.0L * 3.14159265358979L / 2.0L;
    const long double k = std::sin(angle) / std::cos(angle);
    const long double value = ToEven(ToEven((red - 128.0L) * k + 128.0L) + brightness);
    return value < 0 ? 0 : (value > 255 ? 255 : static_cast<std::uint32_t>(value));
}

std::array<std::uint32_t, 256> Greys(int brightness, int contrast) {
    const PixelBuffer raw = AllReds();
    PixelBuffer display = raw;
    ContrastAndBrightness(raw, display, brightness, contrast);
    std::array<std::uint32_t, 256> greys{};
    for (std::int32_t x = 0; x <= 255; ++x) {
        const std::uint32_t pixel = display.Pixel(x, 0);
        const std::uint32_t grey = pixel & 0xFFU;
        EXPECT_EQ(pixel, 0xFF000000U | grey * 0x010101U) << x;
        EXPECT_EQ(display.Pixel(x, 1), 0x12000000U | grey * 0x010101U) << x;
        greys[static_cast<std::size_t>(x)] = grey;
    }
    return greys;
}

TEST(ContrastAndBrightnessTest, EveryByteValueAgreesWithTheFormulaAtEveryContrast) {
    int compared = 0;
    for (int contrast = -256; contrast <= 256; ++contrast) {
        for (const int brightness : {-255, -128, -1, 0, 1, 77, 255}) {
            const auto greys = Greys(brightness, contrast);
            for (int red = 0; red < 256; ++red) {
                ASSERT_EQ(greys[static_cast<std::size_t>(red)], Expected(red, brightness, contrast))
                    << red << " at brightness " << brightness << ", contrast " << contrast;
                ++compared;
            }
        }
    }
    EXPECT_EQ(compared, 513 * 7 * 256);
}

TEST(ContrastAndBrightnessTest, NeutralBarsGiveTheRedChannelAsGrey) {
    const auto greys = Greys(0, 0);
    for (std::uint32_t red = 0; red < 256; ++red) {
        EXPECT_EQ(greys[red], red);
    }
}

TEST(ContrastAndBrightnessTest, CAtMinus256MakesEveryPixel128PlusBClampedWithNoWrapAround) {
    for (const auto& [brightness, grey] :
         {std::pair{0, 128U}, {-128, 0U}, {-129, 0U}, {-255, 0U}, {127, 255U}, {128, 255U}, {255, 255U}}) {
        for (const std::uint32_t each : Greys(brightness, -256)) {
            EXPECT_EQ(each, grey) << brightness;
        }
    }
}

TEST(ContrastAndBrightnessTest, CAt256MakesEveryPixel0Or255ApartFromP128) {
    for (const int brightness : {-255, 0, 255}) {
        const auto greys = Greys(brightness, 256);
        for (std::uint32_t red = 0; red < 256; ++red) {
            if (red != 128) {
                EXPECT_EQ(greys[red], red < 128 ? 0U : 255U) << red;
            }
        }
        EXPECT_EQ(greys[128], Expected(128, brightness, 256));
    }
    EXPECT_EQ(Greys(0, 256)[128], 128U);
}

TEST(ContrastAndBrightnessTest, NoBrightnessAndNoContrastFails) {
    for (const std::int32_t brightness : {INT32_MIN, -256, 256, INT32_MAX}) {
        for (const std::int32_t contrast : {INT32_MIN, -257, 0, 255, 257, INT32_MAX}) {
            EXPECT_NO_THROW(Greys(brightness, contrast));
        }
    }
    EXPECT_EQ(Greys(INT32_MAX, 0)[0], 255U);
    EXPECT_EQ(Greys(INT32_MIN, 0)[255], 0U);
}

TEST(ContrastAndBrightnessTest, TheRedChannelAlonePlaysAPart) {
    PixelBuffer raw(1, 0);
    raw.Pixel(0, 0, 0xFF40FFFFU);
    raw.Pixel(1, 0, 0x00400000U);
    PixelBuffer display(1, 0);
    ContrastAndBrightness(raw, display, 0, 0);
    EXPECT_EQ(display.Pixel(0, 0), 0x00404040U);
    EXPECT_EQ(display.Pixel(1, 0), 0x00404040U);
}

TEST(ContrastAndBrightnessTest, TheFourthByteOfTheDisplayStays) {
    const PixelBuffer raw = FilledBuffer(3, 3, 0x55404040U);
    PixelBuffer display = FilledBuffer(3, 3, 0xAA112233U);
    ContrastAndBrightness(raw, display, 1, 0);
    for (const std::uint32_t pixel : display.Pixels()) {
        EXPECT_EQ(pixel, 0xAA414141U);
    }
}

TEST(ContrastAndBrightnessTest, ChangesDoNotBuildUpSinceTheRawStillStays) {
    const PixelBuffer raw = AllReds();
    PixelBuffer once = raw;
    ContrastAndBrightness(raw, once, 20, 30);
    PixelBuffer often = raw;
    for (int i = 0; i < 10; ++i) {
        ContrastAndBrightness(raw, often, 200 - i, -i);
        ContrastAndBrightness(raw, often, 20, 30);
    }
    EXPECT_TRUE(std::equal(once.Pixels().begin(), once.Pixels().end(), often.Pixels().begin()));
    const PixelBuffer fresh = AllReds();
    EXPECT_TRUE(std::equal(raw.Pixels().begin(), raw.Pixels().end(), fresh.Pixels().begin()));
}

TEST(ContrastAndBrightnessTest, EveryPixelOfAStillIsReached) {
    const PixelBuffer raw = FilledBuffer(640, 480, 0xFF102030U);
    PixelBuffer display = FilledBuffer(640, 480, 0xFF000000U);
    ContrastAndBrightness(raw, display, 0, 0);
    for (const std::uint32_t pixel : display.Pixels()) {
        ASSERT_EQ(pixel, 0xFF101010U);
    }
}

TEST(ContrastAndBrightnessTest, BoundsThatDifferAreAFailureAndChangeNothing) {
    const PixelBuffer raw = FilledBuffer(2, 4, 0xFF404040U);
    for (auto [x, y] : {std::pair{4, 2}, {2, 5}, {1, 4}, {14, 0}}) {
        PixelBuffer display = FilledBuffer(x, y, 0xFF123456U);
        EXPECT_THROW(ContrastAndBrightness(raw, display, 9, 0), BoundsFailure);
        EXPECT_EQ(display.Pixel(0, 0), 0xFF123456U);
    }
    PixelBuffer nothing;
    EXPECT_THROW(ContrastAndBrightness(raw, nothing, 9, 0), BoundsFailure);
}

TEST(ContrastAndBrightnessTest, AStillWithoutPixelsIsNoFailure) {
    PixelBuffer display;
    EXPECT_NO_THROW(ContrastAndBrightness(PixelBuffer(), display, 9, 9));
    EXPECT_TRUE(display.Pixels().empty());
}

}  // namespace
}  // namespace travo::test
