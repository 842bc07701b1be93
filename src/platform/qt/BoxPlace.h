// Where a box opens that must not hide what it asks about.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace travo::platform::qt {

// The place of the upper left corner of a box of that size, its frame included, on a screen: to the right of
// what it asks about, else to the left, below or above, the first place where the screen has room for all of
// it. Where there is none, the one that hides least. Device-independent pixels.
QPoint BoxPlace(const QSize& box, const QRect& asked, const QRect& screen);

}  // namespace travo::platform::qt
