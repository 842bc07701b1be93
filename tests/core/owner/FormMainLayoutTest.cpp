#include "core/owner/FormMainLayout.h"

#include <gtest/gtest.h>

namespace travo::test {

namespace {

using Mode = FormMainLayout::Mode;

TEST(FormMainLayoutTest, AtTheDesignSizeThePanelIs486By520InBothModes) {
    FormMainLayout layout(1.0, 1.0);
    EXPECT_EQ(layout.Panel(), QRect(18, 88, 486, 520));
    layout.Select(Mode::Steps);
    EXPECT_EQ(layout.Panel(), QRect(18, 20, 486, 520));
}

TEST(FormMainLayoutTest, TheTabWidthIsRoundedToEvenAndTheTabsAreAsWideAsThePanel) {
    FormMainLayout layout(1.0, 1.0);
    // (520 - 18 - 19) / 3 + 0.5 = 161.5, to even.
    EXPECT_EQ(layout.Tab(0).width(), 162);
    EXPECT_EQ(layout.Tab(0).right(), layout.Panel().right());
    // (523 - 37) / 3 + 0.5 = 162.5, to even again.
    layout.Resize(QSize(523, 624));
    EXPECT_EQ(layout.Tab(0).width(), 162);
    layout.Resize(QSize(526, 624));
    EXPECT_EQ(layout.Tab(0).width(), 164) << "163.5, to even";
}

TEST(FormMainLayoutTest, IndexModuloThreeFixesTheColumn) {
    const FormMainLayout layout(1.0, 1.0);
    for (int index = 0; index < 18; ++index) {
        const int column = index % 3 == 1 ? 0 : index % 3 == 2 ? 1 : 2;
        EXPECT_EQ(layout.Tab(index).left(), 18 + column * 162) << index;
    }
}

TEST(FormMainLayoutTest, UpperPicturesStandAtTheRowTopAndLowerOnesBelowThem) {
    const FormMainLayout layout(1.0, 1.0);
    for (int index = 0; index < 12; ++index) {
        EXPECT_EQ(layout.Tab(index).top(), 52);
        EXPECT_EQ(layout.Tab(index).height(), 36);
    }
    for (int index = 12; index < 18; ++index) {
        EXPECT_EQ(layout.Tab(index).top(), 20);
        EXPECT_EQ(layout.Tab(index).height(), 32);
    }
}

TEST(FormMainLayoutTest, ThePanelFollowsTheWindowWithTheMarginsOfItsMode) {
    FormMainLayout layout(1.0, 1.0);
    layout.Resize(QSize(1000, 900));
    EXPECT_EQ(layout.Panel(), QRect(18, 88, 966, 796));
    layout.Select(Mode::Steps);
    EXPECT_EQ(layout.Panel(), QRect(18, 20, 966, 796));
}

TEST(FormMainLayoutTest, TheSizeButtonStandsInTheTopRightCorner) {
    FormMainLayout layout(1.0, 1.0);
    EXPECT_EQ(layout.SizeButton(), QRect(497, 3, 13, 13));
    layout.Resize(QSize(800, 700));
    EXPECT_EQ(layout.SizeButton(), QRect(777, 3, 13, 13));
}

TEST(FormMainLayoutTest, TheStepButtonsShareThePanelsWidth) {
    FormMainLayout layout(1.0, 1.0);
    layout.Select(Mode::Steps);
    for (int index = 0; index < 3; ++index) {
        EXPECT_EQ(layout.StepButton(index), QRect(18 + 165 * index, 590, 156, 27));
    }
    EXPECT_EQ(layout.TrailY(), 556);
    EXPECT_EQ(layout.TrailX(0), 66);
    EXPECT_EQ(layout.TrailX(4), 18 + 486 - 48);
}

TEST(FormMainLayoutTest, MarginsAndRowsFollowTheDisplaysScales) {
    FormMainLayout layout(1.25, 1.5);
    layout.Resize(QSize(780, 780));
    // Row top 25, rows 45 and 40; left 27, right 24.
    EXPECT_EQ(layout.Panel(), QRect(27, 110, 780 - 27 - 24, 780 - 110 - 16));
    EXPECT_EQ(layout.Tab(0).top(), 65);
    EXPECT_EQ(layout.Tab(0).height(), 45);
}

}  // namespace

}  // namespace travo::test
