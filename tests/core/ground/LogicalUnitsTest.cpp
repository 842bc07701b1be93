#include "core/ground/LogicalUnits.h"

#include <gtest/gtest.h>

namespace travo {

namespace {

TEST(LogicalUnitsTest, AreFifteenToThePixel) {
    EXPECT_EQ(LogicalUnitsPerPixel, 15);
    EXPECT_EQ(UnitsOf(520), 7800.0F);
}

TEST(LogicalUnitsTest, OfTheMainWindowAPixelThatIsOnlyBegunDoesNotCount) {
    EXPECT_EQ(PixelsWithin(7800), 520);
    EXPECT_EQ(PixelsWithin(7814), 520);
    EXPECT_EQ(PixelsWithin(7815), 521);
}

TEST(LogicalUnitsTest, OfASmallWindowTheNearestPixelCounts) {
    EXPECT_EQ(NearestPixels(7807), 520);
    EXPECT_EQ(NearestPixels(7808), 521);
    EXPECT_EQ(NearestPixels(-7808), -521);
}

}  // namespace

}  // namespace travo
