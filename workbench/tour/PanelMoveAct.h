// The operator at the experiment panel: needles and view, one press at a time.
#pragma once

#include "workbench/tour/PanelPlay.h"

namespace workbench::tour {

// Sends every needle and the view to stored cells, and meets what the panel refuses. Needs cells A to H
// and stand-offs of 0. Raises ActFailure at the first finding that is not as it should be.
void PlayPanelMoveAct(PanelPlay& play);

}  // namespace workbench::tour
