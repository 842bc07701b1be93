// What the skinned controls tell assistive programs.
#pragma once

class QWidget;

namespace travo {

// Lets Qt ask us for the accessible face of our controls. A second call changes nothing.
// Buttons: role button (two-state: check box; a tab picture: page tab), checkable and checked as they are,
// a tab picture selectable, and selected while it shows its tab as the selected one;
// and the first action is Press, which does what a click of the mouse does, also on a two-state button.
// Scroll bars: role scroll bar with their value, actions Increase and Decrease. Pictures: role graphic.
// Windows (classes Form...): role window; panels: role pane, with the accessible name that their owner gives.
void InstallControlAccess();

// Makes a widget of a class that Qt takes for a filler, or for a window, a picture: role graphic. Its name
// and description stay. To be called before assistive programs can have met the widget.
void ShowAsPicture(QWidget& widget);

}  // namespace travo
