// Second act: mirror, focus and gauge on their wires, and a zero point that all of them count from.
#pragma once

#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Raises ActFailure at the first finding that is not as it should be.
void PlaySerialAct(Stage& stage);

}  // namespace workbench::tour
