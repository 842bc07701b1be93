// The maps of random calibrations, beside wider arithmetic.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <optional>
#include <random>

#include "NeedleRig.h"
#include "needle/CalibrationMap.h"

namespace travo {
namespace {

using test::Largest;
using test::Smallest;
using Points = CalibrationMap::Points;

void PutZero(CalibrationMap& map, const PositionXYZ& zero) {
    for (std::size_t axis = 0; axis < zero.size(); ++axis) {
        map.PosZero(axis, zero[axis]);
    }
}

CalibrationMap MapOf(const Points& points, const PositionXYZ& zero) {
    CalibrationMap map;
    PutZero(map, zero);
    map.Calculate(points);
    return map;
}

class Random {
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}
    double Real(double low, double high) { return std::uniform_real_distribution(low, high)(engine_); }
    std::int32_t Whole(std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution(low, high)(engine_);
    }
    PositionXYZ Position(std::int32_t low, std::int32_t high) {
        return {Whole(low, high), Whole(low, high), Whole(low, high)};
    }

private:
    std::mt19937 engine_;
};

using Vector = std::array<double, 3>;

Vector Turned(Vector v, std::size_t about, double degrees) {
    const double angle = degrees * std::numbers::pi / 180.0;
    const std::size_t first = (about + 1) % 3;
    const std::size_t second = (about + 2) % 3;
    const double along = v[first];
    v[first] = along * std::cos(angle) - v[second] * std::sin(angle);
    v[second] = along * std::sin(angle) + v[second] * std::cos(angle);
    return v;
}

// The marks of a needle that is mounted askew: turned about X and Y by up to 20 degrees.
Points MountedAskew(Random& random) {
    const double aboutX = random.Real(-20.0, 20.0);
    const double aboutY = random.Real(-20.0, 20.0);
    const double side = random.Whole(0, 1) == 0 ? 1.0 : -1.0;
    const std::array<Vector, 4> marks{
        {{0, 0, 0}, {-3000 * side, 4000, 0}, {3000 * side, 4000, 0}, {0, 0, 2000}}};
    Points points{};
    for (std::size_t point = 0; point < 4; ++point) {
        const Vector turned = Turned(Turned(marks[point], 0, aboutX), 1, aboutY);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            points[point][axis] = static_cast<std::int32_t>(std::lround(12500 + turned[axis]));
        }
    }
    return points;
}

TEST(CalibrationMapPropertyTest, ThereAndBackDiffersByAtMostOneForTiltsUpToTwentyDegrees) {
    Random random(41);
    int direct = 0;
    for (int trial = 0; trial < 20000; ++trial) {
        const CalibrationMap map = MapOf(MountedAskew(random), random.Position(-50000, 50000));
        direct += map.ManiDirect;
        const PositionXYZ place = random.Position(0, 25000);
        const PositionXYZ back = map.ToManipulator(map.ToCommon(place));
        for (std::size_t axis = 0; axis < 3; ++axis) {
            ASSERT_LE(std::abs(back[axis] - place[axis]), 1) << "trial " << trial << " axis " << axis;
        }
    }
    EXPECT_GT(direct, 5000);
    EXPECT_LT(direct, 15000);
}

TEST(CalibrationMapPropertyTest, ThereAndBackDiffersByAtMostHalfACountAndHalfTheInverseRow) {
    Random random(42);
    int compared = 0;
    for (int trial = 0; trial < 20000; ++trial) {
        Points points{};
        for (PositionXYZ& point : points) {
            point = random.Position(0, 25000);
        }
        const CalibrationMap map = MapOf(points, random.Position(-50000, 50000));
        if (std::fabs(map.Determinant()) < 1e-4) {
            continue;  // so flat that the result may leave 32 bits
        }
        const PositionXYZ place = random.Position(0, 25000);
        const PositionXYZ back = map.ToManipulator(map.ToCommon(place));
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double row = std::fabs(map.CalibAxisX.Inverse[axis]) +
                               std::fabs(map.CalibAxisY.Inverse[axis]) +
                               std::fabs(map.CalibAxisZ.Inverse[axis]);
            ASSERT_LE(std::abs(back[axis] - place[axis]), std::ceil(0.5 + 0.5 * row)) << "trial " << trial;
        }
        ++compared;
    }
    EXPECT_GT(compared, 15000);
}

// What a map should give, in wider arithmetic: nothing where an overflow is due. `doubtful` where the
// value lies so near the end of the range that the width of the arithmetic decides.
struct Expected {
    std::optional<long double> value;
    bool doubtful = false;
};

bool Fits(std::int64_t value) { return value >= Smallest && value <= Largest; }

Expected InRange(long double value, long double magnitude) {
    const long double slack = 0.5L + magnitude * 1e-15L;
    const bool inside = value > Smallest - slack && value < Largest + slack;
    const bool wellInside = value > Smallest + slack && value < Largest - slack;
    return {inside ? std::optional(value) : std::nullopt, inside && !wellInside};
}

