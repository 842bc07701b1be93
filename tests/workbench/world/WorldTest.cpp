#include "workbench/world/World.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/ground/Arithmetic.h"

namespace workbench {

using std::chrono::milliseconds;
using travo::PositionXYZ;

namespace {

constexpr PositionXYZ Home = {HomeCount, HomeCount, HomeCount};

PositionXYZ HomePlus(std::int32_t x, std::int32_t y = 0, std::int32_t z = 0) {
    return {HomeCount + x, HomeCount + y, HomeCount + z};
}

// Needle 1's shaft lies across the origin, its tip 400 units beyond it. Time 10 s.
World WorldWithNeedle1AcrossTheOrigin() {
    World world;
    world.MoveNeedle(1, HomePlus(400), milliseconds(0));
    world.Advance(milliseconds(10000));
    return world;
}

}  // namespace

TEST(WorldTest, HomeCountsPutEveryDefaultTipOnTheOrigin) {
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        const Vector tip = TipOf(DefaultMount(needle), Exact(Home));
        EXPECT_NEAR(DistanceOf(tip, {0.0, 0.0, 0.0}), 0.0, 1e-9);
    }
}

TEST(WorldTest, TheDefaultHeadingsComeFromTheFourCorners) {
    const World world;
    EXPECT_EQ(world.MountOf(0).heading, 45.0);
    EXPECT_EQ(world.MountOf(1).heading, 135.0);
    EXPECT_EQ(world.MountOf(2).heading, 225.0);
    EXPECT_EQ(world.MountOf(3).heading, 315.0);
}

TEST(WorldTest, TargetsWithin900OfTheOriginAreInReachOfEveryDefaultNeedle) {
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        for (const double x : {-900.0, 0.0, 900.0}) {
            for (const double y : {-900.0, 0.0, 900.0}) {
                for (const double z : {-5000.0, 5000.0}) {
                    for (const std::int32_t count : Whole(CountsFor(DefaultMount(needle), {x, y, z}))) {
                        EXPECT_GE(count, LowestCount);
                        EXPECT_LE(count, HighestCount);
                    }
                }
            }
        }
    }
}

TEST(WorldTest, NeedlesStartPulledBackAndNoShaftsCross) {
    World world;
    world.Advance(milliseconds(1));
    for (std::int32_t a = 0; a < travo::NeedleCount; ++a) {
        EXPECT_EQ(world.CountsNow(a, milliseconds(1)), HomePlus(-StartRetreat));
        for (std::int32_t b = a + 1; b < travo::NeedleCount; ++b) {
            EXPECT_GT(PlanDistance(world.ShaftNow(a, milliseconds(1)), world.ShaftNow(b, milliseconds(1))),
                      4000.0);
        }
    }
    EXPECT_EQ(world.CrossingsInAll(), 0);
    EXPECT_EQ(world.PairsCrossed(), 0);
}

TEST(WorldTest, ANeedleMovesFourCountsAMillisecondOnItsLongestAxisInAStraightLine) {
    World world;
    world.MoveNeedle(0, HomePlus(-1000, 500, -200), milliseconds(50));
    EXPECT_EQ(world.CountsNow(0, milliseconds(300)), HomePlus(-2000, 250, -100));
    EXPECT_TRUE(world.NeedleMoves(0, milliseconds(549)));
    EXPECT_FALSE(world.NeedleMoves(0, milliseconds(550)));
    EXPECT_EQ(world.CountsNow(0, milliseconds(550)), HomePlus(-1000, 500, -200));
    EXPECT_FALSE(world.NeedleMoves(1, milliseconds(300)));
}

TEST(WorldTest, TheTipAtRestIsToldWhileTheNeedleMoves) {
    World world;
    world.MoveNeedle(2, Home, milliseconds(0));
    EXPECT_NEAR(DistanceOf(world.TipAtRest(2), {0.0, 0.0, 0.0}), 0.0, 1e-9);
    EXPECT_NEAR(DistanceOf(world.TipNow(2, milliseconds(0)), {0.0, 0.0, 0.0}), 3000.0, 1e-6);
    EXPECT_NEAR(DistanceOf(world.TipNow(2, milliseconds(375)), {0.0, 0.0, 0.0}), 1500.0, 1e-6);
}

TEST(WorldTest, ACountOutOfRangeMovesNothing) {
    for (const PositionXYZ& target :
         {PositionXYZ{-1, 0, 0}, PositionXYZ{0, 25001, 0}, PositionXYZ{0, 0, INT32_MAX}}) {
        World world;
        EXPECT_THROW(world.MoveNeedle(0, target, milliseconds(0)), travo::BoundsFailure);
        EXPECT_FALSE(world.NeedleMoves(0, milliseconds(1)));
    }
    World world;
    world.MoveNeedle(0, {0, 25000, 0}, milliseconds(0));
    EXPECT_TRUE(world.NeedleMoves(0, milliseconds(1)));
}

