#include "needle/ContactCheck.h"

#include "core/Arithmetic.h"

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
    const PlanPoint nowTip = End(ShaftNow, Tip);
    const PlanPoint nowRear = End(ShaftNow, Rear);
    const PlanPoint sweptTip = End(ShaftSwept, Tip);
    const PlanPoint sweptRear = End(ShaftSwept, Rear);
    const PlanPoint otherTip = End(ShaftOther, Tip);
    const PlanPoint otherRear = End(ShaftOther, Rear);
    return Crossing(nowTip, sweptTip, otherTip, otherRear) ||
           Crossing(nowTip, nowRear, otherTip, otherRear) ||
           Crossing(sweptTip, sweptRear, otherTip, otherRear) || NearlyCoincide(ShaftSwept, ShaftOther);
}

}  // namespace travo
