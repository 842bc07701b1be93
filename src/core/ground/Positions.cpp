#include "core/ground/Positions.h"

#include <cmath>

#include "core/ground/Arithmetic.h"

namespace travo {

std::int32_t MirrorXToCommon(std::int32_t mirrorX) { return convert(CommonUnitsPerMirrorX * mirrorX + 0.5); }

std::int32_t MirrorYToCommon(std::int32_t mirrorY) {
    return convert(CommonUnitsPerMirrorTangent * std::tan(mirrorY * MirrorStepTimesPi / 180.0) + 0.5);
}

PositionXYZ MirrorToCommon(const PositionXYZ& mirror) {
    return {MirrorXToCommon(mirror[0]), MirrorYToCommon(mirror[1]), mirror[2]};
}

}  // namespace travo
