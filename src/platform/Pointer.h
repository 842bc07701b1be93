// The mouse pointer: one value for the whole screen and one for the main window, no stack.
#pragma once

namespace travo::platform {

enum class PointerShape { Default, Hourglass };

class Pointer {
public:
    virtual ~Pointer() = default;
    virtual void Screen(PointerShape shape) = 0;
    virtual void MainWindow(PointerShape shape) = 0;
};

}  // namespace travo::platform
