// Where places of the common frame lie on the plan, and the round numbers that go with a scale.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include "workbench/window/PlanSight.h"

namespace workbench {

// Scales in device-independent pixels a unit.
inline constexpr double LeastPlanScale = 0.02;
inline constexpr double MostPlanScale = 40.0;
// One notch of the wheel, one press of + or -.
inline constexpr double ZoomStep = 1.25;

struct PlanScale {
    QSizeF size;         // of the plan in pixels
    QPointF centre;      // the place in its middle, in common units
    double scale = 1.0;  // LeastPlanScale to MostPlanScale

    QPointF Pixel(const QPointF& place) const;
    QPointF PlaceAt(const QPointF& pixel) const;
    PlanSight Sight() const;
    // The same at another scale, within the limits; the place at that pixel stays where it is.
    PlanScale ZoomedAbout(const QPointF& pixel, double factor) const;
    // The same with all places moved by so many pixels.
    PlanScale PannedBy(const QPointF& pixels) const;

    bool operator==(const PlanScale&) const = default;
};

// Within the limits.
double PlanScaleWithin(double scale);
// Units between two lines of the grid: the smallest of 1, 2, 5, 10, ... that is at least 18 pixels.
double GridStep(double scale);
// Units that the scale bar tells: the smallest of 1, 2, 5, 10, ... that is at least 64 pixels.
double ScaleBarLength(double scale);
// The smallest of 1, 2, 5, 10, ... that is at least `least` at a scale above 0.
double RoundStep(double scale, double least);

}  // namespace workbench
