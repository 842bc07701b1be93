#include "diagnostics/judge/CalibrationFigures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace travo::diagnostics {

namespace {

using Vector = std::array<double, 3>;

constexpr double RightRatio = CalibrationMarks::TwiceTheHeight / CalibrationMarks::Base;
// What marks that were exchanged must come to when they are taken the right way round.
constexpr double RatioOfExchanged = 0.05;
constexpr double LeanOfExchanged = 2.0;
constexpr int Reach = 900;
constexpr int Step = 300;

struct Vectors {
    Vector x;
    Vector y;
    Vector z;
};

double Dot(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

double Length(const Vector& a) { return std::sqrt(Dot(a, a)); }

Vector Cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Angle(const Vector& a, const Vector& b) {
    const double cosine = std::clamp(Dot(a, b) / (Length(a) * Length(b)), -1.0, 1.0);
    return std::acos(cosine) * 180.0 / std::numbers::pi;
}

Vectors VectorsOf(const CalibrationMap::Points& points) {
    Vectors vectors{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double apex = points[0][axis];
        const double left = points[1][axis];
        const double right = points[2][axis];
        vectors.x[axis] = right - left;
        vectors.y[axis] = right + left - 2.0 * apex;
        vectors.z[axis] = points[3][axis] - apex;
    }
    return vectors;
}

// The map without rounding and without its references: from a way in counts to a way in common units.
Vector Forward(const CalibrationMap& map, const Vector& way) {
    Vector common{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        common[axis] = way[0] * map.CalibAxisX.Unit[axis] + way[1] * map.CalibAxisY.Unit[axis] +
                       way[2] * map.CalibAxisZ.Unit[axis];
    }
    common[0] = map.ManiDirect ? common[0] : -common[0];
    return common;
}

Vector BackwardInWholeCounts(const CalibrationMap& map, const Vector& common) {
    const double x = map.ManiDirect ? common[0] : -common[0];
    Vector way{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        way[axis] =
            std::nearbyint(x * map.CalibAxisX.Inverse[axis] + common[1] * map.CalibAxisY.Inverse[axis] +
                           common[2] * map.CalibAxisZ.Inverse[axis]);
    }
    return way;
}

double LargestMissOfOwnMarks(const CalibrationMap& map, const CalibrationMap::Points& points,
                             const CalibrationFigures& figures) {
    const double half = figures.lengthX / 2.0;
    const double quarter = figures.lengthY / 4.0;
    const std::array<Vector, 4> wanted{Vector{0.0, -quarter, 0.0}, Vector{-half, quarter, 0.0},
                                       Vector{half, quarter, 0.0}, Vector{0.0, -quarter, figures.lengthZ}};
    double largest = 0.0;
    for (std::size_t point = 0; point < wanted.size(); ++point) {
        Vector way{};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            way[axis] = points[point][axis] - map.ManiCenter[axis];
        }
        Vector miss = Forward(map, way);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            miss[axis] -= wanted[point][axis];
        }
        largest = std::max(largest, Length(miss));
    }
    return largest;
}

double LargestDifferenceThereAndBack(const CalibrationMap& map) {
    double largest = 0.0;
    for (int x = -Reach; x <= Reach; x += Step) {
        for (int y = -Reach; y <= Reach; y += Step) {
            for (int z = -Reach; z <= Reach; z += Step) {
                const Vector place{double(x), double(y), double(z)};
                const Vector back = Forward(map, BackwardInWholeCounts(map, place));
                for (std::size_t axis = 0; axis < 3; ++axis) {
                    largest = std::max(largest, std::fabs(std::nearbyint(back[axis]) - place[axis]));
                }
            }
        }
    }
    return largest;
}

bool FitsExchanged(CalibrationMap::Points points, std::size_t with) {
    std::swap(points[0], points[with]);
    const Vectors vectors = VectorsOf(points);
    const double x = Length(vectors.x);
    const double y = Length(vectors.y);
    return x > 0.0 && y > 0.0 && std::fabs(y / x / RightRatio - 1.0) <= RatioOfExchanged &&
           std::fabs(Angle(vectors.x, vectors.y) - 90.0) <= LeanOfExchanged;
}

ExchangedMarks WhatFitsExchanged(const CalibrationMap::Points& points) {
    // Where both fit, the later one is named.
    if (FitsExchanged(points, 2)) {
        return ExchangedMarks::AAndC;
    }
    return FitsExchanged(points, 1) ? ExchangedMarks::AAndB : ExchangedMarks::None;
}

bool MakesMap(CalibrationMap& map, const CalibrationMap::Points& points) {
    try {
        map.Calculate(points);
    } catch (const OverflowFailure&) {
        return false;
    }
    return map.Determinant() != 0.0;
}

}  // namespace

CalibrationFigures MeasureCalibration(const CalibrationMap::Points& points) {
    const Vectors vectors = VectorsOf(points);
    CalibrationFigures figures;
    figures.lengthX = Length(vectors.x);
    figures.lengthY = Length(vectors.y);
    figures.lengthZ = Length(vectors.z);
    CalibrationMap map;
    figures.isFlat =
        std::min({figures.lengthX, figures.lengthY, figures.lengthZ}) == 0.0 || !MakesMap(map, points);
    if (figures.isFlat) {
        return figures;
    }
    figures.heightToBase = figures.lengthY / figures.lengthX;
    figures.ratio = figures.heightToBase / RightRatio;
    figures.angleXY = Angle(vectors.x, vectors.y);
    figures.angleXZ = Angle(vectors.x, vectors.z);
    figures.angleYZ = Angle(vectors.y, vectors.z);
    figures.isRightHanded = Dot(Cross(vectors.x, vectors.y), vectors.z) > 0.0;
    figures.ownMarks = LargestMissOfOwnMarks(map, points, figures);
    figures.thereAndBack = LargestDifferenceThereAndBack(map);
    figures.exchanged = WhatFitsExchanged(points);
    return figures;
}

}  // namespace travo::diagnostics
