#include "drivers/gcode/Feed.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "drivers/gcode/Axes.h"
#include "drivers/gcode/simulator/Motion.h"

namespace gcode {
namespace {

const MachineLimits Limits{{8, 8, 8}, {200, 200, 200}};

TEST(GcodeFeedTest, AMoveArrivesJustInTimeWithItsRamps) {
    // 10000 counts of a micrometre in 2.5 s: 10 mm, ramps included.
    const FedMove move = Feed({}, {10, 0, 0}, 2.5, Limits);
    EXPECT_TRUE(move.isInTime);
    EXPECT_NEAR(move.duration, 2.5, 1e-9);
    EXPECT_NEAR(move.length / move.feed + move.feed / 200, 2.5, 1e-9);
    EXPECT_GT(move.feed, 4);
    EXPECT_LT(move.feed, 4.1);
}

TEST(GcodeFeedTest, TheFeedIsAlongTheVector) {
    const FedMove straight = Feed({}, {10, 0, 0}, 2.5, Limits);
    const FedMove diagonal = Feed({1, 1, 1}, {11, 11, 11}, 2.5, Limits);
    EXPECT_NEAR(diagonal.length, 10 * std::sqrt(3), 1e-9);
    EXPECT_NEAR(diagonal.feed / std::sqrt(3), straight.feed, 1e-9);
}

TEST(GcodeFeedTest, AMachineThatIsTooSlowIsFedAtItsLimitAndTheLatenessIsTold) {
    const FedMove move = Feed({}, {0, 10, 0}, 1.0, Limits);
    EXPECT_EQ(move.feed, 8);
    EXPECT_FALSE(move.isInTime);
    EXPECT_NEAR(move.duration, 10 / 8.0 + 8 / 200.0, 1e-9);
    // The weakest axis of the direction counts, each with its share.
    EXPECT_NEAR(Feed({}, {3, 4, 0}, 0.01, {{3, 8, 1}, {200, 200, 200}}).feed, 5, 1e-9);
}

TEST(GcodeFeedTest, AShortMoveThatNoAccelerationMakesInTimeIsATriangle) {
    // 50 counts in 12.5 ms would need 1280 mm/s².
    const FedMove move = Feed({}, {0.05, 0, 0}, 0.0125, Limits);
    EXPECT_FALSE(move.isInTime);
    EXPECT_NEAR(move.duration, 2 * std::sqrt(0.05 / 200), 1e-9);
}

TEST(GcodeFeedTest, AMoveOfNoLengthTakesNoTime) {
    const FedMove move = Feed({1, 2, 3}, {1, 2, 3}, 1, Limits);
    EXPECT_EQ(move.length, 0);
    EXPECT_EQ(move.duration, 0);
    EXPECT_TRUE(move.isInTime);
}

TEST(GcodeFeedTest, WhateverTheMoveTheMotorsTakeAsLongAsWasComputed) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-12, 12);
    std::uniform_real_distribution<double> speed(0.5, 20);
    std::uniform_real_distribution<double> acceleration(5, 2000);
    for (int round = 0; round < 2000; ++round) {
        const MachineLimits limits{{speed(random), speed(random), speed(random)},
                                   {acceleration(random), acceleration(random), acceleration(random)}};
        const Millimetres from{place(random), place(random), place(random)};
        const Millimetres to{place(random), place(random), place(random)};
        const double wanted = std::abs(place(random)) / 4 + 0.01;
        const FedMove move = Feed(from, to, wanted, limits);
        Motion motors(from, limits);
        motors.Push(to, move.feed, Time(0));
        const double taken = std::chrono::duration<double>(motors.Arrival(Time(0))).count();
        EXPECT_NEAR(taken, move.duration, 2e-6);
        EXPECT_EQ(move.isInTime, move.duration <= wanted + 1e-9);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double share = std::abs(to[axis] - from[axis]) / move.length;
            EXPECT_LE(move.feed * share, limits.speed[axis] * (1 + 1e-9));
        }
    }
}

TEST(GcodeMotionTest, AHoldEndsWithARampAndKeepsWhatWasTravelled) {
    Motion motors({}, Limits);
    motors.Push({10, 0, 0}, 4, Time(0));
    motors.Push({20, 0, 0}, 4, Time(0));
    const Time now = std::chrono::seconds(1);
    const double at = motors.At(now)[0];
    motors.Hold(now);
    EXPECT_NEAR(motors.At(now)[0], at, 1e-9);
    EXPECT_EQ(motors.Waiting(now), 1U);
    const Time end = motors.Arrival(now);
    EXPECT_EQ(end - now, std::chrono::milliseconds(20));
    EXPECT_NEAR(motors.At(end)[0], at + 4.0 * 4 / (2 * 200), 1e-9);
    EXPECT_FALSE(motors.IsMoving(end));
}

TEST(GcodeMotionTest, PlacesGoOnSteadilyThroughRampsAndCruise) {
    Motion motors({}, Limits);
    motors.Push({10, -5, 2}, 4, Time(0));
    const Time end = motors.Arrival(Time(0));
    Millimetres last = motors.At(Time(0));
    for (Time now(0); now <= end; now += std::chrono::milliseconds(1)) {
        const Millimetres at = motors.At(now);
        EXPECT_GE(at[0] + 1e-12, last[0]);
        EXPECT_LE(at[0] - last[0], 0.0041);
        EXPECT_NEAR(at[1], -at[0] / 2, 1e-9);
        last = at;
    }
    EXPECT_EQ(motors.At(end), (Millimetres{10, -5, 2}));
}

TEST(GcodeAxesTest, CountsGoThereAndBackForEverySignAndOrder) {
    const std::size_t orders[6][3] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};
    for (const auto& order : orders) {
        for (unsigned signs = 0; signs < 8; ++signs) {
            NeedleSettings needle;
            needle.countsPerMm = 987.5;
            needle.zero = {-1.25, 2.5, -30};
            for (std::size_t own = 0; own < 3; ++own) {
                needle.axes[own] = {order[own], (signs >> own & 1U) != 0 ? -1 : 1};
            }
            for (const Counts& counts : {Counts{0, 0, 0}, Counts{25000, 0, 12345}, Counts{1, 2, 3}}) {
                EXPECT_EQ(NearestCounts(needle, MachinePosition(needle, counts)), counts);
            }
        }
    }
}

TEST(GcodeAxesTest, OurXMayBeTheOthersZBackwards) {
    NeedleSettings needle;
    needle.countsPerMm = 1000;
    needle.zero = {1, 2, 30};
    needle.axes = {AxisChoice{2, -1}, AxisChoice{0, 1}, AxisChoice{1, 1}};
    EXPECT_EQ(MachinePosition(needle, {25000, 500, 250}), (Millimetres{1.5, 2.25, 5}));
}

TEST(GcodeAxesTest, APlaceBeyond32BitsHasNoCounts) {
    NeedleSettings needle;
    needle.countsPerMm = 1000000;
    needle.axes = {AxisChoice{0, 1}, AxisChoice{1, 1}, AxisChoice{2, 1}};
    EXPECT_FALSE(NearestCounts(needle, {999999, 0, 0}));
    EXPECT_TRUE(NearestCounts(needle, {-2000, 0, 0}));
}

}  // namespace
}  // namespace gcode
