// First act: needles on the driver alone, which then fails and comes back.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Raises ActFailure at the first finding that is not as it should be.
void PlayNeedleAct(Stage& stage);

}  // namespace workbench::tour
