// Which key works which control of the window, wherever the focus is.
#pragma once

#include <QString>
#include <cstdint>

class QKeyEvent;

namespace workbench {

struct WindowKey {
    enum class Does : std::uint8_t {
        Nothing,
        Press,      // the button `object`, at once
        Hold,       // the button `object`, while the key is held
        WheelUp,    // the focus wheel, while the key is held
        WheelDown,  //
        Longer,     // the next longer step of the joystick
        Shorter,    // the next shorter one
    };

    Does does = Does::Nothing;
    QString object;

    bool IsHeld() const { return does == Does::Hold || does == Does::WheelUp || does == Does::WheelDown; }
};

// Keys of the number block count as the others.
WindowKey KeyOf(const QKeyEvent& event);

}  // namespace workbench
