// The operator at the connection panel.
#pragma once

#include "workbench/tour/PanelPlay.h"

namespace workbench::tour {

// Connects the three ports of a program that knows none on their real wires; leaves 2x set. Raises ActFailure
// at the first finding that is not as it should be.
void PlayPanelConnectAct(PanelPlay& play);

}  // namespace workbench::tour
