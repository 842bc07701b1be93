// What the calibrations are worth: needles sent to cells and back by escape, seen from the world.
#pragma once

#include <cstdint>

#include "workbench/tour/CalibrationPlay.h"

namespace workbench::tour {

// Records the escape positions where the needles stand, stores so many cells, A first, at most eight, and
// sends every needle to every cell and back by escape. Needs 2x, the needles pulled back, stand-offs of 0 and
// a program that has read all needles. ActFailure where a needle does not come back to where it truly stood,
// and, with a limit on landing, where one misses a cell by more than PanelLandingGoal; all misses are
// printed.
void PlayCalibratedLandings(PanelPlay& play, std::int32_t cells, bool limited);

}  // namespace workbench::tour
