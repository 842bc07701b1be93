#include "workbench/window/Landing.h"

#include <gtest/gtest.h>

namespace workbench {

namespace {

SceneLanding Landed() {
    SceneLanding landing;
    landing.count = 3;
    landing.worst = 2.14;
    landing.needle = 1;
    landing.cell = 4;
    landing.distance = 1.42;
    landing.height = 0.2;
    return landing;
}

double Letters(const QString& text) { return static_cast<double>(text.size()); }

}  // namespace

TEST(LandingTest, BeforeTheFirstOneThereIsNone) {
    EXPECT_EQ(LandingValue({}), QStringLiteral("none yet"));
    EXPECT_EQ(LandingDetail(SceneLanding{}), QString());
}

TEST(LandingTest, TheValueIsTheDistanceInPlanToATenth) {
    EXPECT_EQ(LandingValue(Landed()), QStringLiteral("1.4"));
    EXPECT_EQ(LandingOnPlan(Landed()), QStringLiteral("1.4 units from the centre"));
}

TEST(LandingTest, TheDetailSaysWhereHowHighAndTheWorst) {
    EXPECT_EQ(LandingDetail(Landed()), QStringLiteral("units · needle 1 on cell 4 · 0.2 above · worst 2.1"));
}

TEST(LandingTest, WithoutACellItIsInTheView) {
    SceneLanding landing = Landed();
    landing.cell = 0;
    EXPECT_EQ(LandingDetail(landing), QStringLiteral("units · needle 1 in the view · 0.2 above · worst 2.1"));
}

TEST(LandingTest, TheFirstOneIsTheWorstAsWellAndNotSaidTwice) {
    SceneLanding landing = Landed();
    landing.count = 1;
    EXPECT_EQ(LandingDetail(landing), QStringLiteral("units · needle 1 on cell 4 · 0.2 above"));
}

TEST(LandingTest, TheHeightIsAboveBelowOrAtItsHeight) {
    EXPECT_EQ(HeightText(0.2), QStringLiteral("0.2 above"));
    EXPECT_EQ(HeightText(-0.2), QStringLiteral("0.2 below"));
    EXPECT_EQ(HeightText(0.05), QStringLiteral("0.1 above"));
    EXPECT_EQ(HeightText(0.0499), QStringLiteral("at its height"));
    EXPECT_EQ(HeightText(-0.0499), QStringLiteral("at its height"));
    EXPECT_EQ(HeightText(-100.0), QStringLiteral("100.0 below"));
}

TEST(LandingTest, TheDetailIsShortenedFromItsEnd) {
    const QString whole = LandingDetail(Landed());
    EXPECT_EQ(LandingDetail(Landed(), Letters, Letters(whole)), whole);
    EXPECT_EQ(LandingDetail(Landed(), Letters, Letters(whole) - 1),
              QStringLiteral("units · needle 1 on cell 4 · 0.2 above"));
    EXPECT_EQ(LandingDetail(Landed(), Letters, 30), QStringLiteral("units · needle 1 on cell 4"));
    EXPECT_EQ(LandingDetail(Landed(), Letters, 1), QStringLiteral("units"));
}

}  // namespace workbench
