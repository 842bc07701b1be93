// Writes the settings file of a system whose needles have been calibrated on the workbench.
#pragma once

#include <array>
#include <span>
#include <string>

#include "workbench/world/World.h"

namespace workbench {

// The marks of the picture stand this far from the view's centre, in common units: the apex
// MarkDistanceY above it, the base corners MarkDistanceY below it and MarkDistanceX to the left and
// to the right. The order left, right and "apex above" makes the calibration right-handed.
inline constexpr double MarkDistanceX = 80.0;
inline constexpr double MarkDistanceY = 60.0;
// The objective is raised by this for the fourth point, in Z units.
inline constexpr double ObjectiveRaise = 100.0;

// The view at which a calibration is made.
struct CalibrationView {
    std::int32_t mirrorX = 0;
    std::int32_t mirrorY = 0;
    std::int32_t focusZ = 0;  // reading of the gauge times 1000: common Z of the focal plane
};

// What an operator records for one needle.
struct NeedleCalibration {
    std::array<travo::PositionXYZ, 4> points{};  // counts: apex, left, right, apex refocused
    travo::PositionXYZ zero{};                   // common frame: the view's centre
    travo::PositionXYZ centre{};                 // counts: the tip on the view's centre
};

// The tip on each mark, as whole counts. travo::BoundsFailure where a mark is out of reach.
NeedleCalibration CalibrationOf(const Mount& mount, const CalibrationView& view);

// What stands in the file beside the calibrations.
enum class SettingsWish {
    Calibrations,          // both offsets 0
    CalibrationsAndPorts,  // and the numbers of the ports
    Desk,                  // the ports, and all that the desk begins with: see DeskSettings.h
};

// The text of the settings file, lines ended by CR LF: what is wished for, and for needle 0, 1, ... its
// calibration with time and re-calibration time. The time is a text of the form "yy/mm/dd    hh:mm".
std::string SettingsText(std::span<const NeedleCalibration> calibrations, const std::string& time,
                         SettingsWish wish = SettingsWish::Calibrations);

// Writes the file whole, in the code page Windows-1252, of which the text uses the plain letters only:
// an older file is replaced in one step. std::system_error where that cannot be done.
void WriteSettings(const std::string& path, const std::string& text);

}  // namespace workbench
