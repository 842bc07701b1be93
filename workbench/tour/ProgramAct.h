// The real program, as a process of its own: started, watched and closed.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Raises ActFailure at the first finding that is not as it should be.
void PlayProgramAct(Stage& stage);

}  // namespace workbench::tour
