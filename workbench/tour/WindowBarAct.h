// The operator at the bars of the bird's-eye view.
#pragma once

#include "workbench/tour/WindowLandmark.h"

namespace workbench::tour {

// Needs WholeSize, the landmark drawn as it was taken, bars at neutral. Drags brightness and contrast, looks
// at every pixel of the still, and leaves both at neutral.
void PlayWindowBarAct(Stage& stage, const Landmark& landmark);

}  // namespace workbench::tour
