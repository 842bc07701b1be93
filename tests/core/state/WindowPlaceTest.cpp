#include "core/state/WindowPlace.h"

#include <gtest/gtest.h>

namespace travo::test {

namespace {

const QList<QRect> TwoScreens{QRect(0, 0, 1920, 1080), QRect(1920, 0, 1280, 1024)};

TEST(WindowPlaceTest, APlaceOnAScreenStays) {
    EXPECT_EQ(OntoScreen(QRect(100, 50, 520, 624), TwoScreens), QPoint(100, 50));
    EXPECT_EQ(OntoScreen(QRect(2000, 500, 520, 624), TwoScreens), QPoint(2000, 500));
}

TEST(WindowPlaceTest, AWindowWhoseTitleCanBeGraspedStays) {
    EXPECT_EQ(OntoScreen(QRect(-400, 50, 520, 624), TwoScreens), QPoint(-400, 50));
    EXPECT_EQ(OntoScreen(QRect(100, 1040, 520, 624), TwoScreens), QPoint(100, 1040));
}

TEST(WindowPlaceTest, APlaceOffEveryScreenIsShiftedOntoTheNearest) {
    EXPECT_EQ(OntoScreen(QRect(5000, 100, 520, 624), TwoScreens), QPoint(3200 - 520, 100));
    EXPECT_EQ(OntoScreen(QRect(-2000, 100, 520, 624), TwoScreens), QPoint(0, 100));
    EXPECT_EQ(OntoScreen(QRect(100, 2184, 520, 624), TwoScreens), QPoint(100, 1080 - 624));
    EXPECT_EQ(OntoScreen(QRect(100, -700, 520, 624), TwoScreens), QPoint(100, 0));
}

TEST(WindowPlaceTest, AWindowLargerThanTheScreenKeepsItsTopLeftCornerInSight) {
    EXPECT_EQ(OntoScreen(QRect(9000, 9000, 5000, 5000), TwoScreens), QPoint(1920, 0));
}

TEST(WindowPlaceTest, WithoutScreensThePlaceStays) {
    EXPECT_EQ(OntoScreen(QRect(7, 8, 100, 100), {}), QPoint(7, 8));
}

}  // namespace

}  // namespace travo::test
