// First act: needles on the driver alone, sent through contact check, maps and range check.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Raises ActFailure at the first finding that is not as it should be.
void PlayNeedleAct(Stage& stage);

}  // namespace workbench::tour
