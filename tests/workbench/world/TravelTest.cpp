#include "workbench/world/Travel.h"

#include <gtest/gtest.h>

namespace workbench {

using std::chrono::milliseconds;

TEST(TravelTest, AtRestItStaysWhereItIs) {
    const Travel travel({1.0, 2.0, 3.0});
    EXPECT_FALSE(travel.MovesAt(Time(0)));
    EXPECT_EQ(travel.At(milliseconds(5000)), (Vector{1.0, 2.0, 3.0}));
}

TEST(TravelTest, TheLongestAxisSetsTheTime) {
    Travel travel({0.0, 0.0, 0.0});
    travel.SetOut({400.0, -4000.0, 40.0}, 4.0, milliseconds(100));
    EXPECT_EQ(travel.Arrival(), milliseconds(1100));
    EXPECT_TRUE(travel.MovesAt(milliseconds(1099)));
    EXPECT_FALSE(travel.MovesAt(milliseconds(1100)));
}

TEST(TravelTest, AllAxesRunOnOneStraightLine) {
    Travel travel({100.0, 0.0, 0.0});
    travel.SetOut({500.0, -4000.0, 40.0}, 4.0, milliseconds(0));
    for (int share = 0; share <= 4; ++share) {
        const Vector at = travel.At(milliseconds(250 * share));
        EXPECT_DOUBLE_EQ(at[0], 100.0 + 100.0 * share);
        EXPECT_DOUBLE_EQ(at[1], -1000.0 * share);
        EXPECT_DOUBLE_EQ(at[2], 10.0 * share);
    }
}

TEST(TravelTest, BeforeTheStartItStandsAtTheStartAndAfterTheArrivalAtTheTarget) {
    Travel travel({0.0, 0.0, 0.0});
    travel.SetOut({0.1, 0.2, 0.7}, 4.0, milliseconds(100));
    EXPECT_EQ(travel.At(milliseconds(50)), (Vector{0.0, 0.0, 0.0}));
    EXPECT_EQ(travel.At(milliseconds(500)), (Vector{0.1, 0.2, 0.7}));
}

TEST(TravelTest, ANewTargetIsTakenFromThePlaceReachedSoFar) {
    Travel travel({0.0, 0.0, 0.0});
    travel.SetOut({4000.0, 0.0, 0.0}, 4.0, milliseconds(0));
    travel.SetOut({2000.0, 400.0, 0.0}, 4.0, milliseconds(500));
    EXPECT_EQ(travel.Arrival(), milliseconds(600));
    EXPECT_EQ(travel.At(milliseconds(550)), (Vector{2000.0, 200.0, 0.0}));
}

TEST(TravelTest, ATargetAtThePresentPlaceIsReachedAtOnce) {
    Travel travel({7.0, 8.0, 9.0});
    travel.SetOut({7.0, 8.0, 9.0}, 4.0, milliseconds(30));
    EXPECT_FALSE(travel.MovesAt(milliseconds(30)));
}

}  // namespace workbench
