#include "workbench/world/ShaftContact.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace workbench {

namespace {

// Rounding leaves shafts that touch some 1e-11 units apart; a thousandth of a millionth of the
// travel is far below anything that can be set on a manipulator.
constexpr double TouchDistance = 1e-6;
// Shafts of 10 000 units that slant by less than this part by less than TouchDistance over their length.
constexpr double ParallelSine = 1e-10;

PlanPoint Minus(const PlanPoint& a, const PlanPoint& b) { return {a[0] - b[0], a[1] - b[1]}; }

double Cross(const PlanPoint& a, const PlanPoint& b) { return a[0] * b[1] - a[1] * b[0]; }

double Dot(const PlanPoint& a, const PlanPoint& b) { return a[0] * b[0] + a[1] * b[1]; }

PlanPoint Between(const PlanPoint& a, const PlanPoint& b, double share) {
    return {a[0] + share * (b[0] - a[0]), a[1] + share * (b[1] - a[1])};
}

Shaft At(const MovingShaft& shaft, double share) {
    return {Between(shaft.begin.tip, shaft.end.tip, share), Between(shaft.begin.rear, shaft.end.rear, share)};
}

// The point of the shaft that lies nearest.
PlanPoint Nearest(const Shaft& shaft, const PlanPoint& point) {
    const PlanPoint along = Minus(shaft.rear, shaft.tip);
    const double length = Dot(along, along);
    if (length == 0.0) {
        return shaft.tip;
    }
    const double share = std::clamp(Dot(Minus(point, shaft.tip), along) / length, 0.0, 1.0);
    return Between(shaft.tip, shaft.rear, share);
}

std::optional<PlanPoint> CrossingPoint(const Shaft& a, const Shaft& b) {
    const PlanPoint alongA = Minus(a.rear, a.tip);
    const PlanPoint alongB = Minus(b.rear, b.tip);
    const double slant = Cross(alongA, alongB);
    // Shafts on one line have no crossing point but a noise of rounding in place of it; whether they
    // touch is then a matter of their ends.
    if (std::abs(slant) <= ParallelSine * std::sqrt(Dot(alongA, alongA) * Dot(alongB, alongB))) {
        return std::nullopt;
    }
    const PlanPoint apart = Minus(b.tip, a.tip);
    const double shareA = Cross(apart, alongB) / slant;
    const double shareB = Cross(apart, alongA) / slant;
    if (shareA < 0.0 || shareA > 1.0 || shareB < 0.0 || shareB > 1.0) {
        return std::nullopt;
    }
    return Between(a.tip, a.rear, shareA);
}

struct Closest {
    double distance = 0.0;
    PlanPoint place{};
};

Closest ClosestOf(const Shaft& a, const Shaft& b) {
    if (const auto crossing = CrossingPoint(a, b)) {
        return {0.0, *crossing};
    }
    const std::array<std::pair<PlanPoint, PlanPoint>, 4> pairs = {{{a.tip, Nearest(b, a.tip)},
                                                                   {a.rear, Nearest(b, a.rear)},
                                                                   {b.tip, Nearest(a, b.tip)},
                                                                   {b.rear, Nearest(a, b.rear)}}};
    Closest closest{INFINITY, {}};
    for (const auto& [end, foot] : pairs) {
        const PlanPoint apart = Minus(end, foot);
        const double distance = std::hypot(apart[0], apart[1]);
        if (distance < closest.distance) {
            closest = {distance, end};
        }
    }
    return closest;
}

struct MovingPoint {
    PlanPoint begin;
    PlanPoint end;
};

// Adds the shares at which the point r stands on the line through p and q: the roots of the cross
// product of two vectors that each change evenly with time.
void AddCollinearShares(const MovingPoint& p, const MovingPoint& q, const MovingPoint& r,
                        std::vector<double>& shares) {
    const PlanPoint u = Minus(q.begin, p.begin);
    const PlanPoint v = Minus(r.begin, p.begin);
    const PlanPoint uChange = Minus(Minus(q.end, p.end), u);
    const PlanPoint vChange = Minus(Minus(r.end, p.end), v);
    const double square = Cross(uChange, vChange);
    const double linear = Cross(u, vChange) + Cross(uChange, v);
    const double constant = Cross(u, v);
    const auto add = [&shares](double share) {
        if (share > 0.0 && share < 1.0) {
            shares.push_back(share);
        }
    };
    const double discriminant = linear * linear - 4.0 * square * constant;
    if (discriminant < 0.0) {
        return;
    }
    // The stable form: the two terms of the sum have one sign.
    const double half = -0.5 * (linear + std::copysign(std::sqrt(discriminant), linear));
    if (half != 0.0) {
        add(constant / half);
    }
    if (square != 0.0) {
        add(half / square);
    }
}

// Adds the share at which two ends come nearest to each other. Shafts on one line have no other sign
// of the moment at which they touch.
void AddNearestShare(const MovingPoint& p, const MovingPoint& q, std::vector<double>& shares) {
    const PlanPoint apart = Minus(q.begin, p.begin);
    const PlanPoint change = Minus(Minus(q.end, p.end), apart);
    const double length = Dot(change, change);
    if (length > 0.0) {
        shares.push_back(std::clamp(-Dot(apart, change) / length, 0.0, 1.0));
    }
}

std::vector<double> SharesOfChange(const MovingShaft& a, const MovingShaft& b) {
    const MovingPoint aTip{a.begin.tip, a.end.tip};
    const MovingPoint aRear{a.begin.rear, a.end.rear};
    const MovingPoint bTip{b.begin.tip, b.end.tip};
    const MovingPoint bRear{b.begin.rear, b.end.rear};
    std::vector<double> shares = {0.0, 1.0};
    AddCollinearShares(aTip, aRear, bTip, shares);
    AddCollinearShares(aTip, aRear, bRear, shares);
    AddCollinearShares(bTip, bRear, aTip, shares);
    AddCollinearShares(bTip, bRear, aRear, shares);
    AddNearestShare(aTip, bTip, shares);
    AddNearestShare(aTip, bRear, shares);
    AddNearestShare(aRear, bTip, shares);
    AddNearestShare(aRear, bRear, shares);
    std::sort(shares.begin(), shares.end());
    return shares;
}

}  // namespace

double PlanDistance(const Shaft& a, const Shaft& b) { return ClosestOf(a, b).distance; }

std::vector<Meeting> MeetingsOf(const MovingShaft& a, const MovingShaft& b) {
    std::vector<Meeting> meetings;
    const std::vector<double> shares = SharesOfChange(a, b);
    bool open = false;
    // Between two neighbouring shares nothing changes, so its middle stands for all of it.
    const auto look = [&](double at, double from, double to) {
        const Closest closest = ClosestOf(At(a, at), At(b, at));
        const bool meets = closest.distance <= TouchDistance;
        if (meets && !open) {
            meetings.push_back({from, to, closest.place});
        } else if (meets) {
            meetings.back().to = to;
        }
        open = meets;
    };
    for (std::size_t i = 0; i < shares.size(); ++i) {
        look(shares[i], shares[i], shares[i]);
        if (i + 1 < shares.size() && shares[i] < shares[i + 1]) {
            look(0.5 * (shares[i] + shares[i + 1]), shares[i], shares[i + 1]);
        }
    }
    return meetings;
}

}  // namespace workbench
