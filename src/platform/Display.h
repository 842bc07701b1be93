// The screen's measures.
#pragma once

namespace travo::platform {

class Display {
public:
    virtual ~Display() = default;
    // Logical units (1440 to the inch) for each pixel; 15 on an ordinary display.
    virtual double UnitsPerPixelVertical() const = 0;
    virtual double UnitsPerPixelHorizontal() const = 0;
};

}  // namespace travo::platform
