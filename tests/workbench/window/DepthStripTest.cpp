#include "workbench/window/DepthStrip.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWheelEvent>
#include <chrono>
#include <cmath>
#include <string>
#include <vector>

#include "workbench/commands/Bench.h"
#include "workbench/window/SceneReader.h"

namespace workbench {

namespace {

class HeightsTest : public ::testing::Test {
protected:
    void SetUp() override {
        strip.resize(92, 424);
        strip.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&strip));
        Read();
    }
    std::string Do(const std::string& line) { return bench.commands.Answer(line, now); }
    void Read() {
        scene = ReadScene([this](const std::string& line) { return Do(line); }, scene);
        strip.Show(scene);
    }
    void Rest() {
        now += std::chrono::seconds(20);
        Read();
    }
    QPoint Flag(int needle) const {
        const double y = strip.Scale().Pixel(scene.Needle(needle).tip.z);
        return {static_cast<int>(DepthStrip::ColumnOf(needle, 92)), static_cast<int>(y) - 4};
    }
    QPoint FocusFlag() const {
        return {90, static_cast<int>(std::lround(strip.Scale().Pixel(scene.focus.z)))};
    }
    void Drag(const QPoint& from, const QPoint& to) {
        QTest::mousePress(&strip, Qt::LeftButton, {}, from);
        QTest::mouseMove(&strip, to);
        QTest::mouseRelease(&strip, Qt::LeftButton, {}, to);
    }

    Time now = std::chrono::seconds(1);
    Bench bench;
    Scene scene;
    std::vector<int> picked;
    DepthStrip strip{[this](const std::string& line) { return Do(line); },
                     [this](int needle) { picked.push_back(needle); }};
};

}  // namespace

TEST_F(HeightsTest, TheyShow250UnitsToBothSidesAtFirst) {
    EXPECT_EQ(strip.accessibleName(), QStringLiteral("Heights"));
    EXPECT_DOUBLE_EQ(strip.Scale().Highest(), 250.0);
    EXPECT_DOUBLE_EQ(strip.Scale().Pixel(250.0), 40.0);
    EXPECT_DOUBLE_EQ(strip.Scale().Pixel(-250.0), 408.0);
}

TEST_F(HeightsTest, TheNeedlesStandSideBySide) {
    EXPECT_DOUBLE_EQ(DepthStrip::ColumnOf(1, 92), 51.0);
    EXPECT_DOUBLE_EQ(DepthStrip::ColumnOf(4, 92), 81.0);
    EXPECT_DOUBLE_EQ(DepthStrip::ColumnOf(1, 84), 50.0);
}

TEST_F(HeightsTest, TheFlagOfANeedleIsDraggedToAnotherHeight) {
    const QPoint flag = Flag(2);
    Drag(flag, flag - QPoint(0, 46));
    EXPECT_EQ(picked, (std::vector<int>{2}));
    Rest();
    const double units = 46.0 / strip.Scale().PixelsPerUnit();
    EXPECT_NEAR(scene.Needle(2).tip.z, units, 1.0);
    EXPECT_EQ(bench.world.CountsNow(1, now)[0], 9500);
    EXPECT_EQ(bench.world.CountsNow(0, now)[2], 12500);
}

TEST_F(HeightsTest, TheFlagOfTheFocalPlaneIsDragged) {
    const QPoint flag = FocusFlag();
    Drag(flag, flag + QPoint(0, 46));
    Rest();
    EXPECT_NEAR(scene.focus.z, -46.0 / strip.Scale().PixelsPerUnit(), 0.011);
    EXPECT_TRUE(picked.empty());
}

TEST_F(HeightsTest, ADragOfTheFocalPlaneEndsWhereTheHandIsThoughTheFocusIsStillOnItsWay) {
    const QPoint flag = FocusFlag();
    QTest::mousePress(&strip, Qt::LeftButton, {}, flag);
    QTest::mouseMove(&strip, flag - QPoint(0, 100));
    now += std::chrono::milliseconds(30);
    QTest::mouseMove(&strip, flag - QPoint(0, 20));
    QTest::mouseRelease(&strip, Qt::LeftButton, {}, flag - QPoint(0, 20));
    Rest();
    EXPECT_NEAR(scene.focus.z, 20.0 / strip.Scale().PixelsPerUnit(), 0.011);
}

TEST_F(HeightsTest, TheWheelZoomsTheRightButtonPansAndADoubleClickShowsTheFocalPlane) {
    const QPoint at(60, 100);
    const double height = strip.Scale().HeightAt(100);
    QWheelEvent wheel(at, strip.mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&strip, &wheel);
    EXPECT_DOUBLE_EQ(strip.Scale().reach, 200.0);
    EXPECT_NEAR(strip.Scale().HeightAt(100), height, 1e-9);
    const double before = strip.Scale().Pixel(0.0);
    QTest::mousePress(&strip, Qt::RightButton, {}, {20, 200});
    QTest::mouseMove(&strip, {20, 230});
    QTest::mouseRelease(&strip, Qt::RightButton, {}, {20, 230});
    EXPECT_NEAR(strip.Scale().Pixel(0.0), before + 30.0, 1e-9);
    Do("focus jog 30000");
    Rest();
    QTest::mouseDClick(&strip, Qt::LeftButton, {}, {20, 300});
    EXPECT_DOUBLE_EQ(strip.Scale().middle, 300.0);
    EXPECT_DOUBLE_EQ(strip.Scale().reach, 250.0);
}

TEST_F(HeightsTest, AMissingNeedleIsNotTakenHoldOf) {
    Do("fault count 3");
    Read();
    Drag(Flag(4), Flag(4) - QPoint(0, 50));
    Rest();
    EXPECT_TRUE(picked.empty());
    EXPECT_EQ(bench.world.CountsNow(3, now)[2], 12500);
}

TEST_F(HeightsTest, InWordsTheyAreTheHeightsOfFocusAndTips) {
    EXPECT_EQ(strip.accessibleDescription(),
              QStringLiteral("Focal plane 0.0, needle 1 0.0, needle 2 0.0, needle 3 0.0, needle 4 0.0"));
}

}  // namespace workbench
