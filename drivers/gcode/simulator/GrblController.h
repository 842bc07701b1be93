// A simulated grbl 1.1.
#pragma once

#include <map>

#include "drivers/gcode/simulator/Controller.h"

namespace gcode {

class GrblController : public Controller {
public:
    // Idle at `at`, homed; travel is the length of each axis on the negative side of home, in mm.
    GrblController(const Millimetres& at, const MachineLimits& limits, const Millimetres& travel);

    void Restart(Time now) override;
    void RaiseAlarm(int number, Time now);
    void OpenDoor(Time now);
    // Of the settings that "$$" tells.
    void Set(int number, double value) { settings_[number] = value; }
    // What WPos is short of MPos.
    void SetWorkOffset(const Millimetres& offset);
    // As by "$SLP", "$C", "!": for tests of the states.
    void Enter(const std::string& state) { state_ = state; }

private:
    void TakeCommand(const std::string& line, Time now) override;
    bool TakeCharacter(char character, Time now) override;
    void Pass(Time now) override;
    void TellSettings(Time now);
    void TellStatus(Time now);
    void Jog(const std::string& line, Time now);

    std::map<int, double> settings_;
    Millimetres workOffset_{};
    int reportsToOffset_ = 0;
    // Empty while Idle or Jog, which the motors tell.
    std::string state_;
};

}  // namespace gcode
