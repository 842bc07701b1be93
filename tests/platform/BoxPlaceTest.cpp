// Where a box opens that must not hide what it asks about.
#include "platform/qt/BoxPlace.h"

#include <gtest/gtest.h>

namespace travo::platform::qt {

namespace {

constexpr QRect Screen(0, 0, 1920, 1080);
constexpr QSize Box(256, 146);

TEST(BoxPlaceTest, TheBoxStandsToTheRightWhereThereIsRoomForItInTheMiddleOfTheHeight) {
    EXPECT_EQ(BoxPlace(Box, QRect(100, 300, 378, 378), Screen), QPoint(490, 416));
    EXPECT_EQ(BoxPlace(Box, QRect(1000, 10, 600, 40), Screen), QPoint(1612, 0));
}

TEST(BoxPlaceTest, ElseToTheLeftThenBelowThenAbove) {
    EXPECT_EQ(BoxPlace(Box, QRect(1500, 300, 378, 378), Screen), QPoint(1500 - 12 - 256, 416));
    EXPECT_EQ(BoxPlace(Box, QRect(100, 100, 1720, 700), Screen), QPoint(832, 812));
    EXPECT_EQ(BoxPlace(Box, QRect(100, 300, 1720, 700), Screen), QPoint(832, 300 - 12 - 146));
}

TEST(BoxPlaceTest, WhereThereIsNoRoomItHidesAsLittleAsItCan) {
    // 100 are left to the right, 20 to the left, 40 above and below.
    const QPoint place = BoxPlace(Box, QRect(20, 40, 1800, 1000), Screen);
    EXPECT_EQ(place.x(), 1920 - 256);
    EXPECT_EQ(BoxPlace(QSize(3000, 2000), QRect(20, 40, 100, 100), Screen), QPoint(0, 0));
}

TEST(BoxPlaceTest, AnotherScreenIsKeptTo) {
    const QRect second(1920, 56, 1280, 968);
    EXPECT_EQ(BoxPlace(Box, QRect(2900, 60, 290, 290), second).x(), 2900 - 12 - 256);
    EXPECT_EQ(BoxPlace(Box, QRect(2000, 20, 100, 40), second), QPoint(2112, 56));
}

}  // namespace

}  // namespace travo::platform::qt
