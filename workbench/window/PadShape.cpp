#include "workbench/window/PadShape.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace workbench {

namespace {

// Of a pad with sides of 165: radii from its middle, and where its bars begin and end.
constexpr double DesignSide = 165;
constexpr double MiddleRadius = 27.5;
constexpr double InnerRadius = 50.5;
constexpr double OuterRadius = 82.5;
constexpr double BarFrom = 70;
constexpr double BarTo = 95;
constexpr int RingAreas = 8;
constexpr int OuterStep = 10;

struct Direction {
    const char* name;
    int x;
    int y;
};
constexpr std::array<Direction, RingAreas> Directions{{{"top", 0, 1},
                                                       {"upper right", -1, 1},
                                                       {"right", -1, 0},
                                                       {"lower right", -1, -1},
                                                       {"bottom", 0, -1},
                                                       {"lower left", 1, -1},
                                                       {"left", 1, 0},
                                                       {"upper left", 1, 1}}};

// 0 up to the bar's beginning, 1 up to its end, 2 beyond.
std::size_t Band(double value) { return value <= BarFrom ? 0 : value <= BarTo ? 1 : 2; }

int Sector(double x, double y) {
    constexpr std::array<int, 3> Left{8, 7, 6};
    constexpr std::array<int, 3> Right{2, 3, 4};
    if (Band(x) == 1) {
        return y <= OuterRadius ? 1 : 5;
    }
    return Band(x) == 0 ? Left.at(Band(y)) : Right.at(Band(y));
}

const Direction& DirectionOf(int ringArea) {
    return Directions.at(static_cast<std::size_t>((ringArea - 1) % RingAreas));
}

}  // namespace

int PadAreaAt(const QPointF& point, double side) {
    const double x = point.x() * DesignSide / side;
    const double y = point.y() * DesignSide / side;
    const double distance = std::hypot(x - OuterRadius, y - OuterRadius);
    if (distance <= MiddleRadius) {
        return PadMiddle;
    }
    if (distance <= InnerRadius) {
        return Sector(x, y) + RingAreas;
    }
    return distance <= OuterRadius ? Sector(x, y) : NoPadArea;
}

PadWay PadWayOf(int area) {
    if (area < 1 || area >= PadMiddle) {
        return {};
    }
    const int step = area <= RingAreas ? OuterStep : 1;
    const Direction& direction = DirectionOf(area);
    return {step * direction.x, step * direction.y};
}

QString PadAreaName(int area) {
    if (area == PadMiddle) {
        return QStringLiteral("Centre");
    }
    return (area <= RingAreas ? QStringLiteral("Outer ") : QStringLiteral("Inner ")) +
           QLatin1String(DirectionOf(area).name);
}

}  // namespace workbench
