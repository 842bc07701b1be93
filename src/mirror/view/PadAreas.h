// The areas of the round pad: where the pointer meets them, what they are called and which way they move.
#pragma once

#include <QPointF>
#include <QString>
#include <cstdint>
#include <vector>

namespace travo {

// Areas are numbered 1 to 8 on the outer ring and 9 to 16 on the inner one, each clockwise from the top.
constexpr std::int16_t NoPadArea = 0;
constexpr std::int16_t PadCentre = 17;
constexpr std::int16_t PadAreaCount = 17;
// Side of the pad's picture in design pixels; its wheel touches all four sides.
constexpr std::int16_t PadSide = 165;

// How the pad stands on the screen.
struct PadView {
    double side = PadSide;  // of the square picture at present, in device-independent pixels
    // Logical units of the display to a pixel, 15 on an ordinary one; above 0.
    double unitsPerPixelHorizontal = 15;
    double unitsPerPixelVertical = 15;
};

// The area, 0 to 17, under a pointer that stands at `pointer` in device-independent pixels from the
// picture's left upper corner. The pointer's Y and the pad's centre count in whole pixels of the display,
// ties to even; its X counts with its fraction.
std::int16_t PadArea(const QPointF& pointer, const PadView& view);

// One step of the mirror: axis 0 is X, 1 is Y; sign 0 adds, 1 subtracts; in the mirror controller's counts.
struct PadMove {
    std::int16_t Index;
    std::int16_t Sign;
    std::int32_t MoveAmount;

    bool operator==(const PadMove&) const = default;
};

// The steps of an area in their order: 10 on the outer ring, 1 on the inner one, Y before X. The right
// side of the pad lowers X. None for the centre and for no area; BoundsFailure outside 0 to 17.
std::vector<PadMove> PadMoves(std::int16_t area);

// What people call an area of 1 to 17, as in "Outer upper right"; BoundsFailure for any other.
QString PadAreaName(std::int16_t area);

// What a press of it does, for people: "Mirror Y +10, X -10", or "Mirror to the centre". Bounds as before.
QString PadAreaHelp(std::int16_t area);

}  // namespace travo