TEST(WorldTest, AJogStopsAtTheEndsOfTheRange) {
    World world;
    world.JogNeedle(0, {INT32_MAX, INT32_MIN, 10}, milliseconds(0));
    EXPECT_EQ(world.CountsNow(0, milliseconds(20000)), (PositionXYZ{25000, 0, HomeCount + 10}));
}

TEST(WorldTest, ANeedleBeyondTheTableIsRefused) {
    World world;
    EXPECT_THROW(world.MoveNeedle(4, Home, milliseconds(0)), travo::BoundsFailure);
    EXPECT_THROW(world.TipNow(-1, milliseconds(0)), travo::BoundsFailure);
    EXPECT_THROW(DefaultMount(4), travo::BoundsFailure);
}

TEST(WorldTest, ATipThatRunsAcrossAnotherShaftIsACrossing) {
    World world = WorldWithNeedle1AcrossTheOrigin();
    world.MoveNeedle(0, HomePlus(400), milliseconds(10000));
    world.Advance(milliseconds(20000));
    ASSERT_EQ(world.Crossings().size(), 1u);
    const Crossing& crossing = world.Crossings()[0];
    EXPECT_EQ(crossing.needleA, 0);
    EXPECT_EQ(crossing.needleB, 1);
    // 3000 counts at 4 a ms.
    EXPECT_NEAR(static_cast<double>(crossing.time.count()), 10750000.0, 2.0);
    EXPECT_NEAR(crossing.place[0], 0.0, 1e-3);
    EXPECT_NEAR(crossing.place[1], 0.0, 1e-3);
    EXPECT_EQ(world.PairsCrossed(), 1);
}

TEST(WorldTest, ATipThatStopsOneCountBeforeAnotherShaftIsNoCrossing) {
    World world = WorldWithNeedle1AcrossTheOrigin();
    world.MoveNeedle(0, HomePlus(-1), milliseconds(10000));
    world.Advance(milliseconds(20000));
    EXPECT_EQ(world.CrossingsInAll(), 0);
    EXPECT_NEAR(PlanDistance(world.ShaftNow(0, milliseconds(20000)), world.ShaftNow(1, milliseconds(20000))),
                1.0, 1e-6);
}

TEST(WorldTest, ACrossingOnTheWayIsSeenThoughNobodyLookedMeanwhile) {
    // Needle 0 passes diagonally before the tip of needle 1: both ends of its way are clear.
    World world;
    world.MoveNeedle(1, Home, milliseconds(0));
    world.MoveNeedle(0, HomePlus(-30, 60), milliseconds(0));
    world.Advance(milliseconds(10000));
    ASSERT_EQ(world.CrossingsInAll(), 0);
    world.MoveNeedle(0, HomePlus(30, -20), milliseconds(10000));
    world.Advance(milliseconds(20000));
    ASSERT_EQ(world.CrossingsInAll(), 1);
    EXPECT_NEAR(static_cast<double>(world.Crossings()[0].time.count()), 10010000.0, 2.0);
    EXPECT_NEAR(world.Crossings()[0].place[0], 20.0 / std::sqrt(2.0), 0.01);
    EXPECT_NEAR(world.Crossings()[0].place[1], -20.0 / std::sqrt(2.0), 0.01);
    EXPECT_EQ(world.PairsCrossed(), 0);
}

TEST(WorldTest, APairThatPartsAndMeetsAgainIsTwoCrossings) {
    World world = WorldWithNeedle1AcrossTheOrigin();
    world.MoveNeedle(0, HomePlus(50), milliseconds(10000));
    world.MoveNeedle(0, HomePlus(-50), milliseconds(20000));
    world.MoveNeedle(0, HomePlus(50), milliseconds(30000));
    world.Advance(milliseconds(40000));
    EXPECT_EQ(world.CrossingsInAll(), 2);
}

TEST(WorldTest, ACrossingThatLastsIsToldOnce) {
    World world = WorldWithNeedle1AcrossTheOrigin();
    world.MoveNeedle(0, HomePlus(50), milliseconds(10000));
    world.Advance(milliseconds(20000));
    world.MoveNeedle(0, HomePlus(90), milliseconds(20000));
    for (int time = 20000; time < 21000; time += 7) {
        world.Advance(milliseconds(time));
    }
    EXPECT_EQ(world.CrossingsInAll(), 1);
}

