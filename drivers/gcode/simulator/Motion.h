// The motors of a simulated machine: straight lines from rest to rest, one after the other, with ramps. Time
// is passed in; it never runs backwards.
#pragma once

#include <deque>

#include "drivers/gcode/Feed.h"
#include "drivers/gcode/Units.h"

namespace gcode {

class Motion {
public:
    // At rest at `at`, in mm.
    Motion(const Millimetres& at, const MachineLimits& limits) : at_(at), target_(at), limits_(limits) {}

    // One more line, behind those that wait, at this feed along the vector in mm/s or slower.
    void Push(const Millimetres& to, double feed, Time now);
    // Ends with a ramp, and forgets what waits.
    void Hold(Time now);
    // Ends without a ramp, and forgets what waits.
    void Halt(Time now);
    // At rest somewhere else.
    void Place(const Millimetres& at, Time now);

    Millimetres At(Time now);
    bool IsMoving(Time now);
    // Lines that are not finished.
    std::size_t Waiting(Time now);
    // Where the last line ends.
    const Millimetres& Target() const { return target_; }
    // When it is at rest, if nothing more comes; the present where it is.
    Time Arrival(Time now);

private:
    struct Leg {
        Millimetres from{}, to{};
        double length = 0, feed = 0, acceleration = 0;
        double startSpeed = 0;  // above 0 for a ramp down, which has no other part
        Time start{0}, end{0};
    };
    void Settle(Time now);
    static double Travelled(const Leg& leg, double seconds);
    static double SpeedAt(const Leg& leg, double seconds);
    static Millimetres Along(const Leg& leg, double way);

    Millimetres at_;
    Millimetres target_;
    MachineLimits limits_;
    std::deque<Leg> legs_;
};

}  // namespace gcode
