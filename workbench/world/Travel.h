// A straight travel in time: what a motor stage does between two commands.
#pragma once

#include <chrono>

#include "workbench/world/Geometry.h"

namespace workbench {

// Time since the world began. The world has no clock: whoever calls says what time it is.
using Time = std::chrono::microseconds;

class Travel {
public:
    // At rest.
    explicit Travel(const Vector& at) : from_(at), to_(at) {}

    // Sets out for a place from wherever it is at that moment, along a straight line, so that the
    // axis with the longest way runs at the speed, in counts per ms, above 0.
    void SetOut(const Vector& to, double countsPerMillisecond, Time now);

    // Before its start it stands at the start, after its arrival at the target, exactly.
    Vector At(Time now) const;
    bool MovesAt(Time now) const { return now < arrival_; }
    const Vector& Target() const { return to_; }
    const Vector& Origin() const { return from_; }
    Time Start() const { return start_; }
    Time Arrival() const { return arrival_; }

private:
    Vector from_;
    Vector to_;
    Time start_{0};
    Time arrival_{0};
};

}  // namespace workbench
