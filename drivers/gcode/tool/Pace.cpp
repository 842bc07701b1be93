#include "drivers/gcode/tool/Pace.h"

#include <algorithm>

#include "drivers/TravoDriver.h"
#include "drivers/gcode/Numbers.h"

namespace gcode {

namespace {

constexpr double CountsPerSecond = TRAVO_DRIVER_COUNTS_PER_MS * 1000.0;
constexpr int JogCounts = 50;

FedMove Move(const NeedleSettings& needle, const MachineLimits& limits, std::size_t axis, int counts) {
    Millimetres to{};
    to[axis] = counts / needle.countsPerMm;
    return Feed({}, to, counts / CountsPerSecond, limits);
}

}  // namespace

Pace PaceOf(const NeedleSettings& needle, const MachineLimits& limits, std::size_t axis) {
    Pace pace;
    const FedMove whole = Move(needle, limits, axis, TRAVO_DRIVER_HIGHEST_COUNT);
    pace.isFastEnough = whole.isInTime;
    pace.wholeTravel = whole.duration;
    pace.jogLate =
        std::max(0.0, (Move(needle, limits, axis, JogCounts).duration - JogCounts / CountsPerSecond) * 1000);
    if (whole.isInTime) {
        // What is in time stays so for every longer way: the ramps cost the same, and there is more to gain.
        int late = 0;
        int inTime = TRAVO_DRIVER_HIGHEST_COUNT;
        while (inTime - late > 1) {
            const int middle = (late + inTime) / 2;
            (Move(needle, limits, axis, middle).isInTime ? inTime : late) = middle;
        }
        pace.inTimeFrom = inTime;
    }
    return pace;
}

std::string PaceText(const NeedleSettings& needle, const MachineLimits& limits, std::size_t axis) {
    const Pace pace = PaceOf(needle, limits, axis);
    std::string text = std::string{"XYZ"[axis]} + ": " + Fixed(limits.speed[axis], 2) + " mm/s, " +
                       Fixed(limits.acceleration[axis], 0) + " mm/s²: ";
    if (pace.isFastEnough) {
        text += "fast enough, in time from " + std::to_string(pace.inTimeFrom) + " counts on";
    } else {
        text += "too slow: 25000 counts take " + Fixed(pace.wholeTravel, 2) +
                " s, waited for are 6.25 s; needed are more than " +
                Fixed(CountsPerSecond / needle.countsPerMm, 2) + " mm/s";
    }
    return pace.jogLate > 0 ? text + "; a jog of 50 counts is " + Fixed(pace.jogLate, 0) + " ms late" : text;
}

}  // namespace gcode
