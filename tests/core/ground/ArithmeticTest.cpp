#include "core/ground/Arithmetic.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <random>

namespace travo {
namespace {

constexpr std::int32_t Lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Highest = std::numeric_limits<std::int32_t>::max();
constexpr int Rounds = 200000;

// Values of every magnitude, the limits and their neighbours among them.
class AnyInteger {
public:
    std::int32_t operator()() {
        const std::int32_t value = whole_(engine_) >> shift_(engine_);
        switch (special_(engine_)) {
            case 0:
                return Lowest + (value & 3);
            case 1:
                return Highest - (value & 3);
            case 2:
                return value & 1;
            default:
                return value;
        }
    }

private:
    std::mt19937 engine_{20080703};
    std::uniform_int_distribution<std::int32_t> whole_{Lowest, Highest};
    std::uniform_int_distribution<int> shift_{0, 31};
    std::uniform_int_distribution<int> special_{0, 9};
};

bool Fits(std::int64_t value) { return value >= Lowest && value <= Highest; }

// Compares one checked operation with the same one in 64 bits, where nothing can overflow.
void CompareWith64Bits(const std::function<std::int32_t(std::int32_t, std::int32_t)>& checked,
                       const std::function<std::int64_t(std::int64_t, std::int64_t)>& wide) {
    AnyInteger any;
    int overflows = 0;
    for (int round = 0; round < Rounds; ++round) {
        const std::int32_t a = any();
        const std::int32_t b = any();
        const std::int64_t expected = wide(a, b);
        try {
            const std::int32_t result = checked(a, b);
            ASSERT_EQ(result, expected) << a << " and " << b;
        } catch (const OverflowFailure&) {
            ASSERT_FALSE(Fits(expected)) << a << " and " << b;
            ++overflows;
        }
    }
    EXPECT_GT(overflows, 0);
    EXPECT_LT(overflows, Rounds);
}

TEST(ArithmeticTest, ConvertGoesToNearestWithTiesToEven) {
    EXPECT_EQ(convert(0.5), 0);
    EXPECT_EQ(convert(1.5), 2);
    EXPECT_EQ(convert(2.5), 2);
    EXPECT_EQ(convert(3.5), 4);
    EXPECT_EQ(convert(-0.5), 0);
    EXPECT_EQ(convert(-1.5), -2);
    EXPECT_EQ(convert(-2.5), -2);
    EXPECT_EQ(convert(-3.5), -4);
    EXPECT_EQ(convert(2.4999999999999996), 2);
    EXPECT_EQ(convert(2.5000000000000004), 3);
    EXPECT_EQ(convert(0.49999999999999994), 0);
    EXPECT_EQ(convert(-7.0), -7);
}

TEST(ArithmeticTest, ConvertTakesWhatRoundsInto32Bits) {
    EXPECT_EQ(convert(2147483647.0), Highest);
    EXPECT_EQ(convert(2147483647.4), Highest);
    EXPECT_EQ(convert(-2147483648.0), Lowest);
    EXPECT_EQ(convert(-2147483648.5), Lowest);  // a tie, and the even neighbour is the limit
}

TEST(ArithmeticTest, ConvertFailsForWhatRoundsBeyond32Bits) {
    EXPECT_THROW(convert(2147483647.5), OverflowFailure);  // a tie, and the even neighbour is beyond
    EXPECT_THROW(convert(2147483648.0), OverflowFailure);
    EXPECT_THROW(convert(-2147483648.6), OverflowFailure);
    EXPECT_THROW(convert(-2147483649.0), OverflowFailure);
    EXPECT_THROW(convert(4294967296.0), OverflowFailure);
    EXPECT_THROW(convert(9.3e18), OverflowFailure);
    EXPECT_THROW(convert(std::numeric_limits<double>::max()), OverflowFailure);
    EXPECT_THROW(convert(std::numeric_limits<double>::lowest()), OverflowFailure);
}

TEST(ArithmeticTest, ConvertFailsForWhatIsNotFinite) {
    EXPECT_THROW(convert(std::numeric_limits<double>::quiet_NaN()), OverflowFailure);
    EXPECT_THROW(convert(std::numeric_limits<double>::infinity()), OverflowFailure);
    EXPECT_THROW(convert(-std::numeric_limits<double>::infinity()), OverflowFailure);
}

TEST(ArithmeticTest, ConvertGivesBackEveryWholeNumber) {
    AnyInteger any;
    for (int round = 0; round < Rounds; ++round) {
        const std::int32_t value = any();
        ASSERT_EQ(convert(value), value);
        if (value > -1000000 && value < 1000000) {
            ASSERT_EQ(convert(value + 0.5), value % 2 == 0 ? value : value + 1);
        }
    }
}

TEST(ArithmeticTest, ASumBeyond32BitsIsAlwaysAnErrorAndNeverWraps) {
    EXPECT_THROW(Sum(Highest, 1), OverflowFailure);
    EXPECT_THROW(Sum(Lowest, -1), OverflowFailure);
    EXPECT_EQ(Sum(Highest, Lowest), -1);
    CompareWith64Bits(Sum, std::plus<std::int64_t>());
}

TEST(ArithmeticTest, ADifferenceBeyond32BitsIsAlwaysAnErrorAndNeverWraps) {
    EXPECT_THROW(Difference(0, Lowest), OverflowFailure);
    EXPECT_THROW(Difference(Lowest, 1), OverflowFailure);
    EXPECT_EQ(Difference(-1, Lowest), Highest);
    CompareWith64Bits(Difference, std::minus<std::int64_t>());
}

TEST(ArithmeticTest, AProductBeyond32BitsIsAlwaysAnErrorAndNeverWraps) {
    EXPECT_THROW(Product(Lowest, -1), OverflowFailure);
    EXPECT_THROW(Product(65536, 65536), OverflowFailure);
    EXPECT_EQ(Product(65536, -32768), Lowest);
    CompareWith64Bits(Product, std::multiplies<std::int64_t>());
}

TEST(ArithmeticTest, TheMagnitudeOfTheLowestNumberIsAnError) {
    EXPECT_EQ(AbsoluteValue(0), 0);
    EXPECT_EQ(AbsoluteValue(-5), 5);
    EXPECT_EQ(AbsoluteValue(Highest), Highest);
    EXPECT_EQ(AbsoluteValue(-Highest), Highest);
    EXPECT_THROW(AbsoluteValue(Lowest), OverflowFailure);
}

TEST(ArithmeticTest, A16BitNumberReachesFromMinus32768To32767) {
    EXPECT_EQ(ToInteger16(-32768), -32768);
    EXPECT_EQ(ToInteger16(32767), 32767);
    EXPECT_THROW(ToInteger16(32768), OverflowFailure);
    EXPECT_THROW(ToInteger16(-32769), OverflowFailure);
    EXPECT_THROW(ToInteger16(65536), OverflowFailure);
    EXPECT_THROW(ToInteger16(Lowest), OverflowFailure);
}

TEST(ArithmeticTest, AFloatingResultThatIsNotFiniteIsAnError) {
    EXPECT_EQ(Finite(-1.25), -1.25);
    EXPECT_EQ(Finite(std::numeric_limits<double>::max()), std::numeric_limits<double>::max());
    EXPECT_THROW(Finite(std::numeric_limits<double>::quiet_NaN()), OverflowFailure);
    EXPECT_THROW(Finite(std::numeric_limits<double>::infinity()), OverflowFailure);
    EXPECT_THROW(Finite(-std::numeric_limits<double>::infinity()), OverflowFailure);
}

TEST(ArithmeticTest, AnIndexBeyondItsTableIsAnError) {
    EXPECT_EQ(Bounded(0, 4), 0U);
    EXPECT_EQ(Bounded(3, 4), 3U);
    EXPECT_THROW(Bounded(4, 4), BoundsFailure);
    EXPECT_THROW(Bounded(-1, 4), BoundsFailure);
    EXPECT_THROW(Bounded(Lowest, 4), BoundsFailure);
    EXPECT_THROW(Bounded(Highest, 4), BoundsFailure);
    EXPECT_THROW(Bounded(0, 0), BoundsFailure);
}

TEST(ArithmeticTest, ReadInteger32TakesAnOptionalMinusAndDigits) {
    EXPECT_EQ(ReadInteger32("0"), 0);
    EXPECT_EQ(ReadInteger32("12500"), 12500);
    EXPECT_EQ(ReadInteger32("-42"), -42);
    EXPECT_EQ(ReadInteger32("-0"), 0);
    EXPECT_EQ(ReadInteger32("0000000000000007"), 7);
    EXPECT_EQ(ReadInteger32("2147483647"), Highest);
    EXPECT_EQ(ReadInteger32("-2147483648"), Lowest);
}

TEST(ArithmeticTest, ReadInteger32RefusesEveryOtherForm) {
    for (const char* text : {"", "-", "+1", " 1", "1 ", "1.0", "--1", "- 1", "0x10", "1e3", "abc", "1\r"}) {
        EXPECT_THROW(ReadInteger32(text), NumberFailure) << '"' << text << '"';
    }
    EXPECT_THROW(ReadInteger32(std::string_view("1\0", 2)), NumberFailure);
}

TEST(ArithmeticTest, ReadInteger32FailsBeyond32Bits) {
    for (const char* text : {"2147483648", "-2147483649", "99999999999", "99999999999999999999999999"}) {
        EXPECT_THROW(ReadInteger32(text), OverflowFailure) << text;
    }
}

TEST(ArithmeticTest, ReadInteger16FailsBeyond16Bits) {
    EXPECT_EQ(ReadInteger16("32767"), 32767);
    EXPECT_EQ(ReadInteger16("-32768"), -32768);
    EXPECT_THROW(ReadInteger16("32768"), OverflowFailure);
    EXPECT_THROW(ReadInteger16("-32769"), OverflowFailure);
    EXPECT_THROW(ReadInteger16("99999999999"), OverflowFailure);
    EXPECT_THROW(ReadInteger16(""), NumberFailure);
}

}  // namespace
}  // namespace travo
