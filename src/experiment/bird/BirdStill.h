// Contrast and brightness of the bird's-eye view's still.
#pragma once

#include <cstdint>

#include "core/state/modBitmapData.h"

namespace travo {

// Makes a grey picture from the red channel of `BirdRaw`: with p the red byte and
//     k = tan((contrast + 256) / 512 * 3.14159265358979 / 2)
// the value convert(convert((p - 128) * k + 128) + brightness), held within 0 to 255, stands in all three
// colour bytes of the same pixel of `BirdDisplay`, whose fourth byte stays. `convert` goes to nearest with
// ties to even; it has no limit of 32 bits here, since the clamp follows. A contrast of 0 gives k = 1, one
// of -256 gives 0, and towards 256 k grows beyond all bounds: there all but p = 128 becomes 0 or 255.
// BoundsFailure, with nothing changed, unless both buffers have the same bounds.
void ContrastAndBrightness(const PixelBuffer& BirdRaw, PixelBuffer& BirdDisplay, std::int32_t brightness,
                           std::int32_t contrast);

}  // namespace travo
