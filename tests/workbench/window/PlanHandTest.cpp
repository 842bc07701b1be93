#include "workbench/window/PlanHand.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>

#include "Scenes.h"
#include "workbench/window/PlanHits.h"
#include "workbench/window/PlanMirror.h"
#include "workbench/world/World.h"

namespace workbench {

using test::FreshScene;
using test::HeadingOf;
using test::PutTip;

namespace {

const PlanScale Plan = {{544.0, 424.0}, {0.0, 0.0}, 2.0};

}  // namespace

TEST(PlanHandTest, WhatLiesAlongTheShaftIsAddedToTheXCounts) {
    const NeedleCounts began = {12000, 12500, 12400};
    const QPointF along = HeadingOf(1);
    const QPointF across(-along.y(), along.x());
    EXPECT_EQ(DraggedAlong(began, along, {5.0, 5.0}, QPointF(5.0, 5.0) + along * 100.0 + across * 700.0),
              (NeedleCounts{12100, 12500, 12400}));
    EXPECT_EQ(DraggedAlong(began, along, {5.0, 5.0}, QPointF(5.0, 5.0) - along * 99.6),
              (NeedleCounts{11900, 12500, 12400}));
}

TEST(PlanHandTest, ADragEndsAtTheEndsOfTheRange) {
    const NeedleCounts began = {12000, 12500, 12400};
    EXPECT_EQ(DraggedAlong(began, {1.0, 0.0}, {}, {99999.0, 0.0}).x, 25000);
    EXPECT_EQ(DraggedAlong(began, {1.0, 0.0}, {}, {-99999.0, 0.0}).x, 0);
    EXPECT_EQ(DraggedUp(began, 99999.0).z, 0);
    EXPECT_EQ(DraggedUp(began, 30.0), (NeedleCounts{12000, 12500, 12370}));
}

TEST(PlanHandTest, CoarseIsToTheNearestTenWithin8UnitsInPlan) {
    EXPECT_EQ(Coarse({12304, 12035, 24996}), (NeedleCounts{12300, 12040, 25000}));
    for (int offset = 0; offset < 10; ++offset) {
        const NeedleCounts exact = {12300 + offset, 12500 - offset, 12500};
        const NeedleCounts coarse = Coarse(exact);
        EXPECT_LT(std::hypot(coarse.x - exact.x, coarse.y - exact.y), 8.0) << offset;
    }
}

TEST(PlanHandTest, LinesAreWrittenWithPointsWhateverTheDesksLanguage) {
    EXPECT_EQ(MoveLine(2, {9500, 12500, 12400}), "world move 2 9500 12500 12400");
    EXPECT_EQ(AimLine(3, {12.5, -3.25, 0.0}), "world aim 3 12.500 -3.250 0.000");
}

TEST(PlanHandTest, CountsAreTakenFromAGoodAnswerAlone) {
    NeedleCounts counts;
    EXPECT_TRUE(CountsOf("ok 1 2 3", counts));
    EXPECT_EQ(counts, (NeedleCounts{1, 2, 3}));
    EXPECT_FALSE(CountsOf("error there is no needle", counts));
    EXPECT_FALSE(CountsOf("ok 1 2", counts));
    EXPECT_EQ(counts, (NeedleCounts{1, 2, 3}));
}

TEST(PlanMirrorTest, EveryCountOfTheMirrorIsFoundFromTheCentreThatItGives) {
    for (int x = -MirrorRange; x <= MirrorRange; x += 9) {
        for (int y = -MirrorRange; y <= MirrorRange; ++y) {
            const PlanPoint centre = ViewCentreOf(x, y);
            const auto counts = MirrorCountsFor({centre[0], centre[1]});
            ASSERT_TRUE(counts.has_value());
            ASSERT_EQ(*counts, (MirrorCounts{x, y}));
        }
    }
}

TEST(PlanMirrorTest, BeyondItsReachThereAreNoCounts) {
    EXPECT_EQ(MirrorReach().x(), 900.0);
    EXPECT_NEAR(MirrorReach().y(), 904.78, 0.01);
    EXPECT_TRUE(MirrorCountsFor({902.0, 0.0}).has_value());
    EXPECT_FALSE(MirrorCountsFor({903.0, 0.0}).has_value());
    EXPECT_FALSE(MirrorCountsFor({0.0, -908.0}).has_value());
}

TEST(PlanMirrorTest, ADraggedFrameGoesNoFartherThan180) {
    EXPECT_EQ(MirrorCountsDragged({5000.0, -5000.0}, FreshScene(), Plan), (MirrorCounts{-180, 180}));
}

TEST(PlanMirrorTest, Within8PixelsOfACellTheFrameTakesItsCounts) {
    Scene scene = FreshScene();
    scene.cells[3].mirrorX = 77;  // as no place would give it
    EXPECT_EQ(MirrorCountsDragged({-470.0 + 3.9, 190.7}, scene, Plan), (MirrorCounts{77, -38}));
    EXPECT_EQ(MirrorCountsDragged({-470.0 + 4.1, 190.7}, scene, Plan), (MirrorCounts{93, -38}));
}

TEST(PlanHitsTest, ATipIsHeldWithin12PixelsAndTheNearestOneOfTwo) {
    Scene scene = FreshScene();
    PutTip(scene, 1, {0.0, 0.0, 0.0});
    PutTip(scene, 2, {10.0, 0.0, 0.0});
    const QPointF tip = Plan.Pixel({0.0, 0.0});
    EXPECT_EQ(TipAt(scene, Plan, tip + QPointF(0.0, 12.0)), 1);
    EXPECT_EQ(TipAt(scene, Plan, tip + QPointF(0.0, 12.1)), 0);
    EXPECT_EQ(TipAt(scene, Plan, tip + QPointF(12.0, 0.0)), 2);
    scene.needles[1].connected = false;
    EXPECT_EQ(TipAt(scene, Plan, tip + QPointF(12.0, 0.0)), 1);
}

TEST(PlanHitsTest, TheViewIsHeldByItsFrameWithin7Pixels) {
    Scene scene = FreshScene();
    const QPointF corner = Plan.Pixel({-121.45, -90.5});
    EXPECT_TRUE(IsOnViewFrame(scene, Plan, corner + QPointF(100.0, 6.0)));
    EXPECT_TRUE(IsOnViewFrame(scene, Plan, corner + QPointF(100.0, -6.0)));
    EXPECT_FALSE(IsOnViewFrame(scene, Plan, corner + QPointF(100.0, 8.0)));
    EXPECT_FALSE(IsOnViewFrame(scene, Plan, corner + QPointF(100.0, -8.0)));
    EXPECT_FALSE(IsOnViewFrame(scene, Plan, Plan.Pixel({0.0, 0.0})));
    scene.field = {};
    EXPECT_FALSE(IsOnViewFrame(scene, Plan, corner));
}

TEST(PlanHitsTest, ACellIsUnderThePointerWhereItsDiscIsDrawn) {
    const Scene scene = FreshScene();
    const QPointF cell = Plan.Pixel({-60.0, -100.4});
    EXPECT_EQ(CellAt(scene, Plan, cell + QPointF(21.9, 0.0)), 4);
    EXPECT_EQ(CellAt(scene, Plan, cell + QPointF(22.1, 0.0)), -1);
    PlanScale far = Plan;
    far.scale = 0.05;
    EXPECT_EQ(CellAt(scene, far, far.Pixel({-60.0, -100.4}) + QPointF(3.9, 0.0)), 4);
}

TEST(PlanHitsTest, AShaftIsUnderThePointerAlongItsWholeBodyThePickedOneFirst) {
    Scene scene = FreshScene();
    PutTip(scene, 1, {0.0, 0.0, 0.0});
    PutTip(scene, 2, {0.0, 0.0, 0.0});
    const QPointF back = HeadingOf(1) * -50.0;
    EXPECT_EQ(ShaftAt(scene, Plan, Plan.Pixel(back)), 1);
    EXPECT_EQ(ShaftAt(scene, Plan, Plan.Pixel(-back)), 0);
    EXPECT_EQ(ShaftAt(scene, Plan, Plan.Pixel(HeadingOf(2) * -50.0)), 2);
    const QPointF aside(-HeadingOf(1).y(), HeadingOf(1).x());
    EXPECT_EQ(ShaftAt(scene, Plan, Plan.Pixel(HeadingOf(1) * -500.0 + aside * 13.9)), 1);
    EXPECT_EQ(ShaftAt(scene, Plan, Plan.Pixel(HeadingOf(1) * -500.0 + aside * 14.1)), 0);
    scene.picked = 2;
    EXPECT_EQ(ShaftAt(scene, Plan, Plan.Pixel({0.0, 0.0})), 2);
}

TEST(PlanHitsTest, OfTheCrossingsTheLatestFiveAreThere) {
    Scene scene = FreshScene();
    for (int crossing = 0; crossing < 6; ++crossing) {
        scene.crossings.push_back({1, 2, 0.0, {crossing * 100.0, 0.0}});
    }
    EXPECT_EQ(CrossingAt(scene, Plan, Plan.Pixel({0.0, 0.0})), -1);
    EXPECT_EQ(CrossingAt(scene, Plan, Plan.Pixel({100.0, 0.0}) + QPointF(14.9, 0.0)), 1);
    EXPECT_EQ(CrossingAt(scene, Plan, Plan.Pixel({500.0, 0.0})), 5);
}

TEST(PlanHitsTest, TheMarksAreShownAtTwoTimesNearThePickedTipOrWhenAskedFor) {
    Scene scene = FreshScene();
    EXPECT_FALSE(MarksShown(scene, false));
    EXPECT_TRUE(MarksShown(scene, true));
    PutTip(scene, 1, {0.0, 199.9, 300.0});
    EXPECT_TRUE(MarksShown(scene, false));
    PutTip(scene, 1, {0.0, 200.1, 0.0});
    EXPECT_FALSE(MarksShown(scene, false));
    scene.magnification = 3;
    EXPECT_FALSE(MarksShown(scene, true));
}

TEST(SceneTest, SecondsToGoAreTheLongestWayInCountsAt4000ASecond) {
    Scene scene = FreshScene();
    PutTip(scene, 1, {0.0, 0.0, 0.0});
    EXPECT_DOUBLE_EQ(SecondsToGo(scene.Needle(1), 1), 0.0);
    const QPointF goal = HeadingOf(1) * 400.0;
    test::SendTip(scene, 1, {goal.x(), goal.y(), 200.0});
    EXPECT_NEAR(SecondsToGo(scene.Needle(1), 1), 0.1, 1e-9);
    test::SendTip(scene, 1, {goal.x(), goal.y(), -2000.0});
    EXPECT_NEAR(SecondsToGo(scene.Needle(1), 1), 0.5, 1e-9);
}

TEST(SceneTest, ALandingStandsUntilItsNeedleMoves) {
    Scene scene = FreshScene();
    EXPECT_FALSE(LandingStands(scene));
    PutTip(scene, 1, {-469.0, 190.7, 0.0});
    scene.landing = {1, 1.0, 1, 4, 1.0, 0.0, 0.0, {-470.0, 190.7}};
    EXPECT_TRUE(LandingStands(scene));
    scene.needles[0].moving = true;
    EXPECT_FALSE(LandingStands(scene));
    PutTip(scene, 1, {-468.9, 190.7, 0.0});
    EXPECT_FALSE(LandingStands(scene));
}

}  // namespace workbench
