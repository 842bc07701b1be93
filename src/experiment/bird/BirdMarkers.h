// The bird's-eye view's markers as pairs of pictures: a mask that cuts the shape out, and the shape.
#pragma once

#include <QImage>
#include <QString>
#include <array>
#include <cstdint>

namespace travo {

// Laid on with AND (mask) and then XOR (picture), so that the ground shows around the shape. Both pictures
// are RGB32, of one size, one pixel to a pixel. The mask is pure black, where the shape and its keyline
// stand, on white; the picture is coloured on black. The fourth byte of the mask is 0xFF and that of the
// picture 0, so that the ground's own stays. Both are null where a file of the pair is missing or of no
// use: such a marker draws nothing.
struct BirdMarker {
    QImage mask;
    QImage picture;
};

class BirdMarkers {
public:
    static constexpr std::size_t NeedleMarkers = 12;
    static constexpr std::size_t CellMarkers = 16;
    static constexpr std::size_t ViewMarkers = 3;

    // The folder that holds the folder skin. Reads all 62 files, once; raises nothing.
    explicit BirdMarkers(const QString& programFolder);

    // 34 by 27, the shape's middle at 9, 9: tip up, tip down, disc, each for four needles. BoundsFailure
    // unless 0 to 11.
    const BirdMarker& Needle(int shapeTimes4PlusIndex) const;
    // 34 by 27: 0 to 7 are A to H with the cross's middle at 9, 18; 8 to 15 the same with the cross at
    // 25, 18. BoundsFailure for any other.
    const BirdMarker& Cell(int index0to15) const;
    // Magnification 2: the field at 2x, 102 by 76. 3: the field at 4x, 51 by 38. Any other: a cross, 23 by
    // 23.
    const BirdMarker& View(std::int16_t magnification) const;

private:
    std::array<BirdMarker, NeedleMarkers> needles_;
    std::array<BirdMarker, CellMarkers> cells_;
    std::array<BirdMarker, ViewMarkers> views_;
};

}  // namespace travo
