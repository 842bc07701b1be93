// The objectives, by the index that the mirror controller reports and the camera is told.
#pragma once

#include <cstdint>

namespace travo {

enum MagnificationIndex : std::int16_t {
    NoMagnification = 0,  // before any report
    Magnification035x = 1,
    Magnification2x = 2,
    Magnification4x = 3
};

}  // namespace travo
