#include "workbench/window/PlanHand.h"

#include <QByteArray>
#include <algorithm>
#include <cmath>
#include <sstream>

#include "workbench/world/World.h"

namespace workbench {

namespace {

int Within(double count) {
    return static_cast<int>(
        std::lround(std::clamp(count, static_cast<double>(LowestCount), static_cast<double>(HighestCount))));
}

int ToTen(int count) {
    constexpr double ten = 10.0;
    return Within(std::round(count / ten) * ten);
}

}  // namespace

NeedleCounts DraggedAlong(const NeedleCounts& began, const QPointF& direction, const QPointF& from,
                          const QPointF& to) {
    NeedleCounts counts = began;
    counts.x = Within(began.x + QPointF::dotProduct(to - from, direction));
    return counts;
}

NeedleCounts DraggedUp(const NeedleCounts& began, double units) {
    NeedleCounts counts = began;
    counts.z = Within(began.z - units);
    return counts;
}

NeedleCounts Coarse(const NeedleCounts& counts) {
    return {ToTen(counts.x), ToTen(counts.y), ToTen(counts.z)};
}

std::string MoveLine(int needle, const NeedleCounts& counts) {
    return "world move " + std::to_string(needle) + " " + std::to_string(counts.x) + " " +
           std::to_string(counts.y) + " " + std::to_string(counts.z);
}

std::string AimLine(int needle, const Place& place) {
    // By Qt, since the desk's own language may write numbers with a comma.
    const auto number = [](double value) { return " " + QByteArray::number(value, 'f', 3).toStdString(); };
    return "world aim " + std::to_string(needle) + number(place.x) + number(place.y) + number(place.z);
}

bool CountsOf(const std::string& answer, NeedleCounts& counts) {
    std::istringstream words(answer);
    std::string ok;
    NeedleCounts read;
    if (!(words >> ok >> read.x >> read.y >> read.z) || ok != "ok") {
        return false;
    }
    counts = read;
    return true;
}

}  // namespace workbench
