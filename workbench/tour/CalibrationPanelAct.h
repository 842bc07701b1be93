// The operator at the calibration panel.
#pragma once

#include "workbench/tour/CalibrationPlay.h"

namespace workbench::tour {

// Needs 0.35x as a start leaves it: meets the warning and the refusal. Leaves 2x set by the mirror's TEST.
void PlayMagnificationWarning(PanelPlay& play);
// Clears all calibrations, mounts the needles as told, and records each anew: four positions, SET, then the
// centre, SET. Needs 2x, focus and gauge at 0, needles pulled back and the camera on show; leaves the needles
// pulled back. ActFailure where the settings file does not hold what was recorded.
void PlayCalibrations(PanelPlay& play, const NeedleSettings& settings);

}  // namespace workbench::tour
