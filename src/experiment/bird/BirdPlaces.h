// Where the markers of the bird's-eye view stand on its canvas.
#pragma once

#include <cstdint>

#include "core/ground/Positions.h"

namespace travo {

// The canvas in pixels, each side, and the pixel of position 0 of the common frame on both axes.
inline constexpr std::int32_t CanvasSize = 756;
inline constexpr std::int32_t CanvasCentre = 378;
inline constexpr double PixelsPerUnit = 0.42;
// Corner of the view mark before the view's place is known: the centre less half of the small cross.
inline constexpr float ViewStart = 366.5F;
// From the corner of a needle's marker to the middle of its shape, on both axes.
inline constexpr std::int32_t NeedleMarkerCentre = 9;
// From the corner of a cell's marker to the middle of its cross. In the left-handed variant the cross
// stands further right by CellShift.
inline constexpr std::int32_t CellMarkerCentreX = 9;
inline constexpr std::int32_t CellMarkerCentreY = 18;
inline constexpr std::int32_t CellShift = 16;
// A cell beyond this X is drawn left-handed: a marker's width from the canvas's edge.
inline constexpr std::int32_t CellRightMost = CanvasSize - 34;

// All places are canvas pixels from the canvas's top left corner. Corners of markers are whole numbers but
// for ViewStart; roots are not. Before its first reading a needle stands at the corner with shape 0.
struct BirdNeedle {
    std::int16_t intNeedleShape = 0;  // 0 above the focus, 1 below, 2 level with it
    float sngNeedleX = 0;             // corner of the marker
    float sngNeedleY = 0;
    float sngRootX = 0;  // the far end of the shaft
    float sngRootY = 0;
};

struct BirdCell {
    bool bCellSet = false;
    float sngCellX = 0;  // corner of the marker
    float sngCellY = 0;
    // The corner is shifted by CellShift, so the left-handed marker belongs there. The corner alone does
    // not tell: 698 to 713 come about both ways.
    bool bCellLeftHanded = false;
};

struct BirdView {
    float sngViewX = ViewStart;  // corner of the mark
    float sngViewY = ViewStart;
};

// `NeedleXYZ` and `OriNeedle`, the shaft's far end, in the common frame, `CurrentXYZ` in the mirror frame:
// its Z is the focus, and one that is not set counts as 0. No position fails, out to both ends of 32 bits.
BirdNeedle NeedlePlace(const PositionXYZ& NeedleXYZ, const PositionXYZ& CurrentXYZ,
                       const PositionXYZ& OriNeedle);

// `CurrentXYZ` in the mirror frame. Both 0 where X or Y is not set. The offset from the view's middle goes
// by the magnification (1 is 0.35x, 2 is 2x, 3 is 4x, 0 not known): half the size of the mark for it.
// OverflowFailure where MirrorToCommon raises it: |X| above 429 496 729, or Y an odd multiple of 90000,
// where the tilt stands at a right angle. No position that a mirror can report is one of them.
BirdView ViewPlace(const PositionXYZ& CurrentXYZ, std::int16_t intBirdMagnification);

// `CellXYZ` in the mirror frame. The record says that the cell is set. Fails as ViewPlace does; a value
// that is not set counts as it stands.
BirdCell CellPlace(const PositionXYZ& CellXYZ);

}  // namespace travo
