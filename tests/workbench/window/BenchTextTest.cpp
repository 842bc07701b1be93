#include "workbench/window/BenchText.h"

#include <gtest/gtest.h>

#include <QDateTime>

#include "workbench/window/BenchType.h"

namespace workbench {

TEST(BenchTextTest, NumbersHaveATrueMinusAndNoneBeforeNothing) {
    EXPECT_EQ(NumberText(-470.0), QStringLiteral("−470.0"));
    EXPECT_EQ(NumberText(190.66), QStringLiteral("190.7"));
    EXPECT_EQ(NumberText(-0.04), QStringLiteral("0.0"));
    EXPECT_EQ(NumberText(-31.4, 0), QStringLiteral("−31"));
    EXPECT_EQ(NumberText(-0.4, 0), QStringLiteral("0"));
}

TEST(BenchTextTest, TimesOfTheBenchAreTimesOfTheDay) {
    const std::int64_t began = QDateTime(QDate(2026, 11, 22), QTime(14, 6, 0)).toMSecsSinceEpoch();
    EXPECT_EQ(ClockText(began, 2140.9), QStringLiteral("14:06:02"));
    EXPECT_EQ(ClockTextFine(began, 2140.9), QStringLiteral("14:06:02.140"));
}

TEST(BenchTypeTest, SizesAreWholePixelsHalvesUpward) {
    EXPECT_EQ(TextFont(type::Small, QFont::Normal).pixelSize(), 13);
    EXPECT_EQ(TextFont(type::Fine, QFont::Normal).pixelSize(), 12);
    EXPECT_EQ(TextFont(type::Least, QFont::Normal).pixelSize(), 12);
    EXPECT_EQ(MonoFont(type::Small).pixelSize(), 13);
    EXPECT_EQ(TextFont(0.1, QFont::Normal).pixelSize(), 1);
}

TEST(BenchTypeTest, ATextThatDoesNotFitIsSetSmallerUntilItDoes) {
    const QFont font = TextFont(15, QFont::DemiBold);
    const QString text = QStringLiteral("The truth, seen from above");
    const double width = WidthOf(font, text);
    EXPECT_EQ(Fitted(font, text, width), font);
    const QFont fitted = Fitted(font, text, width * 0.7);
    EXPECT_LE(WidthOf(fitted, text), width * 0.7);
    EXPECT_GT(WidthOf(fitted, text), width * 0.6);
    EXPECT_EQ(fitted.weight(), font.weight());
}

TEST(BenchTypeTest, NoTextIsSetSmallerThanCanBeSeen) {
    const QFont fitted = Fitted(TextFont(15, QFont::Normal), QStringLiteral("anything"), 0.0);
    EXPECT_EQ(fitted.pixelSize(), 4);
}

}  // namespace workbench
