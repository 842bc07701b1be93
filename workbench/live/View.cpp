#include "workbench/live/View.h"

#include <algorithm>
#include <cmath>

#include "workbench/world/Microscope.h"

namespace workbench::live {

namespace {

// The cone of light behind the objective: blur in common units for each unit of distance.
constexpr double BlurPerDistance = 0.12;
// Distances that nobody can see.
constexpr double DepthOfField = 2.0;
constexpr double LargestBlur = 40.0;  // pixels

}  // namespace

QSizeF FieldOf(const WorkbenchClient::CameraState* scene, std::int16_t toldMagnification) {
    if (scene != nullptr && scene->fieldOfView[0] > 0.0) {
        return {scene->fieldOfView[0], scene->fieldOfView[1]};
    }
    const bool known = toldMagnification >= 1 && toldMagnification <= HighestMagnification;
    const std::array<double, 2> field = FieldOfView(known ? toldMagnification : 1);
    return {field[0], field[1]};
}

double BlurRadius(double distance, double pixelsPerUnit) {
    const double beyond = std::max(0.0, std::abs(distance) - DepthOfField);
    return std::min(LargestBlur, beyond * BlurPerDistance * pixelsPerUnit);
}

}  // namespace workbench::live
