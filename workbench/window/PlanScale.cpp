#include "workbench/window/PlanScale.h"

#include <algorithm>
#include <array>

namespace workbench {

namespace {

constexpr double GridAtLeast = 18.0;      // pixels
constexpr double ScaleBarAtLeast = 64.0;  // pixels

QPointF MiddleOf(const QSizeF& size) { return {size.width() / 2.0, size.height() / 2.0}; }

}  // namespace

QPointF PlanScale::Pixel(const QPointF& place) const { return MiddleOf(size) + (place - centre) * scale; }

QPointF PlanScale::PlaceAt(const QPointF& pixel) const { return centre + (pixel - MiddleOf(size)) / scale; }

PlanSight PlanScale::Sight() const { return {QRectF(PlaceAt({0.0, 0.0}), size / scale), scale}; }

PlanScale PlanScale::ZoomedAbout(const QPointF& pixel, double factor) const {
    const QPointF place = PlaceAt(pixel);
    PlanScale zoomed = *this;
    zoomed.scale = PlanScaleWithin(scale * factor);
    zoomed.centre = place - (pixel - MiddleOf(size)) / zoomed.scale;
    return zoomed;
}

PlanScale PlanScale::PannedBy(const QPointF& pixels) const {
    PlanScale panned = *this;
    panned.centre = centre - pixels / scale;
    return panned;
}

double PlanScaleWithin(double scale) { return std::clamp(scale, LeastPlanScale, MostPlanScale); }

double RoundStep(double scale, double least) {
    static constexpr std::array<double, 3> digits = {1.0, 2.0, 5.0};
    for (double decade = 1.0;; decade *= 10.0) {
        for (const double digit : digits) {
            if (digit * decade * scale >= least) {
                return digit * decade;
            }
        }
    }
}

double GridStep(double scale) { return RoundStep(scale, GridAtLeast); }

double ScaleBarLength(double scale) { return RoundStep(scale, ScaleBarAtLeast); }

}  // namespace workbench
