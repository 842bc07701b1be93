#include "workbench/world/Needle.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "workbench/world/World.h"

namespace workbench {

using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;

namespace {

// Heading 0 and no offset: the tip is at (x, -y, -z) of the counts.
Needle PlainNeedle(const Vector& counts = {100.0, 0.0, 0.0}) { return {Mount{0.0, 0.0, 0.0, {}}, counts}; }

Imperfections Play(std::int32_t x, std::int32_t y = 0, std::int32_t z = 0) { return {{x, y, z}, {}, {}}; }

double TipX(const Needle& needle, Time now) { return needle.TipAt(now)[0]; }

}  // namespace

TEST(NeedleTest, APerfectTipStandsWhereItsCountsSay) {
    Needle needle = PlainNeedle();
    needle.SetOut({500.0, 0.0, 0.0}, milliseconds(0));
    EXPECT_DOUBLE_EQ(TipX(needle, milliseconds(50)), 300.0);
    EXPECT_DOUBLE_EQ(TipX(needle, milliseconds(100)), 500.0);
    EXPECT_TRUE(needle.StandsStillFrom(milliseconds(100)));
}

TEST(NeedleTest, GoingUpTheTipWaitsUntilThePlayIsTakenUpAndStaysBehindByIt) {
    Needle needle = PlainNeedle();
    needle.Spoil(Play(40), milliseconds(0));
    EXPECT_DOUBLE_EQ(TipX(needle, milliseconds(0)), 100.0);
    needle.SetOut({500.0, 0.0, 0.0}, milliseconds(0));
    EXPECT_DOUBLE_EQ(TipX(needle, milliseconds(5)), 100.0);
    EXPECT_DOUBLE_EQ(TipX(needle, milliseconds(10)), 100.0);
    EXPECT_DOUBLE_EQ(TipX(needle, milliseconds(20)), 140.0);
    EXPECT_DOUBLE_EQ(TipX(needle, milliseconds(100)), 460.0);
    EXPECT_EQ(needle.CountsAt(milliseconds(100))[0], 500.0);
}

TEST(NeedleTest, GoingDownTheTipWaitsFirstAndThenStandsWhereTheCountsSay) {
    Needle needle = PlainNeedle();
    needle.Spoil(Play(40), milliseconds(0));
    needle.SetOut({500.0, 0.0, 0.0}, milliseconds(0));
    needle.SetOut({470.0, 0.0, 0.0}, milliseconds(1000));
    EXPECT_DOUBLE_EQ(TipX(needle, milliseconds(2000)), 460.0);
    needle.SetOut({300.0, 0.0, 0.0}, milliseconds(2000));
    EXPECT_DOUBLE_EQ(TipX(needle, milliseconds(3000)), 300.0);
    needle.SetOut({310.0, 0.0, 0.0}, milliseconds(3000));
    EXPECT_DOUBLE_EQ(TipX(needle, milliseconds(4000)), 300.0);
}

TEST(NeedleTest, EachAxisHasItsOwnPlay) {
    Needle needle = PlainNeedle({0.0, 0.0, 0.0});
    needle.Spoil(Play(10, 20, 30), milliseconds(0));
    needle.SetOut({100.0, 100.0, 100.0}, milliseconds(0));
    EXPECT_LT(DistanceOf(needle.TipAt(milliseconds(1000)), {90.0, -80.0, -70.0}), 1e-9);
    EXPECT_LT(DistanceOf(needle.TipAtRest(milliseconds(0)), {90.0, -80.0, -70.0}), 1e-9);
}

TEST(NeedleTest, ADriftGoesOnByTheMinuteFromWhenItWasSet) {
    Needle needle = PlainNeedle({0.0, 0.0, 0.0});
    needle.Spoil({{}, {60.0, -30.0, 0.0}, {}}, milliseconds(1000));
    EXPECT_DOUBLE_EQ(TipX(needle, milliseconds(1000)), 0.0);
    EXPECT_LT(DistanceOf(needle.TipAt(milliseconds(1000) + minutes(2)), {120.0, 60.0, 0.0}), 1e-9);
    EXPECT_FALSE(needle.StandsStillFrom(minutes(10)));
    EXPECT_EQ(needle.CountsAt(minutes(10))[0], 0.0);
    needle.Spoil({}, minutes(10));
    EXPECT_DOUBLE_EQ(TipX(needle, minutes(11)), 0.0);
}

TEST(NeedleTest, ABentTipIsDisplacedAndTheRearOfItsShaftIsNot) {
    Needle needle = PlainNeedle();
    const Shaft before = needle.ShaftAt(milliseconds(0));
    needle.Spoil({{}, {}, {3.0, -4.0, 5.0}}, milliseconds(0));
    EXPECT_LT(DistanceOf(needle.TipAt(milliseconds(0)), {103.0, -4.0, 5.0}), 1e-9);
    const Shaft after = needle.ShaftAt(milliseconds(0));
    EXPECT_DOUBLE_EQ(after.tip[0], before.tip[0] + 3.0);
    EXPECT_DOUBLE_EQ(after.tip[1], before.tip[1] - 4.0);
    EXPECT_EQ(after.rear, before.rear);
}

TEST(NeedleTest, WhatIsSetBesideAnotherLeavesThatAsItHasGone) {
    Needle needle = PlainNeedle({0.0, 0.0, 0.0});
    needle.Spoil({{}, {60.0, 0.0, 0.0}, {}}, milliseconds(0));
    needle.Spoil({{}, {60.0, 0.0, 0.0}, {0.0, 7.0, 0.0}}, minutes(1));
    EXPECT_LT(DistanceOf(needle.TipAt(minutes(2)), {120.0, 7.0, 0.0}), 1e-9);
}

TEST(NeedleTest, BetweenTwoTurnsTheTipRunsEvenly) {
    Needle needle = PlainNeedle({0.0, 500.0, 0.0});
    needle.Spoil(Play(40, 25), milliseconds(0));
    needle.SetOut({400.0, 300.0, 0.0}, milliseconds(0));
    std::vector<Time> turns;
    needle.AddTurns(milliseconds(0), milliseconds(1000), turns);
    std::sort(turns.begin(), turns.end());
    // X takes its play of 40 up after 10 ms; Y goes down with none taken up; all rests after 100 ms.
    EXPECT_EQ(turns, (std::vector<Time>{milliseconds(10), milliseconds(100)}));
    needle.SetOut({0.0, 400.0, 0.0}, milliseconds(1000));
    turns.clear();
    needle.AddTurns(milliseconds(1000), milliseconds(2000), turns);
    std::sort(turns.begin(), turns.end());
    EXPECT_EQ(turns, (std::vector<Time>{milliseconds(1010), milliseconds(1025), milliseconds(1100)}));
}

TEST(WorldTest, AShaftThatDriftsAcrossAnotherIsACrossing) {
    World world;
    world.MoveNeedle(1, {12900, 12500, 12500}, milliseconds(0));
    world.MoveNeedle(0, {12490, 12500, 12500}, milliseconds(2000));
    world.Advance(milliseconds(4000));
    EXPECT_EQ(world.CrossingsInAll(), 0);
    world.SpoilNeedle(0, {{}, {60.0, 0.0, 0.0}, {}}, milliseconds(4000));
    world.Advance(milliseconds(13000));
    EXPECT_EQ(world.CrossingsInAll(), 0);
    world.Advance(milliseconds(20000));
    ASSERT_EQ(world.CrossingsInAll(), 1);
    EXPECT_NEAR(static_cast<double>(world.Crossings()[0].time.count()), 14000000.0, 2.0);
}

TEST(WorldTest, ABentTipThatReachesAnotherShaftCrossesIt) {
    World world;
    world.MoveNeedle(1, {12900, 12500, 12500}, milliseconds(0));
    world.MoveNeedle(0, {12490, 12500, 12500}, milliseconds(2000));
    world.Advance(milliseconds(4000));
    world.SpoilNeedle(0, {{}, {}, {10.0, 10.0, 0.0}}, milliseconds(4000));
    EXPECT_EQ(world.CrossingsInAll(), 1);
    EXPECT_EQ(world.ImperfectionsOf(0).bend, (Vector{10.0, 10.0, 0.0}));
}

// Its play keeps the tip from going back along its shaft at first, so that it goes round a corner; the
// straight way from where it stands to where it comes to rest would pass the other needle's tip by.
TEST(WorldTest, ACrossingOnTheBentWayOfATipWithPlayIsSeen) {
    World world;
    world.SpoilNeedle(0, Play(300), seconds(0));
    world.MoveNeedle(0, {12850, 12400, 12500}, seconds(0));
    world.MoveNeedle(1, {12500, 12500, 12500}, seconds(2));
    world.Advance(seconds(4));
    ASSERT_EQ(world.CrossingsInAll(), 0);
    world.MoveNeedle(0, {12350, 12600, 12500}, seconds(4));
    world.Advance(seconds(5));
    ASSERT_EQ(world.CrossingsInAll(), 1);
    EXPECT_NEAR(static_cast<double>(world.Crossings()[0].time.count()), 4062500.0, 2.0);
    EXPECT_EQ(world.PairsCrossed(), 0);
}

}  // namespace workbench
