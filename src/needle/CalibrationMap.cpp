#include "needle/CalibrationMap.h"

#include <cmath>

namespace travo {

namespace {

using Vector = std::array<double, 3>;

// The vectors that four points span, in manipulator counts.
struct Measured {
    Vector center;  // the place of the view's centre: between the apex and the middle of the base
    Vector x;       // along the base of the triangle
    Vector y;       // from the apex towards the base, at twice its length
    Vector z;       // along the focus axis
};

Measured Measure(const CalibrationMap::Points& points) {
    Measured measured;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const std::int32_t apex = points[0][axis];
        const std::int32_t base = Sum(points[2][axis], points[1][axis]);
        measured.center[axis] = (base / 2.0 + apex) / 2.0;
        measured.x[axis] = Difference(points[2][axis], points[1][axis]);
        measured.y[axis] = Difference(base, Product(2, apex));
        measured.z[axis] = Difference(points[3][axis], apex);
    }
    return measured;
}

// Whether the base of the triangle was measured in the direction in which common X runs.
bool RunsWithCommonX(const Measured& measured) {
    const Vector& x = measured.x;
    const Vector& y = measured.y;
    const Vector& z = measured.z;
    // Not quite a cross product: the third component has the opposite sign, and the test below is
    // made for that.
    const Vector handedness{y[2] * x[1] - y[1] * x[2], x[2] * y[0] - y[2] * x[0], x[1] * y[0] - y[1] * x[0]};
    double largest = 0.0;
    std::size_t dominant = 0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double distance = std::fabs(handedness[axis] - z[axis]);
        if (largest < distance) {
            largest = distance;
            dominant = axis;
        }
    }
    return handedness[dominant] * z[dominant] <= 0.0;
}

void Normalise(CalibAxis& vector) {
    const Vector& raw = vector.Raw;
    const double norm = Finite(std::sqrt(raw[0] * raw[0] + raw[1] * raw[1] + raw[2] * raw[2]));
    for (std::size_t axis = 0; axis < 3; ++axis) {
        vector.Unit[axis] = norm == 0.0 ? 0.0 : raw[axis] / norm;
    }
}

void StoreQuotients(CalibAxis& vector, const Vector& cofactors, double determinant) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        vector.Inverse[axis] = Finite(cofactors[axis] / determinant);
    }
}

}  // namespace

void CalibrationMap::Calculate(const Points& points) {
    Measured measured = Measure(points);
    ManiDirect = RunsWithCommonX(measured);
    if (!ManiDirect) {
        for (double& component : measured.x) {
            component *= -1.0;
        }
    }
    CalibAxisX.Raw = measured.x;
    CalibAxisY.Raw = measured.y;
    CalibAxisZ.Raw = measured.z;
    ManiCenter = measured.center;
    Normalise(CalibAxisX);
    Normalise(CalibAxisY);
    Normalise(CalibAxisZ);
    Invert();
}

double CalibrationMap::Determinant() const {
    const Vector& x = CalibAxisX.Unit;
    const Vector& y = CalibAxisY.Unit;
    const Vector& z = CalibAxisZ.Unit;
    // Whether it is exactly zero decides, so the order of its terms counts.
    return y[2] * x[1] * z[0] + y[1] * x[0] * z[2] + y[0] * x[2] * z[1] - y[2] * x[0] * z[1] -
           y[0] * x[1] * z[2] - y[1] * x[2] * z[0];
}

void CalibrationMap::Invert() {
    const double determinant = Determinant();
    if (determinant == 0.0) {
        CalibAxisX.Inverse = CalibAxisY.Inverse = CalibAxisZ.Inverse = Vector{};
        return;
    }
    const Vector& x = CalibAxisX.Unit;
    const Vector& y = CalibAxisY.Unit;
    const Vector& z = CalibAxisZ.Unit;
    StoreQuotients(CalibAxisX,
                   {z[2] * y[1] - z[1] * y[2], z[1] * x[2] - z[2] * x[1], x[1] * y[2] - x[2] * y[1]},
                   determinant);
    StoreQuotients(CalibAxisY,
                   {z[0] * y[2] - z[2] * y[0], z[2] * x[0] - z[0] * x[2], x[2] * y[0] - x[0] * y[2]},
                   determinant);
    StoreQuotients(CalibAxisZ,
                   {z[1] * y[0] - z[0] * y[1], z[0] * x[1] - z[1] * x[0], x[0] * y[1] - x[1] * y[0]},
                   determinant);
}

}  // namespace travo
