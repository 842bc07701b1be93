// The two maps of one needle between its own manipulator frame and the common frame.
#pragma once

#include <array>
#include <cstdint>

#include "core/ground/Arithmetic.h"
#include "core/ground/Positions.h"

namespace travo {

// One of the three measured vectors of a needle, by axis. It stands as a column of the matrix from
// the manipulator frame to the common frame. The fields of all axes lie side by side, since the maps
// read them on every position read.
struct CalibAxis {
    std::array<double, 3> Raw{};      // as measured in manipulator counts, after the sign rule
    std::array<double, 3> Unit{};     // normalised to length one; zeros where Raw has no length
    std::array<double, 3> Inverse{};  // this vector's elements of the inverse matrix
};

// All arithmetic is double, in the order of the terms as they are written; results round to nearest
// with ties to even. OverflowFailure where a result does not fit 32 bits or is not finite. The maps
// allocate nothing. Zeros and unset values are no failure: an uncalibrated needle gives numbers.
class CalibrationMap {
public:
    static constexpr PositionXYZ Unset{NoPositionValue, NoPositionValue, NoPositionValue};

    // Manipulator positions of the four calibration points: 0 the apex of a triangle in the focal
    // plane, 1 and 2 its base corners, 3 the tip re-focused at point 0 with the objective raised.
    using Points = std::array<PositionXYZ, 4>;

    CalibAxis CalibAxisX;
    CalibAxis CalibAxisY;
    CalibAxis CalibAxisZ;
    // Reference point in the manipulator frame.
    std::array<double, 3> ManiCenter{};
    // True: common X runs with the measured X vector; false: against it.
    bool ManiDirect = false;

    // Reference point in the common frame; axis 0 to 2.
    const PositionXYZ& PosZero() const { return posZero_; }
    void PosZero(std::size_t axis, std::int32_t value) {
        posZero_[axis] = value;
        realPosZero_[axis] = value;
    }

    // Derives centre, handedness, vectors and both matrices from the points; PosZero stays. Overflows
    // of the integer sums are raised before anything is stored.
    void Calculate(const Points& points);
    // Fills the inverse elements from the unit vectors; zeros when these are linearly dependent.
    void Invert();
    // Of the unit vectors: 1 where they are orthogonal and direct, exactly 0 where there is no inverse.
    double Determinant() const;

    // Manipulator frame to common frame: one output axis, 0 to 2, or all three.
    std::int32_t ToCommon(std::size_t axis, const PositionXYZ& manipulator) const {
        const double sum = (manipulator[0] - ManiCenter[0]) * CalibAxisX.Unit[axis] +
                           (manipulator[1] - ManiCenter[1]) * CalibAxisY.Unit[axis] +
                           (manipulator[2] - ManiCenter[2]) * CalibAxisZ.Unit[axis];
        return convert(realPosZero_[axis] + (!ManiDirect && axis == 0 ? -sum : sum));
    }
    PositionXYZ ToCommon(const PositionXYZ& manipulator) const {
        return {ToCommon(0, manipulator), ToCommon(1, manipulator), ToCommon(2, manipulator)};
    }

    // Common frame to manipulator frame: one output axis, 0 to 2, or all three. The differences to
    // the reference point are 32-bit ones.
    std::int32_t ToManipulator(std::size_t axis, const PositionXYZ& common) const {
        // Taken the other way round, not negated: the two overflow at different values.
        const std::int32_t to = ManiDirect ? common[0] : posZero_[0];
        const std::int32_t from = ManiDirect ? posZero_[0] : common[0];
        const std::int32_t alongX = Difference(to, from);
        const std::int32_t alongY = Difference(common[1], posZero_[1]);
        const std::int32_t alongZ = Difference(common[2], posZero_[2]);
        return convert(alongX * CalibAxisX.Inverse[axis] + ManiCenter[axis] +
                       alongY * CalibAxisY.Inverse[axis] + alongZ * CalibAxisZ.Inverse[axis]);
    }
    PositionXYZ ToManipulator(const PositionXYZ& common) const {
        return {ToManipulator(0, common), ToManipulator(1, common), ToManipulator(2, common)};
    }

private:
    PositionXYZ posZero_ = Unset;
    // The same once more as the maps add it, to spare them a conversion.
    std::array<double, 3> realPosZero_{NoPositionValue, NoPositionValue, NoPositionValue};
};

}  // namespace travo
