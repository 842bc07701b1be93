#include "workbench/window/PlanReadout.h"

#include <gtest/gtest.h>

#include "Scenes.h"
#include "workbench/window/BenchText.h"

namespace workbench {

using test::FreshScene;
using test::PutTip;

namespace {

const PlanScale Plan = {{544.0, 424.0}, {0.0, 0.0}, 1.79};

QStringList PartsAt(const Scene& scene, const QPointF& place, bool marks = false) {
    return ReadoutParts(scene, Plan, Plan.Pixel(place), marks);
}

double Letters(const QString& text) { return static_cast<double>(text.size()); }

}  // namespace

TEST(PlanReadoutTest, APlaceItsMirrorCountsTheCellThereAndHowFarThePickedTipIs) {
    Scene scene = FreshScene();
    PutTip(scene, 1, {-470.0, 90.7, 0.0});
    EXPECT_EQ(PartsAt(scene, {-470.0, 190.7}),
              (QStringList{QStringLiteral("X −470.0   Y 190.7"), QStringLiteral("mirror 94, −38"),
                           QStringLiteral("on cell 4"), QStringLiteral("100.0 from needle 1")}));
}

TEST(PlanReadoutTest, AMarkWhereTheMarksAreShown) {
    Scene scene = FreshScene();
    PutTip(scene, 1, {-72.0, 52.0, 4.0});
    EXPECT_EQ(PartsAt(scene, {-80.0, 60.0}, true),
              (QStringList{QStringLiteral("X −80.0   Y 60.0"), QStringLiteral("mirror 16, −12"),
                           QStringLiteral("mark B"), QStringLiteral("11.3 from needle 1")}));
    EXPECT_FALSE(PartsAt(scene, {-80.0, 60.0}, false).contains(QStringLiteral("mark B")));
}

TEST(PlanReadoutTest, ATipAndAShaft) {
    Scene scene = FreshScene();
    PutTip(scene, 1, {-469.2, 191.5, 0.0});
    EXPECT_EQ(PartsAt(scene, {-469.2, 191.5}),
              (QStringList{QStringLiteral("X −469.2   Y 191.5"), QStringLiteral("mirror 94, −38"),
                           QStringLiteral("tip of needle 1")}));
    const QPointF back = QPointF(-469.2, 191.5) - test::HeadingOf(1) * 100.0;
    EXPECT_EQ(PartsAt(scene, back).value(2), QStringLiteral("on needle 1"));
}

TEST(PlanReadoutTest, BeyondTheMirrorsReachNoCountsAreSaid) {
    EXPECT_EQ(PartsAt(FreshScene(), {1000.0, 0.0}).value(1), QStringLiteral("3773.9 from needle 1"));
}

TEST(PlanReadoutTest, AsManyPartsAsThereIsRoomFor) {
    const QStringList parts = {QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")};
    EXPECT_EQ(ReadoutText(parts, Letters, 17), QStringLiteral("one   two   three"));
    EXPECT_EQ(ReadoutText(parts, Letters, 16), QStringLiteral("one   two"));
    EXPECT_EQ(ReadoutText(parts, Letters, 1), QStringLiteral("one"));
    EXPECT_EQ(ReadoutHint(), QStringLiteral("Wheel: zoom. Right button: drag. Double-click: send."));
}

TEST(PlanReadoutTest, AClickTellsOfACrossingATipACellOrAShaft) {
    Scene scene = FreshScene();
    PutTip(scene, 1, {0.0, 0.0, 12.0});
    scene.crossings.push_back({1, 2, 5000.0, {100.0, 0.0}});
    const auto told = [&](const QPointF& place) { return ToldText(scene, Plan, Plan.Pixel(place)); };
    EXPECT_EQ(
        told({100.0, 0.0}),
        QStringLiteral("crossing of 1 and 2 at %1: X 100.0   Y 0.0").arg(ClockText(scene.beganAt, 5000.0)));
    EXPECT_EQ(told({0.0, 0.0}), QStringLiteral("needle 1: X 0.0   Y 0.0   Z 12.0"));
    EXPECT_EQ(told({-470.0, 190.7}),
              QStringLiteral("cell 4: X −470.0   Y 190.7   Z 0.0   radius 13   mirror 94, −38"));
    EXPECT_EQ(told(test::HeadingOf(1) * -60.0), QStringLiteral("needle 1: X 0.0   Y 0.0   Z 12.0"));
    EXPECT_EQ(told({60.0, -60.0}), QString());
}

TEST(PlanReadoutTest, InWordsThePlanIsPickedTipTargetsAndCrossings) {
    Scene scene = FreshScene();
    PutTip(scene, 1, {-72.0, 52.0, 4.0});
    EXPECT_EQ(PlanDescription(scene),
              QStringLiteral("Picked needle 1: X −72.0, Y 52.0, Z 4.0. No crossings."));
    test::SendTip(scene, 2, {10.0, 20.0, 0.0});
    scene.crossingsInAll = 2;
    EXPECT_EQ(PlanDescription(scene),
              QStringLiteral("Picked needle 1: X −72.0, Y 52.0, Z 4.0. Needle 2 goes to X "
                             "10.0, Y 20.0. 2 crossings."));
}

}  // namespace workbench
