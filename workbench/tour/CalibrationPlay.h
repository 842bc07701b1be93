// What the parts of the calibration act share.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "workbench/live/LiveClient.h"
#include "workbench/tour/PanelPlay.h"

namespace workbench::tour {

// How a needle is mounted, and where the view stands while it is calibrated.
struct NeedleSetting {
    WorkbenchClient::Mount mount;
    std::array<std::int32_t, 2> mirror{};  // counts
};
using NeedleSettings = std::array<NeedleSetting, travo::NeedleCount>;

// "heading 120.0, yaw 0.0, tilt 1.0, calibrated at (200.0, 0.0, 0.0)", the last being the view's centre.
std::string SettingText(PanelPlay& play, const NeedleSetting& setting);

// Counts of a needle that is pulled back: out of every view and every other's way. The contact check takes
// two shafts for one whose tips and rears nearly share their X, wherever their Y, and the two needles from
// the left would do so, as would those from the right, if all were pulled back equally far.
constexpr travo::PositionXYZ PulledBack(std::int32_t needle) {
    return {needle % 2 == 0 ? 9500 : 9300, 12500, 12500};
}

// The joystick: takes a needle to counts and waits until it rests.
void SteerNeedle(PanelPlay& play, std::int32_t needle, const travo::PositionXYZ& counts);
// Waits until the 0.35x that every start asks for has come about and is known.
void WaitFor035x(PanelPlay& play);
// From there to 2x, by TEST of the mirror on the connection panel.
void SwitchTo2x(PanelPlay& play);
// The camera must show these marks, by their name in its state.
void RequireMarks(Stage& stage, live::LiveClient& camera, const std::string& overlay);

}  // namespace workbench::tour
