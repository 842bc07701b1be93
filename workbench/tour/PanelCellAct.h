// The operator at the cell position panel.
#pragma once

#include "workbench/tour/PanelPlay.h"

namespace workbench::tour {

// Aims the view at eight places and stores them as A to H; puts them into the play. Raises ActFailure at
// the first finding that is not as it should be.
void PlayPanelCellAct(PanelPlay& play);

}  // namespace workbench::tour
