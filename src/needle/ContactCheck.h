// Whether two needle shafts touch in plan view: exact integer geometry without state.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/ground/Positions.h"

namespace travo {

// The ends of a shaft. The rear is where the needle's own X axis reaches manipulator X = 0.
enum ShaftEnd : std::size_t { Tip = 0, Rear = 1 };

// A needle as a straight segment in the X-Y plane of the common frame, by axis (0 X, 1 Y) and end.
using Shaft = std::array<std::array<std::int32_t, 2>, 2>;

// A point of that plane.
struct PlanPoint {
    std::int32_t x;
    std::int32_t y;
};

// How far a moving needle is taken to go beyond its target, on each axis, in common units.
inline constexpr std::int32_t SweptMargin = 30;
// Two shafts whose tips and whose rears are less than this apart in X count as touching, in common units.
inline constexpr std::int32_t NearlyCoincident = 25;

// The shaft between two points of the common frame. Their Z is not looked at.
Shaft PlanShaft(const PositionXYZ& tip, const PositionXYZ& rear);

// The target shaft pushed by the margin in the direction of travel, on each axis and at each end by
// itself; not pushed where target and present shaft are equal. Raises OverflowFailure.
Shaft SweptShaft(const Shaft& ShaftNow, const Shaft& ShaftTarget);

// On which side of the directed line from p to q the point r lies: the sign of the negated cross
// product of q - p and r - p, 0 on the line. OverflowFailure when a step of it does not fit 32 bits,
// which factors of 46341 are enough for.
std::int16_t Side(PlanPoint p, PlanPoint q, PlanPoint r);

// True when the segments a-b and c-d cross at a point inside both. An end that lies on the other line is
// no crossing. Always looks at all four sides, so it raises OverflowFailure whatever the first ones say.
bool Crossing(PlanPoint a, PlanPoint b, PlanPoint c, PlanPoint d);

// True when a contact is possible between a needle that moves from ShaftNow to ShaftSwept and one that
// stands at ShaftOther: the tip's path, the present shaft or the swept one cuts the other, or the swept
// one nearly coincides with it in X. The first of these that holds ends the check. Raises OverflowFailure.
bool NeedleCrossCheck(const Shaft& ShaftNow, const Shaft& ShaftSwept, const Shaft& ShaftOther);

}  // namespace travo
