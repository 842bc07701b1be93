#include "workbench/world/ShaftContact.h"

#include <gtest/gtest.h>

#include <cmath>

#include <random>

namespace workbench {

namespace {

MovingShaft Still(const Shaft& shaft) { return {shaft, shaft}; }

// A horizontal shaft, 500 long to the left of its tip.
Shaft Level(double x, double y) { return {{x, y}, {x - 500.0, y}}; }

const Shaft Upright = {{0.0, 0.0}, {0.0, -1000.0}};

}  // namespace

TEST(ShaftContactTest, ShaftsThatCrossHaveNoDistance) {
    EXPECT_EQ(PlanDistance(Level(10.0, -5.0), Upright), 0.0);
}

TEST(ShaftContactTest, TheDistanceOfShaftsApartIsTheShortestOne) {
    EXPECT_DOUBLE_EQ(PlanDistance(Level(-3.0, -5.0), Upright), 3.0);
    EXPECT_DOUBLE_EQ(PlanDistance(Level(-3.0, 4.0), Upright), 5.0);
    EXPECT_DOUBLE_EQ(PlanDistance(Level(100.0, 1.0), Upright), 1.0);
}

TEST(ShaftContactTest, AShaftOfNoLengthIsAPoint) {
    EXPECT_DOUBLE_EQ(PlanDistance({{7.0, -10.0}, {7.0, -10.0}}, Upright), 7.0);
    EXPECT_DOUBLE_EQ(PlanDistance({{0.0, -10.0}, {0.0, -10.0}}, Upright), 0.0);
}

TEST(ShaftContactTest, ShaftsAtRestThatCrossMeetAllTheTime) {
    const auto meetings = MeetingsOf(Still(Level(10.0, -5.0)), Still(Upright));
    ASSERT_EQ(meetings.size(), 1u);
    EXPECT_EQ(meetings[0].from, 0.0);
    EXPECT_EQ(meetings[0].to, 1.0);
    EXPECT_NEAR(meetings[0].place[0], 0.0, 1e-9);
    EXPECT_NEAR(meetings[0].place[1], -5.0, 1e-9);
}

TEST(ShaftContactTest, ATipThatStopsShortDoesNotMeet) {
    EXPECT_TRUE(MeetingsOf({Level(-100.0, -50.0), Level(-0.01, -50.0)}, Still(Upright)).empty());
}

TEST(ShaftContactTest, ATipThatPassesBelowDoesNotMeet) {
    EXPECT_TRUE(MeetingsOf({Level(-100.0, 0.01), Level(100.0, 0.01)}, Still(Upright)).empty());
}

TEST(ShaftContactTest, AMeetingThatIsOverBeforeTheEndIsSeen) {
    const auto meetings = MeetingsOf({Level(-30.0, -60.0), Level(30.0, 20.0)}, Still(Upright));
    ASSERT_EQ(meetings.size(), 1u);
    EXPECT_NEAR(meetings[0].from, 0.5, 1e-9);
    EXPECT_NEAR(meetings[0].to, 0.75, 1e-9);
    EXPECT_NEAR(meetings[0].place[1], -20.0, 1e-6);
}

TEST(ShaftContactTest, AMeetingOfAMillionthOfTheTimeIsSeen) {
    // The tip is beyond the other shaft from share 0.5 on, and below its end from 0.500001 on.
    const auto meetings = MeetingsOf({Level(-1000.0, -1000.002), Level(1000.0, 999.998)}, Still(Upright));
    ASSERT_EQ(meetings.size(), 1u);
    EXPECT_NEAR(meetings[0].from, 0.5, 1e-8);
    EXPECT_NEAR(meetings[0].to, 0.500001, 1e-8);
}

TEST(ShaftContactTest, ShaftsOnOneLineMeetWhenTheirTipsTouch) {
    const Shaft fromLeft = Level(-1.0, 0.0);
    const MovingShaft fromRight = {{{100.0, 0.0}, {600.0, 0.0}}, {{-100.0, 0.0}, {400.0, 0.0}}};
    const auto meetings = MeetingsOf(Still(fromLeft), fromRight);
    ASSERT_EQ(meetings.size(), 1u);
    EXPECT_NEAR(meetings[0].from, 0.505, 1e-9);
    EXPECT_EQ(meetings[0].to, 1.0);
}

TEST(ShaftContactTest, ParallelShaftsNeverMeet) {
    EXPECT_TRUE(MeetingsOf({Level(0.0, 10.0), Level(300.0, 10.0)}, Still(Level(0.0, 0.0))).empty());
}

TEST(ShaftContactTest, WhatSamplingSeesIsSeen) {
    std::mt19937 random(20240511);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    const auto shaft = [&] {
        return Shaft{{coordinate(random), coordinate(random)}, {coordinate(random), coordinate(random)}};
    };
    const auto between = [](const PlanPoint& a, const PlanPoint& b, double share) {
        return PlanPoint{a[0] + share * (b[0] - a[0]), a[1] + share * (b[1] - a[1])};
    };
    constexpr int samples = 200;
    int metInAll = 0;
    for (int round = 0; round < 500; ++round) {
        const MovingShaft a{shaft(), shaft()};
        const MovingShaft b{shaft(), shaft()};
        const auto meetings = MeetingsOf(a, b);
        for (int i = 0; i <= samples; ++i) {
            const double share = static_cast<double>(i) / samples;
            const Shaft aNow{between(a.begin.tip, a.end.tip, share),
                             between(a.begin.rear, a.end.rear, share)};
            const Shaft bNow{between(b.begin.tip, b.end.tip, share),
                             between(b.begin.rear, b.end.rear, share)};
            const bool met = PlanDistance(aNow, bNow) == 0.0;
            bool listed = false;
            for (const Meeting& meeting : meetings) {
                listed = listed || (meeting.from - 1e-9 <= share && share <= meeting.to + 1e-9);
            }
            EXPECT_EQ(met, listed) << "round " << round << " share " << share;
            metInAll += met ? 1 : 0;
        }
    }
    EXPECT_GT(metInAll, 1000);
}

TEST(ShaftContactTest, ShaftsOnOneLineFromOppositeSidesDoNotMeetThroughRounding) {
    // Two needles that face each other along a diagonal, as far back as a retreat brings them.
    const double back = 3000.0 / std::sqrt(2.0);
    const double rear = 12500.0 / std::sqrt(2.0);
    for (int i = 0; i < 1000; ++i) {
        const double noise = 1e-12 * i;
        const Shaft a{{back + noise, -back}, {rear, -rear + noise}};
        const Shaft b{{-back, back - noise}, {-rear - noise, rear}};
        EXPECT_TRUE(MeetingsOf({a, a}, {b, b}).empty()) << i;
        EXPECT_NEAR(PlanDistance(a, b), 6000.0, 0.001);
    }
}

}  // namespace workbench
