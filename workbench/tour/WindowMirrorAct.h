// The operator at the windows of mirror, focus and magnification.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Need the mirror's two windows open, motors on, 0.35x. The first switches objectives and motors by button
// and by hand and tries the pad where it must not move; leaves 2x and motors on. The second, which needs
// that, presses the pad in all its areas; leaves the mirror at its centre. The third presses the focus
// buttons and leaves the focus where it was.
void PlayWindowMagnificationAct(Stage& stage);
void PlayWindowPadAct(Stage& stage);
void PlayWindowFocusAct(Stage& stage);

}  // namespace workbench::tour
