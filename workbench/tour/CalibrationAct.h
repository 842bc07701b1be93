// Fourth act: the operator calibrates all four needles, and finds the calibrations again.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Needs a workbench as it starts, and a session bus that can start the camera program; opens and closes the
// program. Raises ActFailure at the first finding that is not as it should be.
void PlayCalibrationAct(Stage& stage);

}  // namespace workbench::tour
