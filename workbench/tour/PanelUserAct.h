// The operator at the user panel: stand-offs, safeguards, and the two ways of working.
#pragma once

#include "workbench/tour/PanelPlay.h"

namespace workbench::tour {

// Leaves both stand-offs at 0, the offset minimum off, the contact check on, and the tabs on show. Raises
// ActFailure at the first finding that is not as it should be.
void PlayPanelUserAct(PanelPlay& play);

}  // namespace workbench::tour
