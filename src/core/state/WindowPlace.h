// Place and size of a window as the settings file keeps them.
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>
#include <cstdint>

#include "core/state/clsIniEdit.h"

namespace travo {

// Logical units (15 to the pixel). Top and Left are the frame's place, Width and Height the inner size.
struct WindowPlace {
    std::int16_t Top = 0;
    std::int16_t Left = 0;
    std::int16_t Width = 0;
    std::int16_t Height = 0;
};

// A size in logical units.
struct WindowSize {
    std::int16_t Width = 0;
    std::int16_t Height = 0;
};

// Reads a window's section. What is missing or below 0 gives 0 for the place and the default for the
// size. Raises OverflowFailure for a stored value beyond 16 bits.
WindowPlace ReadWindowPlace(const clsIniEdit& ini, const QString& section, const WindowSize& defaultSize);

// A place as it is measured at closing, in logical units.
struct MeasuredWindowPlace {
    float Top = 0;
    float Left = 0;
    float Height = 0;
    float Width = 0;
};

// Writes a window's section, bounded to 32767 so that the next start can read it.
void WriteWindowPlace(clsIniEdit& ini, const QString& section, const MeasuredWindowPlace& place);

// The place nearest to the given frame at which all of it, or at least its top left corner, is on one of
// the screens. A frame that overlaps a screen by at least a title's height and width stays where it is;
// without screens every place is as good as any other. Pixels.
QPoint OntoScreen(const QRect& frame, const QList<QRect>& screens);

}  // namespace travo
