// When a window has come before the operator's eyes.
#pragma once

#include <QWidget>
#include <chrono>
#include <functional>

namespace travo {

// Calls the procedure once, from the event loop: when the window has been painted for the first time from
// now on, with all that lies in it, but after the time at the latest, since a window that comes up minimised
// is not painted. Not at all where the window ends before.
void CallAfterFirstPaint(QWidget& window, std::chrono::milliseconds atTheLatest,
                         std::function<void()> procedure);

}  // namespace travo
