#include "diagnostics/words/Ages.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace travo::diagnostics {

QString AgoText(double seconds) {
    const double past = std::max(0.0, seconds);
    if (past < 10.0) {
        return QString::asprintf("%.1f s ago", std::floor(past * 10.0) / 10.0);
    }
    if (past < 60.0) {
        return QString::asprintf("%.0f s ago", std::floor(past));
    }
    if (past < 3600.0) {
        return QString::asprintf("%.0f min ago", std::floor(past / 60.0));
    }
    return QString::asprintf("%.0f h ago", std::floor(past / 3600.0));
}

QString NeedleCountText(int count) {
    constexpr std::array<const char*, 5> Words{"No needle", "One needle", "Two needles", "Three needles",
                                               "Four needles"};
    return QLatin1String(Words.at(static_cast<std::size_t>(std::clamp(count, 0, 4))));
}

}  // namespace travo::diagnostics
