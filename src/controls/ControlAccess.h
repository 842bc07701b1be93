// What the skinned controls tell assistive programs.
#pragma once

namespace travo {

// Lets Qt ask us for the accessible face of our controls. A second call changes nothing.
// Buttons: role button (two-state: check box; a tab picture: page tab), checkable and checked as they are,
// and the first action is Press, which does what a click of the mouse does, also on a two-state button.
// Scroll bars: role scroll bar with their value, actions Increase and Decrease. Pictures: role graphic.
// Windows (classes Form...): role window; panels: role pane.
void InstallControlAccess();

}  // namespace travo
