// The program is closed and started anew with its windows about the screen.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Needs all four windows open, the bird's-eye view's lower panel open, its lines hidden, the shift set and
// the camera open. Puts the windows about the screen, closes one, restarts, and finds all of that again;
// leaves the program running with all windows open, lines shown, at 0.35x.
void PlayWindowRestartAct(Stage& stage);

}  // namespace workbench::tour
