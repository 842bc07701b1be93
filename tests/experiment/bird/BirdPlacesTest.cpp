// Where markers stand, against the same rules in whole numbers.
#include "experiment/bird/BirdPlaces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "core/ground/Arithmetic.h"

namespace travo::test {
namespace {

constexpr std::int32_t Lowest = INT32_MIN;
constexpr std::int32_t Highest = INT32_MAX;

// value / 100 to nearest, ties to even.
std::int64_t HundredthsToEven(std::int64_t value) {
    std::int64_t below = value / 100;
    if (value % 100 < 0) {
        --below;
    }
    const std::int64_t rest = value - below * 100;
    if (rest == 50) {
        return below % 2 == 0 ? below : below + 1;
    }
    return rest < 50 ? below : below + 1;
}

// convert(common * 0.42 + 378 - offset), the offset in hundredths: 0.42 and all offsets are whole there.
float Pixel(std::int64_t common, std::int64_t offsetHundredths) {
    return static_cast<float>(HundredthsToEven(42 * common + 37800 - offsetHundredths));
}

std::vector<std::int32_t> CommonPlaces() {
    std::vector<std::int32_t> places{Lowest, Lowest + 1, Highest - 1, Highest, NoPositionValue};
    for (std::int32_t place = -3000; place <= 3000; ++place) {
        places.push_back(place);
    }
    std::mt19937 random(20);
    std::uniform_int_distribution<std::int32_t> any(Lowest, Highest);
    std::uniform_int_distribution<std::int32_t> wide(-500000, 500000);
    for (int i = 0; i < 20000; ++i) {
        places.push_back(any(random));
        places.push_back(wide(random));
    }
    return places;
}

TEST(NeedlePlaceTest, TheMarkersPlaceAgreesWithTheFormulaOverTheWholeRange) {
    for (const std::int32_t common : CommonPlaces()) {
        const BirdNeedle x = NeedlePlace({common, 0, 0}, {0, 0, 0}, {0, 0, 0});
        const BirdNeedle y = NeedlePlace({0, common, 0}, {0, 0, 0}, {0, 0, 0});
        ASSERT_EQ(x.sngNeedleX, Pixel(common, 900)) << common;
        ASSERT_EQ(x.sngNeedleY, 369.0F);
        ASSERT_EQ(y.sngNeedleY, Pixel(common, 900)) << common;
        ASSERT_EQ(y.sngNeedleX, 369.0F);
    }
}

TEST(NeedlePlaceTest, AHalfGoesToTheEvenPixel) {
    // 25 units are 10.5 pixels, 75 units 31.5.
    EXPECT_EQ(NeedlePlace({25, 75, 0}, {0, 0, 0}, {0, 0, 0}).sngNeedleX, 380.0F);
    EXPECT_EQ(NeedlePlace({25, 75, 0}, {0, 0, 0}, {0, 0, 0}).sngNeedleY, 400.0F);
    EXPECT_EQ(NeedlePlace({-25, -75, 0}, {0, 0, 0}, {0, 0, 0}).sngNeedleX, 358.0F);
    EXPECT_EQ(NeedlePlace({-25, -75, 0}, {0, 0, 0}, {0, 0, 0}).sngNeedleY, 338.0F);
}

TEST(NeedlePlaceTest, BelowTheFocusIsShape1AboveShape0LevelShape2) {
    const auto shape = [](std::int32_t z, std::int32_t focus) {
        return NeedlePlace({0, 0, z}, {0, 0, focus}, {0, 0, 0}).intNeedleShape;
    };
    EXPECT_EQ(shape(499, 500), 1);
    EXPECT_EQ(shape(501, 500), 0);
    EXPECT_EQ(shape(500, 500), 2);
    EXPECT_EQ(shape(Lowest, Highest), 1);
    EXPECT_EQ(shape(Highest, Lowest), 0);
    EXPECT_EQ(shape(Lowest, Lowest), 2);
}

TEST(NeedlePlaceTest, AFocusThatIsNotSetCountsAs0) {
    const auto shape = [](std::int32_t z) {
        return NeedlePlace({0, 0, z}, {0, 0, NoPositionValue}, {0, 0, 0}).intNeedleShape;
    };
    EXPECT_EQ(shape(-1), 1);
    EXPECT_EQ(shape(0), 2);
    EXPECT_EQ(shape(1), 0);
    EXPECT_EQ(shape(NoPositionValue), 1);
}

TEST(NeedlePlaceTest, TheShaftsFarEndIsNotRounded) {
    const BirdNeedle needle = NeedlePlace({0, 0, 0}, {0, 0, 0}, {1, -3, 77});
    EXPECT_EQ(needle.sngRootX, 378.42F);
    EXPECT_EQ(needle.sngRootY, 376.74F);
    const BirdNeedle ends = NeedlePlace({0, 0, 0}, {0, 0, 0}, {Highest, Lowest, 0});
    EXPECT_EQ(ends.sngRootX, static_cast<float>(2147483647 * 0.42 + 378));
    EXPECT_EQ(ends.sngRootY, static_cast<float>(-2147483648.0 * 0.42 + 378));
}

TEST(NeedlePlaceTest, BeforeItsFirstReadingANeedleStandsAtTheCornerWithShape0) {
    const BirdNeedle needle;
    EXPECT_EQ(needle.intNeedleShape, 0);
    EXPECT_EQ(needle.sngNeedleX, 0);
    EXPECT_EQ(needle.sngNeedleY, 0);
}

struct OffsetOfMagnification {
    std::int16_t magnification;
    std::int64_t x;
    std::int64_t y;
};
constexpr OffsetOfMagnification Offsets[] = {{2, 5100, 3800},        {3, 2550, 1900},  {1, 1150, 1150},
                                             {0, 1150, 1150},        {-1, 1150, 1150}, {4, 1150, 1150},
                                             {INT16_MAX, 1150, 1150}};

TEST(ViewPlaceTest, ThePlaceAgreesWithTheFormulaAtEveryMirrorPositionAndMagnification) {
    for (const OffsetOfMagnification& offset : Offsets) {
        for (std::int32_t count = -400; count <= 400; ++count) {
            const double tilt = count * 0.07225663103256517 / 180;
            const auto commonX = static_cast<std::int64_t>(std::nearbyint(-5.0 * count + 0.5));
            const auto commonY = static_cast<std::int64_t>(std::nearbyint(-12500.0 * std::tan(tilt) + 0.5));
            const BirdView x = ViewPlace({count, 0, 0}, offset.magnification);
            const BirdView y = ViewPlace({0, count, 0}, offset.magnification);
            ASSERT_EQ(x.sngViewX, Pixel(commonX, offset.x)) << count;
            ASSERT_EQ(y.sngViewY, Pixel(commonY, offset.y)) << count;
            ASSERT_EQ(x.sngViewY, Pixel(0, offset.y));
            ASSERT_EQ(y.sngViewX, Pixel(0, offset.x));
        }
    }
}

TEST(ViewPlaceTest, XOrYNotSetPutsTheMarkIntoTheCorner) {
    for (const PositionXYZ& place : {PositionXYZ{NoPositionValue, 5, 5}, PositionXYZ{5, NoPositionValue, 5},
                                     PositionXYZ{NoPositionValue, NoPositionValue, NoPositionValue}}) {
        EXPECT_EQ(ViewPlace(place, 2).sngViewX, 0);
        EXPECT_EQ(ViewPlace(place, 2).sngViewY, 0);
    }
    EXPECT_EQ(ViewPlace({0, 0, NoPositionValue}, 2).sngViewX, 327);
}

TEST(ViewPlaceTest, TheMarkStartsAtTheCentreLess11AndAHalf) {
    EXPECT_EQ(BirdView().sngViewX, CanvasCentre - 11.5F);
    EXPECT_EQ(BirdView().sngViewY, CanvasCentre - 11.5F);
}

TEST(ViewPlaceTest, AMagnificationMovesTheOffsetOnlyAtTheNextPlace) {
    const BirdView at2x = ViewPlace({0, 0, 0}, 2);
    EXPECT_EQ(at2x.sngViewX, 327);
    EXPECT_EQ(at2x.sngViewY, 340);
    const BirdView at4x = ViewPlace({0, 0, 0}, 3);
    EXPECT_EQ(at4x.sngViewX, 352);
    EXPECT_EQ(at4x.sngViewY, 359);
    const BirdView cross = ViewPlace({0, 0, 0}, 1);
    EXPECT_EQ(cross.sngViewX, 366);
    EXPECT_EQ(cross.sngViewY, 366);
}

TEST(ViewPlaceTest, APositionThatHasNoPlaceInTheCommonFrameIsAnOverflow) {
    EXPECT_NO_THROW(ViewPlace({429496729, 89999, Lowest}, 1));
    EXPECT_NO_THROW(ViewPlace({-429496729, -90001, Highest}, 1));
    EXPECT_THROW(ViewPlace({429496730, 0, 0}, 1), OverflowFailure);
    EXPECT_THROW(ViewPlace({-429496730, 0, 0}, 1), OverflowFailure);
    EXPECT_THROW(ViewPlace({Highest, 0, 0}, 1), OverflowFailure);
    EXPECT_THROW(ViewPlace({Lowest, 0, 0}, 1), OverflowFailure);
    for (std::int64_t y = 90000; y <= Highest; y += 180000) {
        const auto place = static_cast<std::int32_t>(y);
        ASSERT_THROW(ViewPlace({0, place, 0}, 1), OverflowFailure) << y;
        ASSERT_THROW(ViewPlace({0, -place, 0}, 1), OverflowFailure) << y;
        ASSERT_NO_THROW(ViewPlace({0, place + 1, 0}, 1)) << y;
    }
}

// Mirror counts whose cell comes to stand on a pixel as near to the one given as the mirror's X allows.
BirdCell CellAtMirrorX(std::int32_t mirrorX) { return CellPlace({mirrorX, 0, 0}); }

TEST(CellPlaceTest, TheCrossStandsExactlyAtThePositionInBothVariants) {
    int leftHanded = 0;
    for (std::int32_t count = -400; count <= 400; ++count) {
        const auto common = static_cast<std::int64_t>(std::nearbyint(-5.0 * count + 0.5));
        const BirdCell cell = CellAtMirrorX(count);
        ASSERT_TRUE(cell.bCellSet);
        ASSERT_EQ(cell.bCellLeftHanded, Pixel(common, 0) > 722) << count;
        ASSERT_EQ(cell.sngCellX + (cell.bCellLeftHanded ? 25.0F : 9.0F), Pixel(common, 0)) << count;
        leftHanded += cell.bCellLeftHanded ? 1 : 0;
    }
    EXPECT_EQ(leftHanded, 400 - 164);
}

TEST(CellPlaceTest, YIsTheTopOfTheMarkerAtEveryMirrorPosition) {
    for (std::int32_t count = -400; count <= 400; ++count) {
        const double tilt = count * 0.07225663103256517 / 180;
        const auto common = static_cast<std::int64_t>(std::nearbyint(-12500.0 * std::tan(tilt) + 0.5));
        ASSERT_EQ(CellPlace({0, count, 0}).sngCellY, Pixel(common, 0) - 18) << count;
    }
}

TEST(CellPlaceTest, TheCornerAloneDoesNotTellTheVariant) {
    // Pixels 725 and 708 + 9: the corners 700 and 708 lie on either side, yet the further one is
    // right-handed.
    const BirdCell left = CellAtMirrorX(-165);
    const BirdCell right = CellAtMirrorX(-161);
    EXPECT_EQ(left.sngCellX, 700);
    EXPECT_TRUE(left.bCellLeftHanded);
    EXPECT_GT(right.sngCellX, left.sngCellX);
    EXPECT_FALSE(right.bCellLeftHanded);
}

TEST(CellPlaceTest, TheLastPixelThatIsNotBeyondTheEdgeIs722) {
    EXPECT_EQ(CellAtMirrorX(-164).sngCellX, 722 - 9);
    EXPECT_FALSE(CellAtMirrorX(-164).bCellLeftHanded);
}

TEST(CellPlaceTest, APositionThatHasNoPlaceInTheCommonFrameIsAnOverflow) {
    EXPECT_NO_THROW(CellPlace({429496729, 89999, Lowest}));
    EXPECT_NO_THROW(CellPlace({-429496729, NoPositionValue, Highest}));
    EXPECT_THROW(CellPlace({429496730, 0, 0}), OverflowFailure);
    EXPECT_THROW(CellPlace({Lowest, 0, 0}), OverflowFailure);
    EXPECT_THROW(CellPlace({0, 90000, 0}), OverflowFailure);
}

TEST(CellPlaceTest, NoCellIsSetAtTheStart) { EXPECT_FALSE(BirdCell().bCellSet); }

}  // namespace
}  // namespace travo::test
