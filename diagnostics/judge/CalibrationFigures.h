// What the four recorded points of a needle tell about its calibration, in numbers.
#pragma once

#include "needle/CalibrationMap.h"

namespace travo::diagnostics {

// The marks of the camera picture in common units, and the raise by which the fourth point is recorded. A
// camera program with other marks needs other ones here.
struct CalibrationMarks {
    static constexpr double Base = 160.0;
    static constexpr double TwiceTheHeight = 240.0;
    static constexpr double Raise = 100.0;
};

// Two marks that fit better when they are taken for one another.
enum class ExchangedMarks { None, AAndB, AAndC };

// X is the vector along the base of the triangle, Y twice that from its apex to the middle of the base, Z the
// raise. Nothing is rounded.
struct CalibrationFigures {
    double lengthX = 0.0;  // manipulator counts, as all lengths
    double lengthY = 0.0;
    double lengthZ = 0.0;
    // A length is 0 or the map has no inverse: nothing below is computed.
    bool isFlat = false;
    double heightToBase = 0.0;  // Y over X, 1.5 for the marks
    double ratio = 0.0;         // the same over that of the marks: 1 is right
    double angleXY = 0.0;       // degrees, 90 is right
    double angleXZ = 0.0;
    double angleYZ = 0.0;
    bool isRightHanded = false;
    double ownMarks = 0.0;  // by how much the map misses a mark that it was made of, at most; common units
    double thereAndBack = 0.0;  // the largest difference of an axis over +-900, whole common units
    ExchangedMarks exchanged =
        ExchangedMarks::None;  // what would fit, whatever the points are like as they stand
};

// Points that are too far apart for the map, which raises OverflowFailure for them, count as flat: the
// program has no map for them either.
CalibrationFigures MeasureCalibration(const CalibrationMap::Points& points);

}  // namespace travo::diagnostics
