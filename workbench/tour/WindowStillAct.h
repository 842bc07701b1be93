// The operator with the still of the bird's-eye view.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Needs the bird's-eye view open at 0.35x. Opens and closes its lower panel and leaves it open, takes the
// window by its corner to WholeSize, has the camera save a still beside the centre, lines it up by a shift,
// and works the bars. Leaves the shift, the bars at neutral and the view beside the centre.
void PlayWindowStillAct(Stage& stage);

}  // namespace workbench::tour
