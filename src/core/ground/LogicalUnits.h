// Logical units, in which places and sizes of windows are kept and the pad's and the edges' geometry is told.
#pragma once

#include <cmath>

namespace travo {

// To a device-independent pixel, on an ordinary display; 1440 to the inch.
inline constexpr int LogicalUnitsPerPixel = 15;

// For the main window: a pixel that is only begun does not count, so that a size that was stored on another
// display never grows.
constexpr int PixelsWithin(int units) { return units / LogicalUnitsPerPixel; }

// For the small windows, which come back where they stood: the nearest pixel.
inline int NearestPixels(int units) {
    return static_cast<int>(std::lround(static_cast<double>(units) / LogicalUnitsPerPixel));
}

// Exact up to 2^24 units, which no screen has.
constexpr float UnitsOf(int pixels) { return static_cast<float>(pixels * LogicalUnitsPerPixel); }

}  // namespace travo