Expected WideToCommon(const CalibrationMap& map, std::size_t axis, const PositionXYZ& p) {
    const std::array columns{&map.CalibAxisX, &map.CalibAxisY, &map.CalibAxisZ};
    long double sum = 0.0L;
    long double magnitude = std::fabs(static_cast<long double>(map.PosZero()[axis]));
    for (std::size_t k = 0; k < 3; ++k) {
        const long double term =
            (static_cast<long double>(p[k]) - map.ManiCenter[k]) * columns[k]->Unit[axis];
        sum += term;
        magnitude += std::fabs(term);
    }
    const bool against = !map.ManiDirect && axis == 0;
    return InRange(map.PosZero()[axis] + (against ? -sum : sum), magnitude);
}

Expected WideToManipulator(const CalibrationMap& map, std::size_t axis, const PositionXYZ& p) {
    const std::array columns{&map.CalibAxisX, &map.CalibAxisY, &map.CalibAxisZ};
    long double sum = map.ManiCenter[axis];
    long double magnitude = std::fabs(sum);
    for (std::size_t k = 0; k < 3; ++k) {
        std::int64_t difference = std::int64_t{p[k]} - map.PosZero()[k];
        difference = k == 0 && !map.ManiDirect ? -difference : difference;
        if (!Fits(difference)) {
            return {};
        }
        const long double term = static_cast<long double>(difference) * columns[k]->Inverse[axis];
        sum += term;
        magnitude += std::fabs(term);
    }
    return InRange(sum, magnitude);
}

// 1 where the map raised an overflow, else 0; a failed expectation where it should have done otherwise.
template <typename Map>
int Compare(const Expected& expected, Map&& map) {
    try {
        const std::int32_t result = map();
        EXPECT_TRUE(expected.value.has_value());
        if (expected.value) {
            EXPECT_LE(std::fabs(result - *expected.value), 0.5L + 1e-4L);
        }
        return 0;
    } catch (const OverflowFailure&) {
        EXPECT_TRUE(!expected.value || expected.doubtful);
        return 1;
    }
}

TEST(CalibrationMapPropertyTest, OverflowOfTheMapsIsAlwaysAnErrorAndNeverAWrappedNumber) {
    Random random(43);
    int raised = 0;
    constexpr int Trials = 20000;
    for (int trial = 0; trial < Trials; ++trial) {
        CalibrationMap map = MapOf(MountedAskew(random), random.Position(Smallest, Largest));
        for (double& center : map.ManiCenter) {
            center = random.Whole(Smallest, Largest);
        }
        const PositionXYZ place = random.Position(Smallest, Largest);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            raised += Compare(WideToCommon(map, axis, place), [&] { return map.ToCommon(axis, place); });
            raised +=
                Compare(WideToManipulator(map, axis, place), [&] { return map.ToManipulator(axis, place); });
        }
        ASSERT_FALSE(HasFailure()) << "trial " << trial;
    }
    EXPECT_GT(raised, Trials);
    EXPECT_LT(raised, 5 * Trials);
}

bool SumsFit(const Points& points) {
    bool fit = true;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const std::int64_t apex = points[0][axis];
        const std::int64_t base = std::int64_t{points[2][axis]} + points[1][axis];
        fit = fit && Fits(base) && Fits(std::int64_t{points[2][axis]} - points[1][axis]) && Fits(2 * apex) &&
              Fits(base - 2 * apex) && Fits(points[3][axis] - apex);
    }
    return fit;
}

TEST(CalibrationMapPropertyTest, OverflowOfTheIntegerSumsIsAlwaysAnErrorAndStoresNothing) {
    Random random(44);
    int raised = 0;
    constexpr int Trials = 20000;
    for (int trial = 0; trial < Trials; ++trial) {
        const std::int32_t reach = trial % 2 == 0 ? 900'000'000 : Largest;
        Points points{};
        for (PositionXYZ& point : points) {
            point = random.Position(-reach, reach);
        }
        CalibrationMap map;
        if (SumsFit(points)) {
            ASSERT_NO_THROW(map.Calculate(points));
            const double length =
                std::hypot(map.CalibAxisX.Unit[0], map.CalibAxisX.Unit[1], map.CalibAxisX.Unit[2]);
            ASSERT_NEAR(length, 1.0, 1e-14);
        } else {
            ++raised;
            ASSERT_THROW(map.Calculate(points), OverflowFailure);
            ASSERT_EQ(map.CalibAxisX.Raw, (Vector{}));
            ASSERT_EQ(map.ManiCenter, (Vector{}));
        }
    }
    EXPECT_GT(raised, Trials / 4);
    EXPECT_LT(raised, Trials - 100);
}

}  // namespace
}  // namespace travo
