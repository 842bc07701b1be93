#include "drivers/gcode/Feed.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace gcode {

namespace {

// The most that holds along the vector when each axis may have its share at most.
double AlongVector(const Millimetres& way, double length, const Millimetres& most) {
    double along = std::numeric_limits<double>::infinity();
    for (std::size_t axis = 0; axis < way.size(); ++axis) {
        if (way[axis] != 0) {
            along = std::min(along, most[axis] * length / std::abs(way[axis]));
        }
    }
    return along;
}

// Rounding of the last digits is no lateness: a nanosecond.
constexpr double Slack = 1e-9;

}  // namespace

double TravelTime(double length, double feed, double acceleration) {
    if (length <= 0) {
        return 0;
    }
    const bool reachesFeed = length * acceleration >= feed * feed;
    return reachesFeed ? length / feed + feed / acceleration : 2 * std::sqrt(length / acceleration);
}

FedMove Feed(const Millimetres& from, const Millimetres& to, double wanted, const MachineLimits& limits) {
    Millimetres way{};
    for (std::size_t axis = 0; axis < way.size(); ++axis) {
        way[axis] = to[axis] - from[axis];
    }
    const double length = std::hypot(way[0], way[1], way[2]);
    if (length == 0) {
        return {};
    }
    const double acceleration = AlongVector(way, length, limits.acceleration);
    const double mostFeed = AlongVector(way, length, limits.speed);
    // length / v + v / a = wanted, the smaller root; in this form nothing is lost where the ramps are short.
    const double square = wanted * wanted - 4 * length / acceleration;
    const double needed = square >= 0 ? 2 * length / (wanted + std::sqrt(square)) : mostFeed;
    const double feed = std::min(needed, mostFeed);
    const double duration = TravelTime(length, feed, acceleration);
    return {length, feed, duration, duration <= wanted + Slack};
}

}  // namespace gcode
