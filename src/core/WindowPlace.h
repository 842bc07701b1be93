// Place and size of a window as the settings file keeps them.
#pragma once

#include <QString>
#include <cstdint>

#include "core/clsIniEdit.h"

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

}  // namespace travo
