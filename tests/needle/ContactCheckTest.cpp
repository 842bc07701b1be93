#include "needle/ContactCheck.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "core/ground/Arithmetic.h"

namespace travo {
namespace {

using Sides = std::array<int, 4>;

Shaft ShaftOf(PlanPoint tip, PlanPoint rear) { return {{{tip.x, rear.x}, {tip.y, rear.y}}}; }
PlanPoint TipOf(const Shaft& shaft) { return {shaft[0][Tip], shaft[1][Tip]}; }
PlanPoint RearOf(const Shaft& shaft) { return {shaft[0][Rear], shaft[1][Rear]}; }

Sides SidesOf(PlanPoint a, PlanPoint b, PlanPoint c, PlanPoint d) {
    return {Side(a, b, c), Side(a, b, d), Side(c, d, a), Side(c, d, b)};
}

class ContactCheckWorkedExampleTest : public ::testing::Test {
protected:
    const Shaft now = ShaftOf({1000, 0}, {6000, 0});
    const Shaft target = ShaftOf({2000, 100}, {7000, 100});
    const Shaft swept = SweptShaft(now, target);
    const Shaft cutting = ShaftOf({2000, 50}, {2000, -4000});
    const Shaft beside = ShaftOf({3000, 2000}, {3000, 500});

