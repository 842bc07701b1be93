#include "drivers/gcode/simulator/Motion.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace gcode {

namespace {

double Seconds(Time time) { return std::chrono::duration<double>(time).count(); }

// Up, so that a leg is over when its end has come.
Time Duration(double seconds) { return Time(static_cast<Time::rep>(std::ceil(seconds * 1e6))); }

}  // namespace

void Motion::Push(const Millimetres& to, double feed, Time now) {
    Settle(now);
    const FedMove fastest = Feed(target_, to, std::numeric_limits<double>::min(), limits_);
    if (fastest.length == 0) {
        return;
    }
    Leg leg;
    leg.from = target_;
    leg.to = to;
    leg.length = fastest.length;
    leg.feed = std::min(feed, fastest.feed);
    leg.acceleration = std::numeric_limits<double>::infinity();
    for (std::size_t axis = 0; axis < to.size(); ++axis) {
        const double way = std::abs(to[axis] - target_[axis]);
        leg.acceleration = way > 0 ? std::min(leg.acceleration, limits_.acceleration[axis] * leg.length / way)
                                   : leg.acceleration;
    }
    leg.start = legs_.empty() ? now : legs_.back().end;
    leg.end = leg.start + Duration(TravelTime(leg.length, leg.feed, leg.acceleration));
    target_ = to;
    legs_.push_back(leg);
}

double Motion::SpeedAt(const Leg& leg, double seconds) {
    const double total = Seconds(leg.end - leg.start);
    if (leg.startSpeed > 0) {
        return std::max(0.0, leg.startSpeed - leg.acceleration * seconds);
    }
    return std::max(0.0,
                    std::min({leg.feed, leg.acceleration * seconds, leg.acceleration * (total - seconds)}));
}

double Motion::Travelled(const Leg& leg, double seconds) {
    const double acceleration = leg.acceleration;
    if (leg.startSpeed > 0) {
        const double time = std::min(seconds, leg.startSpeed / acceleration);
        return std::min(leg.length, leg.startSpeed * time - acceleration * time * time / 2);
    }
    const double total = TravelTime(leg.length, leg.feed, acceleration);
    const double ramp = std::min(leg.feed / acceleration, total / 2);
    const double left = total - seconds;
    if (left <= 0) {
        return leg.length;
    }
    if (seconds < ramp) {
        return acceleration * seconds * seconds / 2;
    }
    if (left < ramp) {
        return leg.length - acceleration * left * left / 2;
    }
    return acceleration * ramp * ramp / 2 + leg.feed * (seconds - ramp);
}

Millimetres Motion::Along(const Leg& leg, double way) {
    Millimetres at = leg.from;
    for (std::size_t axis = 0; axis < at.size(); ++axis) {
        at[axis] += leg.length > 0 ? (leg.to[axis] - leg.from[axis]) * way / leg.length : 0;
    }
    return at;
}

void Motion::Settle(Time now) {
    while (!legs_.empty() && legs_.front().end <= now) {
        at_ = legs_.front().to;
        legs_.pop_front();
    }
}

Millimetres Motion::At(Time now) {
    Settle(now);
    if (legs_.empty()) {
        return at_;
    }
    const Leg& leg = legs_.front();
    return Along(leg, Travelled(leg, Seconds(now - leg.start)));
}

void Motion::Hold(Time now) {
    Settle(now);
    if (legs_.empty() || legs_.front().startSpeed > 0) {
        legs_.resize(std::min<std::size_t>(legs_.size(), 1));
        target_ = legs_.empty() ? at_ : legs_.front().to;
        return;
    }
    const Leg& leg = legs_.front();
    const double gone = Travelled(leg, Seconds(now - leg.start));
    const double speed = SpeedAt(leg, Seconds(now - leg.start));
    const double ramp = std::min(speed * speed / (2 * leg.acceleration), leg.length - gone);
    Leg down;
    down.from = Along(leg, gone);
    down.to = Along(leg, gone + ramp);
    down.length = ramp;
    down.acceleration = leg.acceleration;
    down.startSpeed = speed;
    down.start = now;
    down.end = now + Duration(speed / leg.acceleration);
    target_ = down.to;
    at_ = down.from;
    legs_.clear();
    legs_.push_back(down);
}

void Motion::Halt(Time now) {
    at_ = At(now);
    target_ = at_;
    legs_.clear();
}

void Motion::Place(const Millimetres& at, Time now) {
    Halt(now);
    at_ = at;
    target_ = at;
}

bool Motion::IsMoving(Time now) {
    Settle(now);
    return !legs_.empty();
}

std::size_t Motion::Waiting(Time now) {
    Settle(now);
    return legs_.size();
}

Time Motion::Arrival(Time now) {
    Settle(now);
    return legs_.empty() ? now : legs_.back().end;
}

}  // namespace gcode
