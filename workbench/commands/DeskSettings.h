// What the settings file of the desk holds beside calibrations and ports: where the control program's windows
// stand, which are open, and which stand-offs are set.
#pragma once

#include <string>

namespace workbench {

// Sections with lines ended by CR LF. For a screen of 1920 x 1200 with the workbench, 1280 x 860, in its
// right upper corner: the main window at the left of it, the small windows in the strip below it; on another
// screen the control program brings them back onto it. Camera, bird's-eye view and magnification are open,
// the others closed. Stand-offs: 0 in the plane, 100 in Z, the minimum on, as the contact check is.
std::string DeskSettingsText();

}  // namespace workbench
