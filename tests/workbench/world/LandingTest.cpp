#include "workbench/world/Landing.h"

#include <gtest/gtest.h>

#include "workbench/world/World.h"

namespace workbench {

using std::chrono::milliseconds;
using std::chrono::seconds;
using travo::PositionXYZ;

namespace {

Vector CellPlace(std::size_t cell) { return CellsInTheDish.at(cell).Place(); }

PositionXYZ CountsAt(const World& world, std::int32_t needle, const Vector& place) {
    return Whole(CountsFor(world.MountOf(needle), place));
}

constexpr Vector FarView = {900.0, 900.0, 0.0};

class Heard : public World::Listener {
public:
    void Crossed(const Crossing&) override { ++crossings; }
    void Arrived(std::int32_t needle, Time time, const std::optional<Landing>& landing) override {
        arrivals.emplace_back(needle, time);
        landed = landing.has_value();
    }

    int crossings = 0;
    std::vector<std::pair<std::int32_t, Time>> arrivals;
    bool landed = false;
};

}  // namespace

TEST(LandingTest, ATipNearACellHasLandedThereByItsDistanceInPlan) {
    const auto landing = LandingOf(2, CellPlace(3) + Vector{3.0, -4.0, 0.2}, FarView, milliseconds(7));
    ASSERT_TRUE(landing);
    EXPECT_EQ(landing->needle, 2);
    EXPECT_EQ(landing->cell, 3);
    EXPECT_NEAR(landing->distance, 5.0, 1e-9);
    EXPECT_NEAR(landing->height, 0.2, 1e-9);
    EXPECT_EQ(landing->time, milliseconds(7));
    EXPECT_EQ(landing->centre, (PlanPoint{CellPlace(3)[0], CellPlace(3)[1]}));
}

TEST(LandingTest, HeightCountsFromTheCellsOwnZ) {
    EXPECT_NEAR(LandingOf(0, CellPlace(4) + Vector{0.0, 0.0, -2.0}, FarView, {})->height, -2.0, 1e-9);
}

TEST(LandingTest, SixtyUnitsAreNearAndMoreAreNot) {
    EXPECT_TRUE(LandingOf(0, CellPlace(0) + Vector{59.99, 0.0, 0.0}, FarView, {}));
    EXPECT_FALSE(LandingOf(0, CellPlace(0) + Vector{60.01, 0.0, 0.0}, FarView, {}));
}

TEST(LandingTest, TheViewsCentreCountsOnlyWhereNoCellIsNear) {
    const Vector besideCell = CellPlace(0) + Vector{50.0, 0.0, 0.0};
    EXPECT_EQ(LandingOf(0, besideCell, besideCell, {})->cell, 0);
    const auto inView = LandingOf(0, {0.0, 0.0, 12.0}, {10.0, 0.0, 2.0}, {});
    ASSERT_TRUE(inView);
    EXPECT_EQ(inView->cell, std::nullopt);
    EXPECT_NEAR(inView->distance, 10.0, 1e-9);
    EXPECT_NEAR(inView->height, 10.0, 1e-9);
    EXPECT_EQ(inView->centre, (PlanPoint{10.0, 0.0}));
}

TEST(WorldTest, ANeedleThatTheDriverSentLandsWhenItComesToRestHoweverLateAnybodyLooks) {
    World world;
    world.MoveNeedle(0, CountsAt(world, 0, CellPlace(3)), milliseconds(0), MovedBy::Driver);
    world.Advance(milliseconds(500));
    EXPECT_EQ(world.NeedleLandings().InAll(), 0);
    world.Advance(seconds(100));
    ASSERT_EQ(world.NeedleLandings().InAll(), 1);
    EXPECT_EQ(world.NeedleLandings().Last()->cell, 3);
    EXPECT_LT(world.NeedleLandings().Last()->distance, 1.0);
    // 2803 counts, the longest way, at 4 a ms.
    EXPECT_NEAR(static_cast<double>(world.NeedleLandings().Last()->time.count()), 700750.0, 500.0);
    world.Advance(seconds(200));
    EXPECT_EQ(world.NeedleLandings().InAll(), 1);
}

TEST(WorldTest, AMoveByHandIsNoLandingAndAHandOnTheWayTakesItFromTheDriver) {
    World world;
    const PositionXYZ cell = CountsAt(world, 0, CellPlace(3));
    world.MoveNeedle(0, cell, milliseconds(0));
    world.Advance(seconds(10));
    EXPECT_EQ(world.NeedleLandings().InAll(), 0);
    world.MoveNeedle(0, {9500, 12500, 12500}, seconds(10), MovedBy::Driver);
    world.JogNeedle(0, {0, 0, 0}, seconds(10) + milliseconds(1));
    world.Advance(seconds(20));
    EXPECT_EQ(world.NeedleLandings().InAll(), 0);
}

TEST(WorldTest, OnlyTheLastTargetOfTheDriverIsLandedOn) {
    World world;
    world.MoveNeedle(0, CountsAt(world, 0, CellPlace(3)), milliseconds(0), MovedBy::Driver);
    world.MoveNeedle(0, CountsAt(world, 0, CellPlace(2)), milliseconds(100), MovedBy::Driver);
    world.Advance(seconds(10));
    ASSERT_EQ(world.NeedleLandings().InAll(), 1);
    EXPECT_EQ(world.NeedleLandings().Last()->cell, 2);
}

TEST(WorldTest, LandingInTheViewGoesByWhereTheViewStoodThen) {
    World world;
    world.Optics().MoveMirror(Microscope::AxisX, 40, milliseconds(0));
    world.MoveNeedle(0, {12500, 12500, 12500}, milliseconds(0), MovedBy::Driver);
    // It rests after 750 ms; until then the view has gone 200 units away from there.
    world.Advance(seconds(2));
    EXPECT_EQ(world.NeedleLandings().InAll(), 0);
    world.Optics().MoveMirror(Microscope::AxisX, 0, seconds(2));
    world.MoveNeedle(0, {12500, 12500, 12499}, seconds(3), MovedBy::Driver);
    // It goes away again before anybody looks.
    world.Optics().MoveMirror(Microscope::AxisX, 40, seconds(3) + milliseconds(500));
    world.Advance(seconds(5));
    ASSERT_EQ(world.NeedleLandings().InAll(), 1);
    EXPECT_NEAR(world.NeedleLandings().Last()->height, 1.0, 1e-9);
}

TEST(WorldTest, TheWorstLandingIsKeptUntilItIsForgotten) {
    World world;
    const PositionXYZ cell = CountsAt(world, 0, CellPlace(3));
    world.MoveNeedle(0, {cell[0] + 30, cell[1], cell[2]}, seconds(0), MovedBy::Driver);
    world.Advance(seconds(5));
    world.MoveNeedle(0, cell, seconds(5), MovedBy::Driver);
    world.Advance(seconds(10));
    EXPECT_EQ(world.NeedleLandings().InAll(), 2);
    EXPECT_NEAR(world.NeedleLandings().Worst(), 30.0, 1.0);
    EXPECT_LT(world.NeedleLandings().Last()->distance, 1.0);
    world.ForgetLandings();
    EXPECT_EQ(world.NeedleLandings().InAll(), 0);
    EXPECT_EQ(world.NeedleLandings().Worst(), 0.0);
    EXPECT_FALSE(world.NeedleLandings().Last());
}

TEST(WorldTest, ALandingIsMeasuredFromTheTrueTip) {
    World world;
    world.SpoilNeedle(0, {{}, {}, {6.0, 8.0, 0.0}}, seconds(0));
    world.MoveNeedle(0, CountsAt(world, 0, CellPlace(3)), seconds(0), MovedBy::Driver);
    world.Advance(seconds(5));
    EXPECT_NEAR(world.NeedleLandings().Last()->distance, 10.0, 1.0);
}

TEST(WorldTest, TheListenerHearsOfCrossingsAndArrivals) {
    World world;
    Heard heard;
    world.Listen(&heard);
    world.MoveNeedle(1, {12900, 12500, 12500}, milliseconds(0));
    world.MoveNeedle(0, {12900, 12500, 12500}, milliseconds(2000), MovedBy::Driver);
    world.Advance(seconds(9));
    EXPECT_EQ(heard.crossings, 1);
    ASSERT_EQ(heard.arrivals.size(), 1U);
    EXPECT_EQ(heard.arrivals[0], (std::pair<std::int32_t, Time>(0, milliseconds(2850))));
    EXPECT_FALSE(heard.landed);
    world.MoveNeedle(0, {12500, 12500, 12500}, seconds(9), MovedBy::Driver);
    world.Advance(seconds(12));
    EXPECT_TRUE(heard.landed);
}

}  // namespace workbench
