// What goes wrong on wires: cut lines, pulled cables, noise; the program goes on.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Goes on where the second act has left the program, and closes it. Raises ActFailure at the first
// finding that is not as it should be.
void PlayWireFaultAct(Stage& stage);

}  // namespace workbench::tour
