// The operator with the still of the bird's-eye view.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Needs the bird's-eye view open at 0.35x. Opens its lower panel, takes the window by its corner to
// WholeSize, has the camera save a still beside the centre and lines it up by a shift. Leaves the shift and
// the view beside the centre.
void PlayWindowStillAct(Stage& stage);

}  // namespace workbench::tour
