#include "experiment/bird/BirdPlaces.h"

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

// Never beyond 32 bits: the scale is below one half.
std::int32_t CanvasPixel(std::int32_t common, double offset) {
    return convert(common * PixelsPerUnit + CanvasCentre - offset);
}

float RootPixel(std::int32_t common) { return static_cast<float>(common * PixelsPerUnit + CanvasCentre); }

std::int16_t NeedleShape(std::int32_t needleZ, std::int32_t focusZ) {
    if (needleZ == focusZ) {
        return 2;
    }
    return needleZ < focusZ ? 1 : 0;
}

struct Offset {
    double x;
    double y;
};

// Half the size of the view mark.
Offset ViewOffset(std::int16_t magnification) {
    switch (magnification) {
        case 2:
            return {51, 38};
        case 3:
            return {25.5, 19};
        default:
            return {11.5, 11.5};
    }
}

}  // namespace

BirdNeedle NeedlePlace(const PositionXYZ& NeedleXYZ, const PositionXYZ& CurrentXYZ,
                       const PositionXYZ& OriNeedle) {
    BirdNeedle needle;
    needle.sngNeedleX = static_cast<float>(CanvasPixel(NeedleXYZ[0], NeedleMarkerCentre));
    needle.sngNeedleY = static_cast<float>(CanvasPixel(NeedleXYZ[1], NeedleMarkerCentre));
    needle.intNeedleShape = NeedleShape(NeedleXYZ[2], CurrentXYZ[2] == NoPositionValue ? 0 : CurrentXYZ[2]);
    needle.sngRootX = RootPixel(OriNeedle[0]);
    needle.sngRootY = RootPixel(OriNeedle[1]);
    return needle;
}

BirdView ViewPlace(const PositionXYZ& CurrentXYZ, std::int16_t intBirdMagnification) {
    if (CurrentXYZ[0] == NoPositionValue || CurrentXYZ[1] == NoPositionValue) {
        return {0, 0};
    }
    const PositionXYZ view = MirrorToCommon(CurrentXYZ);
    const Offset offset = ViewOffset(intBirdMagnification);
    return {static_cast<float>(CanvasPixel(view[0], offset.x)),
            static_cast<float>(CanvasPixel(view[1], offset.y))};
}

BirdCell CellPlace(const PositionXYZ& CellXYZ) {
    const PositionXYZ cell = MirrorToCommon(CellXYZ);
    const std::int32_t x = CanvasPixel(cell[0], 0);
    const std::int32_t y = CanvasPixel(cell[1], 0);
    BirdCell place;
    place.bCellSet = true;
    place.bCellLeftHanded = x > CellRightMost;
    place.sngCellX = static_cast<float>(x - CellMarkerCentreX - (place.bCellLeftHanded ? CellShift : 0));
    place.sngCellY = static_cast<float>(y - CellMarkerCentreY);
    return place;
}

}  // namespace travo
