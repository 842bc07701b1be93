#include "workbench/window/PlanScale.h"

#include <gtest/gtest.h>

#include "Scenes.h"
#include "workbench/window/DepthScale.h"
#include "workbench/window/PlanFollow.h"

namespace workbench {

using test::FreshScene;
using test::PutTip;

namespace {

const PlanScale Plan = {{544.0, 424.0}, {10.0, -20.0}, 2.0};

void ExpectNear(const QPointF& a, const QPointF& b, double error = 1e-6) {
    EXPECT_NEAR(a.x(), b.x(), error);
    EXPECT_NEAR(a.y(), b.y(), error);
}

}  // namespace

TEST(PlanScaleTest, TheMiddleOfThePlanIsItsCentreAndPlacesGoThereAndBack) {
    ExpectNear(Plan.Pixel({10.0, -20.0}), {272.0, 212.0});
    ExpectNear(Plan.Pixel({11.0, -21.0}), {274.0, 210.0});
    ExpectNear(Plan.PlaceAt(Plan.Pixel({123.4, -56.7})), {123.4, -56.7});
}

TEST(PlanScaleTest, ItSeesWhatItsSizeHolds) {
    const PlanSight sight = Plan.Sight();
    EXPECT_DOUBLE_EQ(sight.scale, 2.0);
    ExpectNear(sight.visible.topLeft(), {10.0 - 136.0, -20.0 - 106.0});
    EXPECT_DOUBLE_EQ(sight.visible.width(), 272.0);
    EXPECT_DOUBLE_EQ(sight.visible.height(), 212.0);
}

TEST(PlanScaleTest, ZoomingKeepsThePlaceUnderThePointer) {
    const QPointF pointer(400.0, 100.0);
    const PlanScale zoomed = Plan.ZoomedAbout(pointer, ZoomStep);
    EXPECT_DOUBLE_EQ(zoomed.scale, 2.5);
    ExpectNear(zoomed.PlaceAt(pointer), Plan.PlaceAt(pointer));
}

TEST(PlanScaleTest, ItZoomsFrom0_02To40PixelsAUnit) {
    EXPECT_DOUBLE_EQ(Plan.ZoomedAbout({}, 1000.0).scale, 40.0);
    EXPECT_DOUBLE_EQ(Plan.ZoomedAbout({}, 0.0001).scale, 0.02);
    ExpectNear(Plan.ZoomedAbout({9.0, 9.0}, 1000.0).PlaceAt({9.0, 9.0}), Plan.PlaceAt({9.0, 9.0}));
}

TEST(PlanScaleTest, PanningMovesPlacesWithTheHand) {
    const PlanScale panned = Plan.PannedBy({30.0, -8.0});
    ExpectNear(panned.Pixel({10.0, -20.0}), Plan.Pixel({10.0, -20.0}) + QPointF(30.0, -8.0));
}

TEST(PlanScaleTest, TheGridIsTheSmallestRoundStepOfAtLeast18Pixels) {
    EXPECT_DOUBLE_EQ(GridStep(40.0), 1.0);
    EXPECT_DOUBLE_EQ(GridStep(18.0), 1.0);
    EXPECT_DOUBLE_EQ(GridStep(17.9), 2.0);
    EXPECT_DOUBLE_EQ(GridStep(3.6), 5.0);
    EXPECT_DOUBLE_EQ(GridStep(3.5), 10.0);
    EXPECT_DOUBLE_EQ(GridStep(0.079), 500.0);
    EXPECT_DOUBLE_EQ(GridStep(0.02), 1000.0);
}

TEST(PlanScaleTest, TheScaleBarIsTheSmallestRoundLengthOfAtLeast64Pixels) {
    EXPECT_DOUBLE_EQ(ScaleBarLength(40.0), 2.0);
    EXPECT_DOUBLE_EQ(ScaleBarLength(12.0), 10.0);
    EXPECT_DOUBLE_EQ(ScaleBarLength(1.79), 50.0);
    EXPECT_DOUBLE_EQ(ScaleBarLength(0.42), 200.0);
    EXPECT_DOUBLE_EQ(ScaleBarLength(0.02), 5000.0);
}

TEST(PlanFollowTest, TheNeedleIsInTheMiddleAtTwoPixelsAUnit) {
    Scene scene = FreshScene();
    scene.picked = 2;
    PutTip(scene, 2, {-66.0, 99.0, 5.0});
    const PlanScale plan = Followed(PlanFollow::Needle, scene, Plan);
    ExpectNear(plan.centre, {-66.0, 99.0});
    EXPECT_DOUBLE_EQ(plan.scale, 2.0);
    EXPECT_EQ(plan.size, Plan.size);
}

TEST(PlanFollowTest, TheViewFillsFourFifthsOfThePlan) {
    Scene scene = FreshScene();
    scene.view = {-470.0, 190.7};
    const PlanScale plan = Followed(PlanFollow::View, scene, Plan);
    ExpectNear(plan.centre, {-470.0, 190.7});
    EXPECT_NEAR(plan.scale, 0.8 * 544.0 / 242.9, 1e-9);
    scene.field = {121.4, 200.0};
    EXPECT_NEAR(Followed(PlanFollow::View, scene, Plan).scale, 0.8 * 424.0 / 200.0, 1e-9);
}

TEST(PlanFollowTest, BetweenTwoObjectivesThereIsNoViewToFollow) {
    Scene scene = FreshScene();
    scene.field = {};
    EXPECT_EQ(Followed(PlanFollow::View, scene, Plan), Plan);
}

TEST(PlanFollowTest, TheDishIs1000UnitsToEachSide) {
    const PlanScale plan = Followed(PlanFollow::Dish, FreshScene(), Plan);
    ExpectNear(plan.centre, {0.0, 0.0});
    EXPECT_DOUBLE_EQ(plan.scale, 424.0 / 2000.0);
}

TEST(PlanFollowTest, AllShowsEveryTipAnd800UnitsOfEachShaft) {
    const Scene scene = FreshScene();
    const PlanScale plan = Followed(PlanFollow::All, scene, Plan);
    EXPECT_NEAR(plan.scale, 0.0789, 0.0001);
    const QRectF visible = plan.Sight().visible.adjusted(-1e-6, -1e-6, 1e-6, 1e-6);
    for (int number = 1; number <= 4; ++number) {
        EXPECT_TRUE(visible.contains(test::HeadingOf(number) * -3800.0)) << number;
        EXPECT_FALSE(QRectF(visible).adjusted(0, 5, 0, -5).contains(test::HeadingOf(number) * -3800.0))
            << number;
    }
}

TEST(PlanFollowTest, NothingLeavesThePlanAsItLies) {
    EXPECT_EQ(Followed(PlanFollow::Nothing, FreshScene(), Plan), Plan);
}

TEST(PlanFollowTest, ALookAtTheLandingIs12PixelsAUnit) {
    SceneLanding landing;
    landing.centre = {-470.0, 190.7};
    const PlanScale plan = LookedAt(landing, Plan);
    ExpectNear(plan.centre, {-470.0, 190.7});
    EXPECT_DOUBLE_EQ(plan.scale, 12.0);
}

TEST(DepthScaleTest, ItShows250UnitsToBothSidesAtFirst) {
    const DepthScale depth{40.0, 408.0};
    EXPECT_DOUBLE_EQ(depth.Pixel(250.0), 40.0);
    EXPECT_DOUBLE_EQ(depth.Pixel(-250.0), 408.0);
    EXPECT_DOUBLE_EQ(depth.Pixel(0.0), 224.0);
    EXPECT_NEAR(depth.HeightAt(depth.Pixel(33.3)), 33.3, 1e-9);
    EXPECT_TRUE(depth.IsShown(250.0));
    EXPECT_FALSE(depth.IsShown(250.1));
}

TEST(DepthScaleTest, ItZoomsFrom10To13000KeepingTheHeightUnderThePointer) {
    const DepthScale depth{40.0, 408.0};
    const DepthScale nearer = depth.ZoomedAbout(100.0, 1.0 / 1.25);
    EXPECT_DOUBLE_EQ(nearer.reach, 200.0);
    EXPECT_NEAR(nearer.HeightAt(100.0), depth.HeightAt(100.0), 1e-9);
    EXPECT_DOUBLE_EQ(depth.ZoomedAbout(100.0, 1e-9).reach, 10.0);
    EXPECT_DOUBLE_EQ(depth.ZoomedAbout(100.0, 1e9).reach, 13000.0);
}

TEST(DepthScaleTest, PanningMovesHeightsWithTheHand) {
    const DepthScale depth{40.0, 408.0};
    EXPECT_NEAR(depth.PannedBy(25.0).Pixel(0.0), depth.Pixel(0.0) + 25.0, 1e-9);
}

TEST(DepthScaleTest, TicksAreARoundStepOfAtLeast44Pixels) {
    EXPECT_DOUBLE_EQ((DepthScale{40.0, 408.0}.TickStep()), 100.0);
    EXPECT_DOUBLE_EQ((DepthScale{40.0, 408.0, 0.0, 60.0}.TickStep()), 20.0);
    EXPECT_DOUBLE_EQ((DepthScale{40.0, 408.0, 0.0, 13000.0}.TickStep()), 5000.0);
}

}  // namespace workbench
