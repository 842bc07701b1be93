// Where things truly are: the common frame of the simulated workstation, X to the right in the
// picture, Y down in the picture, Z up, in common units.
#pragma once

#include <array>

#include "core/ground/Positions.h"

namespace workbench {

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>;  // rows
using PlanPoint = std::array<double, 2>;

Vector operator+(const Vector& a, const Vector& b);
Vector operator-(const Vector& a, const Vector& b);
Vector operator*(double factor, const Vector& a);
Vector operator*(const Matrix& matrix, const Vector& a);
Matrix Transposed(const Matrix& matrix);

// How a manipulator stands on the table. Angles in degrees.
struct Mount {
    double heading = 45.0;  // direction of the shaft in plan view, from X towards Y
    double yaw = 0.0;       // error of the heading
    double tilt = 0.0;      // the shaft dips by this, below the horizontal when positive
    Vector offset{};        // T: the tip, in common units, when all counts are 0
};

// The rotation A of tip = T + A * counts, one count being one common unit. Column 0 is the shaft's
// direction: X counts advance the needle along it. Without tilt, A is a half turn about a horizontal
// axis, [[cos, sin, 0], [sin, -cos, 0], [0, 0, -1]]: its own inverse, Z counting downward.
Matrix Rotation(const Mount& mount);

// The tip in the common frame for counts, which may lie between whole ones.
Vector TipOf(const Mount& mount, const Vector& counts);

// The counts, with their fractions, that bring the tip to a place of the common frame.
Vector CountsFor(const Mount& mount, const Vector& tip);

// Counts as the hardware takes them: to the nearest whole ones.
travo::PositionXYZ Whole(const Vector& counts);
Vector Exact(const travo::PositionXYZ& counts);

// A shaft as it is seen from above: from the tip to the point with manipulator X = 0.
struct Shaft {
    PlanPoint tip{};
    PlanPoint rear{};
};
Shaft ShaftOf(const Mount& mount, const Vector& counts);

// The centre of the view in plan, from mirror counts: X = -5 x, Y = -12500 tan(0.023 degree * y).
PlanPoint ViewCentreOf(double mirrorX, double mirrorY);

// The distance of two places, in common units.
double DistanceOf(const Vector& a, const Vector& b);

}  // namespace workbench
