// A simulated Marlin.
#pragma once

#include "drivers/gcode/simulator/Controller.h"

namespace gcode {

class MarlinController : public Controller {
public:
    // At rest at `at`; min and max are its software endstops.
    MarlinController(const Millimetres& at, const MachineLimits& limits, const Millimetres& min,
                     const Millimetres& max);

    void Restart(Time now) override;
    // A workspace offset, as of G92: coordinates that are not those of the steps.
    void SetOffset(const Millimetres& offset) { offset_ = offset; }
    // Stopped for good, as by a thermal fault: no command is answered.
    void Kill(Time now);
    void TellCount(bool tells) { tellsCount_ = tells; }
    // NO_MOTION_BEFORE_HOMING: moves are refused until G28.
    void AskForHoming(bool asks) { needsHoming_ = asks; }

private:
    void TakeCommand(const std::string& line, Time now) override;
    bool TakeCharacter(char, Time) override { return false; }
    void TellPosition(Time now);
    void TellSettings(Time now);
    void Move(const std::string& line, Time now);

    Millimetres stepsPerMm_{1600, 1600, 1600};
    Millimetres min_, max_;
    Millimetres offset_{};
    double feed_ = 1;  // mm/s
    bool isKilled_ = false;
    bool tellsCount_ = true;
    bool needsHoming_ = false;
    bool isRelative_ = false;
};

}  // namespace gcode