    Sides Stage1(const Shaft& other) const {
        return SidesOf(TipOf(now), TipOf(swept), TipOf(other), RearOf(other));
    }
    Sides Stage2(const Shaft& other) const {
        return SidesOf(TipOf(now), RearOf(now), TipOf(other), RearOf(other));
    }
    Sides Stage3(const Shaft& other) const {
        return SidesOf(TipOf(swept), RearOf(swept), TipOf(other), RearOf(other));
    }
};

TEST_F(ContactCheckWorkedExampleTest, TheSweptShaftLiesThirtyFurther) {
    EXPECT_EQ(swept, ShaftOf({2030, 130}, {7030, 130}));
}

TEST_F(ContactCheckWorkedExampleTest, AShaftThatThePresentOneCutsIsAContactAtStageTwo) {
    EXPECT_EQ(Stage1(cutting), (Sides{1, 1, 1, -1}));
    EXPECT_EQ(Stage2(cutting), (Sides{-1, 1, 1, -1}));
    EXPECT_TRUE(NeedleCrossCheck(now, swept, cutting));
}

TEST_F(ContactCheckWorkedExampleTest, AShaftBesideTheWayIsClearAtAllStages) {
    EXPECT_EQ(Stage1(beside), (Sides{-1, -1, 1, 1}));
    EXPECT_EQ(Stage2(beside), (Sides{-1, -1, 1, -1}));
    EXPECT_EQ(Stage3(beside), (Sides{-1, -1, 1, -1}));
    EXPECT_FALSE(NeedleCrossCheck(now, swept, beside));
}

TEST(ContactCheckTest, TheSideIsTheNegatedCrossProduct) {
    EXPECT_EQ(Side({0, 0}, {10, 0}, {5, 3}), -1);
    EXPECT_EQ(Side({0, 0}, {10, 0}, {5, -3}), 1);
    EXPECT_EQ(Side({0, 0}, {10, 0}, {50, 0}), 0);
    EXPECT_EQ(Side({10, 0}, {0, 0}, {5, 3}), 1);
    EXPECT_EQ(Side({7, 7}, {7, 7}, {5, 3}), 0);
}

TEST(ContactCheckTest, TwoShaftsThatCrossInsideBothAreAContact) {
    EXPECT_TRUE(Crossing({0, 0}, {10, 10}, {0, 10}, {10, 0}));
    EXPECT_TRUE(Crossing({10, 10}, {0, 0}, {0, 10}, {10, 0}));
    EXPECT_FALSE(Crossing({0, 0}, {4, 4}, {0, 10}, {10, 0}));
}

TEST(ContactCheckTest, TwoNeedlesWhoseEndsTouchExactlyDoNotCountAsCrossing) {
    EXPECT_FALSE(Crossing({0, 0}, {10, 0}, {5, 0}, {5, 10}));   // one end on the other shaft
    EXPECT_FALSE(Crossing({0, 0}, {10, 0}, {10, 0}, {20, 5}));  // end to end
    EXPECT_FALSE(Crossing({5, 0}, {5, 10}, {0, 0}, {10, 0}));
    EXPECT_TRUE(Crossing({0, 0}, {10, 0}, {5, -1}, {5, 10}));
    // Through all stages: the other's tip lies on the present shaft and on the swept one.
    const Shaft now = ShaftOf({1000, 0}, {6000, 0});
    EXPECT_FALSE(NeedleCrossCheck(now, now, ShaftOf({3000, 0}, {3000, 4000})));
    EXPECT_TRUE(NeedleCrossCheck(now, now, ShaftOf({3000, -1}, {3000, 4000})));
}

TEST(ContactCheckTest, ShaftsAlongOneLineAreSeenByStageFourAloneAndOnlyWithBothXDifferencesUnder25) {
    const Shaft now = ShaftOf({1000, 0}, {6000, 0});
    EXPECT_EQ(SidesOf({1000, 0}, {6000, 0}, {1024, 0}, {6024, 0}), (Sides{0, 0, 0, 0}));
    EXPECT_TRUE(NeedleCrossCheck(now, now, ShaftOf({1024, 0}, {6024, 0})));
    EXPECT_TRUE(NeedleCrossCheck(now, now, ShaftOf({976, 0}, {5976, 0})));
    EXPECT_FALSE(NeedleCrossCheck(now, now, ShaftOf({1025, 0}, {6024, 0})));
    EXPECT_FALSE(NeedleCrossCheck(now, now, ShaftOf({1024, 0}, {6025, 0})));
    EXPECT_FALSE(NeedleCrossCheck(now, now, ShaftOf({3000, 0}, {6000, 0})));
}

TEST(ContactCheckTest, StageFourComparesXAlone) {
    const Shaft now = ShaftOf({1000, 0}, {6000, 0});
    EXPECT_TRUE(NeedleCrossCheck(now, now, ShaftOf({1010, 9000}, {6010, 9000})));
    EXPECT_FALSE(NeedleCrossCheck(now, now, ShaftOf({1030, 10}, {6030, 10})));
}

TEST(ContactCheckTest, StageFourLooksAtTheSweptShaftAndNotAtThePresentOne) {
    const Shaft now = ShaftOf({1000, 0}, {6000, 0});
    const Shaft swept = SweptShaft(now, ShaftOf({2000, 0}, {7000, 0}));
    EXPECT_FALSE(NeedleCrossCheck(now, swept, ShaftOf({1000, 50}, {6000, 50})));
    EXPECT_TRUE(NeedleCrossCheck(now, swept, ShaftOf({2030, 50}, {7030, 50})));
}

TEST(ContactCheckTest, TheTipsPathAloneIsAContactAtStageOne) {
    // From above to below: neither the present nor the swept shaft cuts the short one in between.
    const Shaft now = ShaftOf({1000, 1000}, {6000, 1000});
    const Shaft swept = SweptShaft(now, ShaftOf({1000, -1000}, {6000, -1000}));
    EXPECT_TRUE(NeedleCrossCheck(now, swept, ShaftOf({1100, 0}, {-3000, 0})));
    // Nothing looks at the rear's path or at the area between the shafts.
    EXPECT_FALSE(NeedleCrossCheck(now, swept, ShaftOf({5900, 0}, {9000, 0})));
    EXPECT_FALSE(NeedleCrossCheck(now, swept, ShaftOf({3000, 10}, {4000, -10})));
}

TEST(ContactCheckTest, TheSweptShaftAloneIsAContactAtStageThree) {
    const Shaft now = ShaftOf({1000, 1000}, {6000, 1000});
    const Shaft swept = SweptShaft(now, ShaftOf({1000, 0}, {6000, 0}));
    EXPECT_TRUE(NeedleCrossCheck(now, swept, ShaftOf({3000, -20}, {3000, -4000})));
    EXPECT_FALSE(NeedleCrossCheck(now, swept, ShaftOf({3000, -30}, {3000, -4000})));
}

TEST(ContactCheckTest, TheMarginActsOnEachAxisAndEachEndByItself) {
    const Shaft now = ShaftOf({100, 200}, {300, 400});
    EXPECT_EQ(SweptShaft(now, ShaftOf({101, 200}, {300, 399})), ShaftOf({131, 200}, {300, 369}));
    EXPECT_EQ(SweptShaft(now, ShaftOf({99, 201}, {301, 400})), ShaftOf({69, 231}, {331, 400}));
}

TEST(ContactCheckTest, ATargetEqualToThePresentPositionGetsNoMargin) {
    const Shaft now = ShaftOf({100, 200}, {300, 400});
    EXPECT_EQ(SweptShaft(now, now), now);
}

TEST(ContactCheckTest, TheMarginAndTheTravelOverflowAsFailures) {
    const Shaft zero{};
    EXPECT_THROW(SweptShaft(zero, ShaftOf({INT32_MAX - 29, 0}, {0, 0})), OverflowFailure);
    EXPECT_NO_THROW(SweptShaft(zero, ShaftOf({INT32_MAX - 30, 0}, {0, 0})));
    EXPECT_THROW(SweptShaft(zero, ShaftOf({0, 0}, {0, INT32_MIN + 29})), OverflowFailure);
    EXPECT_THROW(SweptShaft(ShaftOf({-1, 0}, {0, 0}), ShaftOf({INT32_MAX, 0}, {0, 0})), OverflowFailure);
}

TEST(ContactCheckTest, TwoFactorsOf46341AreEnoughToOverflow) {
    EXPECT_NO_THROW(Side({0, 0}, {-46340, 0}, {0, 46340}));
    EXPECT_THROW(Side({0, 0}, {-46341, 0}, {0, 46341}), OverflowFailure);
}

TEST(ContactCheckTest, ASumOfTwoProductsThatFitCanOverflow) {
    EXPECT_NO_THROW(Side({0, 0}, {-40000, 0}, {1, 40000}));
    EXPECT_THROW(Side({0, 0}, {-40000, -40000}, {-40000, 40000}), OverflowFailure);
}

TEST(ContactCheckTest, AllFourSidesAreComputedWhateverTheFirstSays) {
    // c and d lie on one side of a-b, so there is no crossing; d is too far all the same.
    EXPECT_FALSE(Crossing({0, 0}, {-50000, 0}, {0, 10}, {0, 20}));
    EXPECT_THROW(Crossing({0, 0}, {-50000, 0}, {0, 10}, {0, 50000}), OverflowFailure);
    // The first two sides are zero, the last two overflow.
    EXPECT_THROW(Crossing({0, 0}, {0, 0}, {50000, 0}, {0, 50000}), OverflowFailure);
}

TEST(ContactCheckTest, TheFirstStageThatHoldsKeepsTheOthersFromOverflowing) {
    const Shaft other = ShaftOf({1000, -1000}, {1000, 1000});
    const Shaft now = ShaftOf({0, 0}, {0, 3'000'000});
    const Shaft swept = ShaftOf({2000, 0}, {100000, 0});
    EXPECT_TRUE(NeedleCrossCheck(now, swept, other));
    const Shaft clearOfThePath = ShaftOf({1000, 500}, {1000, 1000});
    EXPECT_THROW(NeedleCrossCheck(now, swept, clearOfThePath), OverflowFailure);
}

TEST(ContactCheckTest, StageFourLooksAtBothEndsAlsoWhenTheTipsAreFarApart) {
    // All shafts along Y = 0, so that every product is zero; the rears are further apart than 32 bits.
    const Shaft now = ShaftOf({0, 0}, {0, 0});
    const Shaft swept = ShaftOf({500'000'000, 0}, {1'500'000'000, 0});
    const Shaft other = ShaftOf({0, 0}, {-1'000'000'000, 0});
    EXPECT_THROW(NeedleCrossCheck(now, swept, other), OverflowFailure);
}

// The same sign in 64-bit steps: nothing where one of the 32-bit steps would overflow.
std::optional<int> WideSide(PlanPoint p, PlanPoint q, PlanPoint r) {
    const auto fits = [](std::int64_t value) { return value >= INT32_MIN && value <= INT32_MAX; };
    const std::int64_t a = std::int64_t{r.y} - p.y;
    const std::int64_t b = std::int64_t{p.x} - q.x;
    const std::int64_t c = std::int64_t{p.y} - q.y;
    const std::int64_t d = std::int64_t{p.x} - r.x;
    if (!fits(a) || !fits(b) || !fits(c) || !fits(d) || !fits(a * b) || !fits(c * d) ||
        !fits(a * b + c * d)) {
        return std::nullopt;
    }
    const std::int64_t cross = (std::int64_t{q.x} - p.x) * (std::int64_t{r.y} - p.y) -
                               (std::int64_t{q.y} - p.y) * (std::int64_t{r.x} - p.x);
    return (cross < 0) - (cross > 0);
}

TEST(ContactCheckPropertyTest, OverflowOfASideIsAlwaysAnErrorAndNeverAWrongSign) {
    std::mt19937 engine(45);
    constexpr std::array<std::int32_t, 4> Reaches{3, 25000, 40000, INT32_MAX};
    int raised = 0;
    int onTheLine = 0;
    for (int trial = 0; trial < 200000; ++trial) {
        const std::int32_t reach = Reaches[static_cast<std::size_t>(trial) % Reaches.size()];
        std::uniform_int_distribution<std::int32_t> coordinate(-reach, reach);
        const PlanPoint p{coordinate(engine), coordinate(engine)};
        const PlanPoint q{coordinate(engine), coordinate(engine)};
        const PlanPoint r{coordinate(engine), coordinate(engine)};
        const std::optional<int> expected = WideSide(p, q, r);
        if (expected) {
            ASSERT_EQ(Side(p, q, r), *expected) << "trial " << trial;
            onTheLine += *expected == 0;
        } else {
            ASSERT_THROW(Side(p, q, r), OverflowFailure) << "trial " << trial;
            ++raised;
        }
    }
    EXPECT_GT(raised, 50000);
    EXPECT_LT(raised, 150000);
    EXPECT_GT(onTheLine, 1000);
}

std::optional<bool> WideCrossing(PlanPoint a, PlanPoint b, PlanPoint c, PlanPoint d) {
    const auto w0 = WideSide(a, b, c);
    const auto w1 = WideSide(a, b, d);
    const auto w2 = WideSide(c, d, a);
    const auto w3 = WideSide(c, d, b);
    if (!w0 || !w1 || !w2 || !w3) {
        return std::nullopt;
    }
    return *w0 * *w1 < 0 && *w2 * *w3 < 0;
}

std::optional<bool> WideNearlyCoincide(const Shaft& swept, const Shaft& other) {
    const std::int64_t tips = std::abs(std::int64_t{swept[0][Tip]} - other[0][Tip]);
    const std::int64_t rears = std::abs(std::int64_t{swept[0][Rear]} - other[0][Rear]);
    if (tips > INT32_MAX || rears > INT32_MAX) {
        return std::nullopt;
    }
    return tips < 25 && rears < 25;
}

// The stages one by one: the first that says yes or overflows decides.
std::optional<bool> WideCheck(const Shaft& now, const Shaft& swept, const Shaft& other) {
    const PlanPoint tip = TipOf(other);
    const PlanPoint rear = RearOf(other);
    std::optional<bool> contact = WideCrossing(TipOf(now), TipOf(swept), tip, rear);
    if (contact && !*contact) {
        contact = WideCrossing(TipOf(now), RearOf(now), tip, rear);
    }
    if (contact && !*contact) {
        contact = WideCrossing(TipOf(swept), RearOf(swept), tip, rear);
    }
    if (contact && !*contact) {
        contact = WideNearlyCoincide(swept, other);
    }
    return contact;
}

class NeedleCrossCheckPropertyTest : public ::testing::TestWithParam<std::int32_t> {};

TEST_P(NeedleCrossCheckPropertyTest, TheStagesDecideInTheirOrderAndAnOverflowIsAlwaysAnError) {
    std::mt19937 engine(46);
    std::uniform_int_distribution<std::int32_t> coordinate(-GetParam(), GetParam());
    std::array<int, 3> outcomes{};
    for (int trial = 0; trial < 100000; ++trial) {
        std::array<Shaft, 3> shafts{};
        for (Shaft& shaft : shafts) {
            shaft =
                ShaftOf({coordinate(engine), coordinate(engine)}, {coordinate(engine), coordinate(engine)});
        }
        const auto& [now, swept, other] = shafts;
        const std::optional<bool> expected = WideCheck(now, swept, other);
        if (expected) {
            ASSERT_EQ(NeedleCrossCheck(now, swept, other), *expected) << "trial " << trial;
            ++outcomes[*expected ? 1 : 0];
        } else {
            ASSERT_THROW(NeedleCrossCheck(now, swept, other), OverflowFailure) << "trial " << trial;
            ++outcomes[2];
        }
    }
    if (GetParam() <= 11585) {  // twice that, squared and doubled, is 2^31
        EXPECT_EQ(outcomes[2], 0);
    }
    if (GetParam() >= 30000) {
        EXPECT_GT(outcomes[2], 100);
    }
    if (GetParam() <= 30000) {
        EXPECT_GT(outcomes[1], 5000);
    }
}

// From coordinates so small that ends often lie on the other shaft, past the place where the first steps
// leave 32 bits, to the whole range.
INSTANTIATE_TEST_SUITE_P(Reaches, NeedleCrossCheckPropertyTest,
                         ::testing::Values(4, 60, 2000, 11585, 11700, 16383, 20000, 30000, 100000,
                                           1'500'000'000, INT32_MAX));

}  // namespace
}  // namespace travo
