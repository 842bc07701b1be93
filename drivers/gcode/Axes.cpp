#include "drivers/gcode/Axes.h"

#include <cmath>
#include <limits>

namespace gcode {

Millimetres MachinePosition(const NeedleSettings& needle, const Counts& counts) {
    Millimetres machine = needle.zero;
    for (std::size_t own = 0; own < counts.size(); ++own) {
        const AxisChoice& choice = needle.axes[own];
        machine[choice.axis] += choice.sign * counts[own] / needle.countsPerMm;
    }
    return machine;
}

std::optional<Counts> NearestCounts(const NeedleSettings& needle, const Millimetres& machine) {
    Counts counts{};
    for (std::size_t own = 0; own < counts.size(); ++own) {
        const AxisChoice& choice = needle.axes[own];
        const double exact =
            std::round(choice.sign * (machine[choice.axis] - needle.zero[choice.axis]) * needle.countsPerMm);
        if (!(std::abs(exact) <= std::numeric_limits<std::int32_t>::max())) {
            return std::nullopt;
        }
        counts[own] = static_cast<std::int32_t>(exact);
    }
    return counts;
}

}  // namespace gcode
