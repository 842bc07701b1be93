// A simulated Open Micro-Manipulator.
#pragma once

#include "drivers/gcode/simulator/Controller.h"

namespace gcode {

class OmmController : public Controller {
public:
    OmmController(const Millimetres& at, const MachineLimits& limits) : Controller(at, limits) {}

    void Restart(Time now) override;
    // Whether it has been homed since it was started, and whether M57 tells it.
    void SetHomed(bool isHomed) { isHomed_ = isHomed; }
    void TellHomed(bool tells) { tellsHomed_ = tells; }
    // Its planner takes no more.
    void SetBusy(bool isBusy) { isBusy_ = isBusy; }

private:
    void TakeCommand(const std::string& line, Time now) override;
    bool TakeCharacter(char, Time) override { return false; }
    void Move(const std::string& line, Time now);

    bool isHomed_ = true;
    bool tellsHomed_ = true;
    bool isBusy_ = false;
};

}  // namespace gcode
