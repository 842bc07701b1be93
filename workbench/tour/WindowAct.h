// The tour's fifth act: the operator at the small windows.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// On a workbench begun anew; plays on the real main window and its windows, with the ports in the settings,
// and then on the real program. Raises ActFailure at the first finding that is not as it should be.
void PlayWindowAct(Stage& stage);

}  // namespace workbench::tour
