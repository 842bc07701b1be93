// What needles that are not perfect cost: landings with each imperfection once.
#pragma once

#include "workbench/tour/CalibrationPlay.h"

namespace workbench::tour {

// Sends needle 1 to the first three stored cells with noise, backlash, drift and a bent tip in turn, each of
// which has come after the calibration, and prints how far from the cells it truly lands; there is no limit.
// Needs what PlayCalibratedLandings leaves behind: cells stored, needles retreated, the experiment panel on
// show. ActFailure where a needle does not set out, or does not retreat when it is perfect again.
void PlayImperfectLandings(PanelPlay& play);

}  // namespace workbench::tour
