// What the round pad tells assistive programs.
#pragma once

#include <cstdint>

namespace travo {

// A control that is one picture of many areas.
class PadControl {
public:
    virtual ~PadControl() = default;
    // A press and release of an area of 1 to 17: nothing where a click of the mouse would not reach the pad.
    virtual void PressArea(std::int16_t area) = 0;
    // The area that is held down, 0 for none.
    virtual std::int16_t PressedArea() const = 0;
};

// Lets Qt ask us for the accessible face of the pad: role canvas, and one action for each area, named as
// the area, in the order of their numbers. A second call changes nothing.
void InstallPadAccess();

}  // namespace travo
