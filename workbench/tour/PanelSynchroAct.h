// The synchronised mode of the experiment panel: a needle follows the view.
#pragma once

#include "workbench/tour/PanelPlay.h"

namespace workbench::tour {

// Needs stand-offs of 0. Raises ActFailure at the first finding that is not as it should be.
void PlayPanelSynchroAct(PanelPlay& play);

}  // namespace workbench::tour
