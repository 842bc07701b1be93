// What the camera program has been told, and what it does about it.
#pragma once

#include <cstdint>

namespace workbench::live {

// The marks over the picture that lead the operator through a calibration.
enum class Overlay { None, Points, Z, Center };

struct LiveState {
    bool visible = false;
    Overlay overlay = Overlay::None;
    // Magnification index 0 to 3 as TRAVO has told it; 0 before. The picture goes by the true one.
    std::int16_t toldMagnification = 0;
    // Between the start and the end of an action that TRAVO's operator has started.
    bool action = false;
    bool attached = false;

    bool operator==(const LiveState&) const = default;
};

}  // namespace workbench::live
