// Third act: the operator at the panels of the real main window.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Needs a workbench as it starts and settings without ports; opens and closes the program. Raises ActFailure
// at the first finding that is not as it should be.
void PlayPanelAct(Stage& stage);

}  // namespace workbench::tour
