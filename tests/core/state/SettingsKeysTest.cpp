#include "core/state/SettingsKeys.h"

#include <gtest/gtest.h>

namespace travo::test {

namespace {

using namespace settings;

TEST(SettingsKeysTest, NamesAreBuiltOfPlainDecimals) {
    EXPECT_EQ(CalibrationSection(2), QStringLiteral("Manipulator Calibration:2"));
    EXPECT_EQ(CalibrationPointKey(3, 0), QStringLiteral("Index:3,XYZ:0"));
    EXPECT_EQ(ZeroKey(2), QStringLiteral("ZERO,XYZ:2"));
    EXPECT_EQ(CenterKey(1), QStringLiteral("Center,XYZ:1"));
}

TEST(SettingsKeysTest, MyPathAddsTheSeparatorUnlessItIsThere) {
    EXPECT_EQ(MyPath(QStringLiteral("/a"), QLatin1Char('/')), QStringLiteral("/a/"));
    EXPECT_EQ(MyPath(QStringLiteral("/a/"), QLatin1Char('/')), QStringLiteral("/a/"));
    EXPECT_EQ(MyPath(QStringLiteral("C:\\a"), QLatin1Char('\\')), QStringLiteral("C:\\a\\"));
}

TEST(SettingsKeysTest, FloatsAreTheShortestTextThatReadsBack) {
    EXPECT_EQ(FloatText(0.1), QStringLiteral("0.1"));
    EXPECT_EQ(FloatText(-12.0), QStringLiteral("-12"));
    EXPECT_EQ(FloatText(0.1F), QStringLiteral("0.1"));
    EXPECT_EQ(FloatText(32767.0F), QStringLiteral("32767"));
    EXPECT_EQ(FloatText(9360.0F), QStringLiteral("9360"));
    EXPECT_EQ(FloatText(-100000.0F), QStringLiteral("-100000"));
    for (const double value : {1.0 / 3.0, 1e300, -2.5e-17, 366.5}) {
        EXPECT_EQ(FloatValue(FloatText(value)), value);
    }
    for (const float value : {1.0F / 3.0F, 16777217.0F, 1e-30F}) {
        EXPECT_EQ(FloatText(value).toFloat(), value);
    }
}

TEST(SettingsKeysTest, WhatIsNoNumberCountsAsZero) {
    for (const char* const text : {"", "abc", "1,5", "nan", "inf", "1e999", "0x10"}) {
        EXPECT_EQ(FloatValue(QLatin1String(text)), 0.0) << text;
    }
}

}  // namespace

}  // namespace travo::test
