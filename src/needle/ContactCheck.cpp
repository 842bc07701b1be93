#include "needle/ContactCheck.h"

#include <algorithm>

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

PlanPoint End(const Shaft& shaft, ShaftEnd end) { return {shaft[0][end], shaft[1][end]}; }

std::int32_t WithMargin(std::int32_t now, std::int32_t target) {
    const std::int32_t travel = Difference(target, now);
    if (travel > 0) {
        return Sum(target, SweptMargin);
    }
    return travel < 0 ? Difference(target, SweptMargin) : target;
}

// In X alone: shafts that lie along one line give no crossing, and needles enter from different sides.
bool NearlyCoincide(const Shaft& swept, const Shaft& other) {
    const std::int32_t tips = AbsoluteValue(Difference(swept[0][Tip], other[0][Tip]));
    const std::int32_t rears = AbsoluteValue(Difference(swept[0][Rear], other[0][Rear]));
    return tips < NearlyCoincident && rears < NearlyCoincident;
}

// The four stages in their order, each step checked.
bool CheckedStages(const Shaft& now, const Shaft& swept, const Shaft& other) {
    const PlanPoint otherTip = End(other, Tip);
    const PlanPoint otherRear = End(other, Rear);
    return Crossing(End(now, Tip), End(swept, Tip), otherTip, otherRear) ||
           Crossing(End(now, Tip), End(now, Rear), otherTip, otherRear) ||
           Crossing(End(swept, Tip), End(swept, Rear), otherTip, otherRear) || NearlyCoincide(swept, other);
}

// True when no step of the check can leave 32 bits: a difference is at most the extent of all the ends, a
// product that of both extents, a sum twice that.
bool EveryStepFits(const Shaft& now, const Shaft& swept, const Shaft& other) {
    std::array<std::uint32_t, 2> extent{};
    for (std::size_t axis = 0; axis < 2; ++axis) {
        const auto [lowest, highest] = std::minmax({now[axis][Tip], now[axis][Rear], swept[axis][Tip],
                                                    swept[axis][Rear], other[axis][Tip], other[axis][Rear]});
        extent[axis] = static_cast<std::uint32_t>(highest) - static_cast<std::uint32_t>(lowest);
    }
    const auto [x, y] = extent;
    return x <= INT32_MAX && y <= INT32_MAX && std::uint64_t{x} * y <= INT32_MAX / 2;
}

std::int32_t UncheckedSide(PlanPoint p, PlanPoint q, PlanPoint r) {
    return (r.y - p.y) * (p.x - q.x) + (p.y - q.y) * (p.x - r.x);
}

// Negative when both sides are strict and differ.
std::int64_t Opposite(std::int32_t side, std::int32_t otherSide) { return std::int64_t{side} * otherSide; }

// The same stages where every step fits, all at once: which stage says yes makes no difference then, and
// the outcome of the single stages is too irregular for a jump at each.
bool UncheckedStages(const Shaft& now, const Shaft& swept, const Shaft& other) {
    const PlanPoint n0 = End(now, Tip);
    const PlanPoint n1 = End(now, Rear);
    const PlanPoint w0 = End(swept, Tip);
    const PlanPoint w1 = End(swept, Rear);
    const PlanPoint b0 = End(other, Tip);
    const PlanPoint b1 = End(other, Rear);
    const std::int32_t n0FromOther = UncheckedSide(b0, b1, n0);
    const std::int32_t n1FromOther = UncheckedSide(b0, b1, n1);
    const std::int32_t w0FromOther = UncheckedSide(b0, b1, w0);
    const std::int32_t w1FromOther = UncheckedSide(b0, b1, w1);
    const std::int64_t path = Opposite(n0FromOther, w0FromOther);
    const std::int64_t present = Opposite(n0FromOther, n1FromOther);
    const std::int64_t target = Opposite(w0FromOther, w1FromOther);
    if ((path | present | target) >= 0) {
        return NearlyCoincide(swept, other);  // the moving needle stays on one side of the other
    }
    const bool contact = ((path & Opposite(UncheckedSide(n0, w0, b0), UncheckedSide(n0, w0, b1))) |
                          (present & Opposite(UncheckedSide(n0, n1, b0), UncheckedSide(n0, n1, b1))) |
                          (target & Opposite(UncheckedSide(w0, w1, b0), UncheckedSide(w0, w1, b1)))) < 0;
    return contact || NearlyCoincide(swept, other);
}

}  // namespace

Shaft PlanShaft(const PositionXYZ& tip, const PositionXYZ& rear) {
    return {{{tip[0], rear[0]}, {tip[1], rear[1]}}};
}

Shaft SweptShaft(const Shaft& ShaftNow, const Shaft& ShaftTarget) {
    Shaft swept{};
    for (std::size_t axis = 0; axis < 2; ++axis) {
        for (const ShaftEnd end : {Tip, Rear}) {
            swept[axis][end] = WithMargin(ShaftNow[axis][end], ShaftTarget[axis][end]);
        }
    }
    return swept;
}

std::int16_t Side(PlanPoint p, PlanPoint q, PlanPoint r) {
    const std::int32_t first = Product(Difference(r.y, p.y), Difference(p.x, q.x));
    const std::int32_t second = Product(Difference(p.y, q.y), Difference(p.x, r.x));
    const std::int32_t doubledArea = Sum(first, second);
    return static_cast<std::int16_t>((doubledArea > 0) - (doubledArea < 0));
}

bool Crossing(PlanPoint a, PlanPoint b, PlanPoint c, PlanPoint d) {
    const int w0 = Side(a, b, c);
    const int w1 = Side(a, b, d);
    const int w2 = Side(c, d, a);
    const int w3 = Side(c, d, b);
    return w0 * w1 < 0 && w2 * w3 < 0;
}

bool NeedleCrossCheck(const Shaft& ShaftNow, const Shaft& ShaftSwept, const Shaft& ShaftOther) {
    return EveryStepFits(ShaftNow, ShaftSwept, ShaftOther) ? UncheckedStages(ShaftNow, ShaftSwept, ShaftOther)
                                                           : CheckedStages(ShaftNow, ShaftSwept, ShaftOther);
}

}  // namespace travo
