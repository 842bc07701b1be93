// What the real program takes of the processor with all its windows open.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Needs the settings as PlayWindowRestartAct's program leaves them when it is closed. Starts the real
// program, watches it idle and in a working session, each for 10 s, and ends it.
void PlayWindowProgramAct(Stage& stage);

}  // namespace workbench::tour
