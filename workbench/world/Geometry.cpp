#include "workbench/world/Geometry.h"

#include <cmath>
#include <numbers>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

constexpr double Degree = std::numbers::pi / 180.0;
constexpr double MirrorStepY = 0.023 * Degree;

}  // namespace

Vector operator+(const Vector& a, const Vector& b) { return {a[0] + b[0], a[1] + b[1], a[2] + b[2]}; }

Vector operator-(const Vector& a, const Vector& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }

Vector operator*(double factor, const Vector& a) { return {factor * a[0], factor * a[1], factor * a[2]}; }

Vector operator*(const Matrix& matrix, const Vector& a) {
    Vector result{};
    for (std::size_t row = 0; row < 3; ++row) {
        result[row] = matrix[row][0] * a[0] + matrix[row][1] * a[1] + matrix[row][2] * a[2];
    }
    return result;
}

Matrix Transposed(const Matrix& matrix) {
    Matrix result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            result[column][row] = matrix[row][column];
        }
    }
    return result;
}

Matrix Rotation(const Mount& mount) {
    const double cosine = std::cos((mount.heading + mount.yaw) * Degree);
    const double sine = std::sin((mount.heading + mount.yaw) * Degree);
    const double level = std::cos(mount.tilt * Degree);
    const double dip = std::sin(mount.tilt * Degree);
    return {
        {{cosine * level, sine, -cosine * dip}, {sine * level, -cosine, -sine * dip}, {-dip, 0.0, -level}}};
}

Vector TipOf(const Mount& mount, const Vector& counts) { return mount.offset + Rotation(mount) * counts; }

Vector CountsFor(const Mount& mount, const Vector& tip) {
    return Transposed(Rotation(mount)) * (tip - mount.offset);
}

travo::PositionXYZ Whole(const Vector& counts) {
    return {travo::convert(counts[0]), travo::convert(counts[1]), travo::convert(counts[2])};
}

Vector Exact(const travo::PositionXYZ& counts) {
    return {static_cast<double>(counts[0]), static_cast<double>(counts[1]), static_cast<double>(counts[2])};
}

Shaft ShaftOf(const Mount& mount, const Vector& counts) {
    const Vector tip = TipOf(mount, counts);
    const Vector rear = TipOf(mount, {0.0, counts[1], counts[2]});
    return {{tip[0], tip[1]}, {rear[0], rear[1]}};
}

PlanPoint ViewCentreOf(double mirrorX, double mirrorY) {
    return {-5.0 * mirrorX, -12500.0 * std::tan(MirrorStepY * mirrorY)};
}

double DistanceOf(const Vector& a, const Vector& b) {
    const Vector apart = a - b;
    return std::hypot(apart[0], apart[1], apart[2]);
}

}  // namespace workbench
