// The operator looks where the bird's-eye view draws needles, cells and the view.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Needs the bird's-eye view at WholeSize, its lower panel open, 2x, all four needles pulled back, no cell
// set. Stores eight cells, brings the needles to places, looks at the picture in both sizes and prints how
// far each marker's middle is drawn from the true place. Leaves the window at its design size, the needles'
// lines hidden, the needles where they were brought last.
void PlayWindowMarkerAct(Stage& stage);

// How much of the four true shafts is drawn black, 0 to 1, the least of the four.
double ShaftsSeen(Stage& stage);

}  // namespace workbench::tour
