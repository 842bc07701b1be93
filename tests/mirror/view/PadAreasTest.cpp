#include "mirror/view/PadAreas.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <array>
#include <string>

#include "core/ground/Arithmetic.h"

namespace travo::test {
namespace {

// ---- The pad by whole numbers alone: everything in quarters of a pixel, fractions multiplied out ----

// To nearest with ties to even; both above 0 or the number 0.
long long RoundedQuotient(long long number, long long by) {
    const long long whole = number / by;
    const long long twiceRest = 2 * (number % by);
    const bool up = twiceRest > by || (twiceRest == by && whole % 2 == 1);
    return up ? whole + 1 : whole;
}

// The scale of all lengths, as a fraction.
struct Ratio {
    long long over;
    long long under;
};

// 0, 1 or 2: left of the bar or above it, on it, or beyond. The bar reaches from 70 to 95.
std::size_t Third(long long quarters, const Ratio& k) {
    const long long scaled = quarters * k.under;
    return scaled <= 4 * 70 * k.over ? 0 : scaled <= 4 * 95 * k.over ? 1 : 2;
}

std::int16_t ExpectedArea(long long xQuarters, long long yQuarters, const Ratio& k) {
    static constexpr std::int16_t Outer[3][3] = {{8, 1, 2}, {7, 0, 3}, {6, 5, 4}};
    const long long y = 4 * RoundedQuotient(yQuarters, 4);
    const long long centre = 4 * RoundedQuotient(165 * k.over, 2 * k.under);
    const long long distance = (xQuarters - centre) * (xQuarters - centre) + (y - centre) * (y - centre);
    const auto within = [&](long long radiusQuarters) {
        return distance * k.under * k.under <= radiusQuarters * radiusQuarters * k.over * k.over;
    };
    if (within(110)) {
        return 17;
    }
    if (!within(330)) {
        return 0;
    }
    const std::size_t column = Third(xQuarters, k);
    const std::size_t row = column == 1 ? (y * k.under <= 330 * k.over ? 0 : 2) : Third(y, k);
    return static_cast<std::int16_t>(Outer[row][column] + (within(202) ? 8 : 0));
}

// Compares a whole picture, pointer by pointer, a quarter of a pixel apart. How often each area was met.
std::array<int, 18> Compare(long long side) {
    std::array<int, 18> met{};
    const Ratio k{side, 165};
    const PadView view{static_cast<double>(side), 15, 15};
    for (long long y = 0; y <= 4 * side; ++y) {
        for (long long x = 0; x <= 4 * side; ++x) {
            const QPointF pointer(static_cast<double>(x) / 4, static_cast<double>(y) / 4);
            const std::int16_t area = PadArea(pointer, view);
            if (area != ExpectedArea(x, y, k)) {
                ADD_FAILURE() << "side " << side << " at " << pointer.x() << ", " << pointer.y() << ": "
                              << area << " for " << ExpectedArea(x, y, k);
                return met;
            }
            ++met.at(static_cast<std::size_t>(area));
        }
    }
    return met;
}

TEST(PadAreasTest, EveryQuarterPixelOfThePictureBelongsToItsArea) {
    const std::array<int, 18> met = Compare(165);
    for (std::size_t area = 0; area < met.size(); ++area) {
        EXPECT_GT(met.at(area), 500) << area;
    }
}

TEST(PadAreasTest, AtOtherSizesEveryQuarterPixelBelongsToItsAreaToo) {
    for (long long side = 66; side <= 330; side += 11) {
        Compare(side);
    }
    for (const long long side : {1, 107, 164, 166, 247, 412, 660}) {
        Compare(side);
    }
}

// A display with another number of units to a pixel has more or fewer pixels for the same pad.
TEST(PadAreasTest, OnDisplaysOfOtherScalesEveryPixelBelongsToItsArea) {
    for (const long long units : {12, 20, 30, 10, 6}) {
        for (const long long side : {107, 165, 330}) {
            const long long quartersToAPixel = 60 / units;
            const Ratio k{side * quartersToAPixel, 165 * 4};
            const auto unitsPerPixel = static_cast<double>(units);
            const PadView view{static_cast<double>(side), unitsPerPixel, unitsPerPixel};
            for (long long y = 0; y <= side; ++y) {
                for (long long x = 0; x <= side; ++x) {
                    const QPointF pointer(static_cast<double>(x), static_cast<double>(y));
                    ASSERT_EQ(PadArea(pointer, view),
                              ExpectedArea(x * quartersToAPixel, y * quartersToAPixel, k))
                        << units << " units, side " << side << ", at " << x << ", " << y;
                }
            }
        }
    }
}

TEST(PadAreasTest, WherePixelsAreNotSquareTheWheelStaysRoundToTheEye) {
    const PadView square{165, 15, 15};
    const PadView flat{165, 15, 7.5};
    for (int y = 1; y < 165; y += 3) {
        for (int x = 1; x < 165; x += 3) {
            // The centre is 82 on the one and 82.5 on the other.
            const std::int16_t area = PadArea(QPointF(x, y), flat);
            EXPECT_TRUE(area == PadArea(QPointF(x, y), square) ||
                        area == PadArea(QPointF(x, y - 1), square) ||
                        area == PadArea(QPointF(x, y + 1), square))
                << x << ", " << y << ": " << area;
        }
    }
}

// ---- By hand ----

std::int16_t At(double x, double y) { return PadArea(QPointF(x, y), PadView{}); }

TEST(PadAreasTest, APressExactlyOnARadiusOf27Point5FromTheCentreIsArea17) {
    EXPECT_EQ(At(109.5, 82), 17);
    EXPECT_EQ(At(54.5, 82), 17);
    EXPECT_EQ(At(109.5625, 82), 11);
    EXPECT_EQ(At(54.4375, 82), 15);
}

TEST(PadAreasTest, APressAtARadiusOf82Point6IsNoArea) {
    EXPECT_EQ(At(164.5, 82), 3) << "82.5";
    EXPECT_EQ(At(164.6, 82), 0);
    EXPECT_EQ(At(82, 165), 0);
    EXPECT_EQ(At(0, 0), 0);
    EXPECT_EQ(At(165, 165), 0);
}

TEST(PadAreasTest, TheInnerRingEndsWithARadiusOf50Point5) {
    EXPECT_EQ(At(132.5, 82), 11);
    EXPECT_EQ(At(132.5625, 82), 3);
    EXPECT_EQ(At(31.5, 82), 15);
    EXPECT_EQ(At(31.4375, 82), 7);
}

// 82.5 goes down to 82, the even one.
TEST(PadAreasTest, TheCentreIsRoundedToTheEvenPixel) {
    EXPECT_EQ(At(82, 0), 1) << "82 up";
    EXPECT_EQ(At(82, 164), 5) << "82 down";
    EXPECT_EQ(At(82, 165), 0) << "83 down";
    EXPECT_EQ(At(164.5, 82), 3);
    EXPECT_EQ(At(-0.5, 82), 7);
    // With 247.5 the even one lies above: a wheel of 495 pixels.
    const PadView large{495, 15, 15};
    EXPECT_EQ(PadArea(QPointF(495.5, 248), large), 3);
    EXPECT_EQ(PadArea(QPointF(495.75, 248), large), 0);
    EXPECT_EQ(PadArea(QPointF(0.25, 248), large), 0);
}

TEST(PadAreasTest, YIsRoundedToTheEvenPixelAndXIsNot) {
    // The bar's upper limit is 70, its lower one 95; both are part of what lies above.
    EXPECT_EQ(At(20, 70.5), 8) << "70";
    EXPECT_EQ(At(20, 70.5625), 7) << "71";
    EXPECT_EQ(At(20, 71.5), 7) << "72";
    EXPECT_EQ(At(20, 95.4375), 7) << "95";
    EXPECT_EQ(At(20, 95.5), 6) << "96";
    EXPECT_EQ(At(70, 20), 8);
    EXPECT_EQ(At(70.0625, 20), 1);
    EXPECT_EQ(At(95, 20), 1);
    EXPECT_EQ(At(95.0625, 20), 2);
}

TEST(PadAreasTest, EverySectorHasItsNumberOnBothRings) {
    struct Case {
        double x;
        double y;
        std::int16_t area;
    };
    for (const auto& [x, y, area] :
         {Case{82, 15, 1}, Case{130, 35, 2}, Case{150, 82, 3}, Case{130, 130, 4}, Case{82, 150, 5},
          Case{35, 130, 6}, Case{15, 82, 7}, Case{35, 35, 8}, Case{82, 45, 9}, Case{108, 56, 10},
          Case{120, 82, 11}, Case{108, 108, 12}, Case{82, 120, 13}, Case{56, 108, 14}, Case{45, 82, 15},
          Case{56, 56, 16}, Case{82, 82, 17}}) {
        EXPECT_EQ(At(x, y), area) << x << ", " << y;
    }
}

// ---- What an area does ----

struct Told {
    const char* name;
    const char* help;
    std::vector<PadMove> moves;
};

// Axis 1 is Y; sign 1 subtracts.
const std::array<Told, 18> AllAreas{{
    {"", "", {}},
    {"Outer top", "Mirror Y +10", {{1, 0, 10}}},
    {"Outer upper right", "Mirror Y +10, X -10", {{1, 0, 10}, {0, 1, 10}}},
    {"Outer right", "Mirror X -10", {{0, 1, 10}}},
    {"Outer lower right", "Mirror Y -10, X -10", {{1, 1, 10}, {0, 1, 10}}},
    {"Outer bottom", "Mirror Y -10", {{1, 1, 10}}},
    {"Outer lower left", "Mirror Y -10, X +10", {{1, 1, 10}, {0, 0, 10}}},
    {"Outer left", "Mirror X +10", {{0, 0, 10}}},
    {"Outer upper left", "Mirror Y +10, X +10", {{1, 0, 10}, {0, 0, 10}}},
    {"Inner top", "Mirror Y +1", {{1, 0, 1}}},
    {"Inner upper right", "Mirror Y +1, X -1", {{1, 0, 1}, {0, 1, 1}}},
    {"Inner right", "Mirror X -1", {{0, 1, 1}}},
    {"Inner lower right", "Mirror Y -1, X -1", {{1, 1, 1}, {0, 1, 1}}},
    {"Inner bottom", "Mirror Y -1", {{1, 1, 1}}},
    {"Inner lower left", "Mirror Y -1, X +1", {{1, 1, 1}, {0, 0, 1}}},
    {"Inner left", "Mirror X +1", {{0, 0, 1}}},
    {"Inner upper left", "Mirror Y +1, X +1", {{1, 0, 1}, {0, 0, 1}}},
    {"Centre", "Mirror to the centre", {}},
}};

TEST(PadAreasTest, EveryAreaMovesNoOtherWayThanItsOwnWithYBeforeX) {
    for (std::int16_t area = 0; area <= 17; ++area) {
        EXPECT_EQ(PadMoves(area), AllAreas.at(static_cast<std::size_t>(area)).moves) << area;
    }
}

TEST(PadAreasTest, EveryAreaHasANameAndSaysWhatItDoes) {
    for (std::int16_t area = 1; area <= 17; ++area) {
        EXPECT_EQ(PadAreaName(area), QLatin1String(AllAreas.at(static_cast<std::size_t>(area)).name));
        EXPECT_EQ(PadAreaHelp(area), QLatin1String(AllAreas.at(static_cast<std::size_t>(area)).help));
    }
}

TEST(PadAreasTest, AnAreaBeyondTheTableIsAFailure) {
    for (const std::int16_t area : std::to_array<std::int16_t>({-1, 18, 32767, -32768})) {
        EXPECT_THROW(PadMoves(area), BoundsFailure) << area;
        EXPECT_THROW(PadAreaName(area), BoundsFailure) << area;
        EXPECT_THROW(PadAreaHelp(area), BoundsFailure) << area;
    }
    EXPECT_THROW(PadAreaName(0), BoundsFailure);
    EXPECT_THROW(PadAreaHelp(0), BoundsFailure);
}

}  // namespace
}  // namespace travo::test