TEST(WorldTest, HowOftenTimePassesMakesNoDifference) {
    World seldom = WorldWithNeedle1AcrossTheOrigin();
    World often = WorldWithNeedle1AcrossTheOrigin();
    seldom.MoveNeedle(0, HomePlus(50), milliseconds(10000));
    often.MoveNeedle(0, HomePlus(50), milliseconds(10000));
    seldom.Advance(milliseconds(20000));
    for (int time = 10000; time < 20000; time += 3) {
        often.Advance(milliseconds(time));
    }
    ASSERT_EQ(seldom.Crossings().size(), 1u);
    ASSERT_EQ(often.Crossings().size(), 1u);
    EXPECT_NEAR(static_cast<double>(seldom.Crossings()[0].time.count()),
                static_cast<double>(often.Crossings()[0].time.count()), 2.0);
}

TEST(WorldTest, TwoNeedlesOnOneLineMeetEndOnEnd) {
    World world;
    world.MoveNeedle(0, HomePlus(5), milliseconds(0));
    world.MoveNeedle(2, HomePlus(5), milliseconds(0));
    world.Advance(milliseconds(10000));
    ASSERT_EQ(world.CrossingsInAll(), 1);
    EXPECT_NEAR(static_cast<double>(world.Crossings()[0].time.count()), 750000.0, 2.0);
}

TEST(WorldTest, ANeedleThatIsNotConnectedCrossesNothing) {
    World world = WorldWithNeedle1AcrossTheOrigin();
    world.ConnectNeedles(1, milliseconds(10000));
    world.MoveNeedle(0, HomePlus(400), milliseconds(10000));
    world.Advance(milliseconds(20000));
    EXPECT_EQ(world.CrossingsInAll(), 0);
    world.ConnectNeedles(2, milliseconds(20000));
    EXPECT_EQ(world.CrossingsInAll(), 1);
    EXPECT_THROW(world.ConnectNeedles(5, milliseconds(20000)), travo::BoundsFailure);
    EXPECT_EQ(world.ConnectedNeedles(), 2);
}

TEST(WorldTest, AMountThatPutsAShaftAcrossAnotherIsACrossing) {
    World world = WorldWithNeedle1AcrossTheOrigin();
    world.MountNeedle(0, HomedMount(45.0), milliseconds(10000));
    EXPECT_EQ(world.CrossingsInAll(), 0);
    Mount forward = HomedMount(45.0);
    forward.offset = forward.offset + Vector{2500.0, 2500.0, 0.0};
    world.MountNeedle(0, forward, milliseconds(10000));
    EXPECT_EQ(world.CrossingsInAll(), 1);
}

TEST(WorldTest, CrossingsCanBeForgottenAndOnlyTheLastAreKept) {
    World world = WorldWithNeedle1AcrossTheOrigin();
    Time time = milliseconds(10000);
    for (int round = 0; round < 250; ++round) {
        world.MoveNeedle(0, HomePlus(50), time);
        world.MoveNeedle(0, HomePlus(-50), time + milliseconds(2000));
        time += milliseconds(4000);
    }
    world.Advance(time);
    EXPECT_EQ(world.CrossingsInAll(), 250);
    EXPECT_EQ(world.Crossings().size(), World::KeptCrossings);
    world.ForgetCrossings();
    EXPECT_EQ(world.CrossingsInAll(), 0);
    EXPECT_TRUE(world.Crossings().empty());
}

TEST(WorldTest, TimeNeverRunsBack) {
    World world;
    world.Advance(milliseconds(1000));
    world.MoveNeedle(0, HomePlus(-2000), milliseconds(500));
    EXPECT_EQ(world.CountsNow(0, milliseconds(1000)), HomePlus(-3000));
    EXPECT_EQ(world.CountsNow(0, milliseconds(1250)), HomePlus(-2000));
}

TEST(WorldTest, EveryCellLiesWhereWholeMirrorCountsPutTheViewCentre) {
    for (const Cell& cell : World::Cells()) {
        EXPECT_LE(std::abs(cell.mirrorX), 180);
        EXPECT_LE(std::abs(cell.mirrorY), 180);
        const PlanPoint centre = ViewCentreOf(cell.mirrorX, cell.mirrorY);
        EXPECT_EQ(cell.Place()[0], centre[0]);
        EXPECT_EQ(cell.Place()[1], centre[1]);
        EXPECT_GT(cell.radius, 0.0);
    }
}

TEST(WorldTest, NoTwoCellsLieAlongADefaultShaftNorDoesOneWithTheOrigin) {
    std::vector<Vector> places = {{0.0, 0.0, 0.0}};
    for (const Cell& cell : World::Cells()) {
        places.push_back(cell.Place());
    }
    for (std::size_t a = 0; a < places.size(); ++a) {
        for (std::size_t b = a + 1; b < places.size(); ++b) {
            const Vector apart = places[a] - places[b];
            EXPECT_GT(std::abs(apart[0] - apart[1]) / std::sqrt(2.0), 25.0) << a << " and " << b;
            EXPECT_GT(std::abs(apart[0] + apart[1]) / std::sqrt(2.0), 25.0) << a << " and " << b;
        }
    }
}

}  // namespace workbench
