// The live camera, opened from the user panel.
#pragma once

#include "workbench/tour/PanelPlay.h"

namespace workbench::tour {

// Needs a session bus that can start the camera program. Leaves it closed. Raises ActFailure at the first
// finding that is not as it should be.
void PlayPanelCameraAct(PanelPlay& play);

}  // namespace workbench::tour
