// The operator at the calibration panel.
#pragma once

#include "workbench/tour/CalibrationPlay.h"

namespace workbench::tour {

// Needs 0.35x as a start leaves it: takes a picture of what the panel says to that. Leaves 2x set by the
// mirror's TEST.
void LookAtTheWarning(PanelPlay& play);
// Clears all calibrations, mounts the needles as told, and records each anew: four positions, SET, then the
// centre, SET. Needs 2x, focus and gauge at 0, needles pulled back and the camera on show; leaves the needles
// pulled back. What they are worth is seen after a restart, in the landings.
void PlayCalibrations(PanelPlay& play, const NeedleSettings& settings);

}  // namespace workbench::tour
