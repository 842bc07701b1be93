#include "workbench/commands/SettingsWriter.h"

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <system_error>

#include "core/ground/Arithmetic.h"
#include "workbench/commands/DeskSettings.h"

namespace workbench {

namespace {

void Line(std::string& text, const std::string& key, const std::string& value) {
    text += key + "=" + value + "\r\n";
}

void Section(std::string& text, const std::string& name) { text += "[" + name + "]\r\n"; }

void NeedleSection(std::string& text, std::size_t needle, const NeedleCalibration& calibration,
                   const std::string& time) {
    Section(text, "Manipulator Calibration:" + std::to_string(needle));
    for (std::size_t point = 0; point < calibration.points.size(); ++point) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            Line(text, "Index:" + std::to_string(point) + ",XYZ:" + std::to_string(axis),
                 std::to_string(calibration.points[point][axis]));
        }
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        Line(text, "ZERO,XYZ:" + std::to_string(axis), std::to_string(calibration.zero[axis]));
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        Line(text, "Center,XYZ:" + std::to_string(axis), std::to_string(calibration.centre[axis]));
    }
    Line(text, "Time", time);
    Line(text, "ReTime", time);
}

travo::PositionXYZ ReachableCounts(const Mount& mount, const Vector& place) {
    const travo::PositionXYZ counts = Whole(CountsFor(mount, place));
    for (const std::int32_t count : counts) {
        if (count < LowestCount || count > HighestCount) {
            throw travo::BoundsFailure("a mark is out of the manipulator's reach");
        }
    }
    return counts;
}

}  // namespace

NeedleCalibration CalibrationOf(const Mount& mount, const CalibrationView& view) {
    const PlanPoint plan = ViewCentreOf(view.mirrorX, view.mirrorY);
    const Vector centre = {plan[0], plan[1], static_cast<double>(view.focusZ)};
    const std::array<Vector, 4> marks = {{{0.0, -MarkDistanceY, 0.0},
                                          {-MarkDistanceX, MarkDistanceY, 0.0},
                                          {MarkDistanceX, MarkDistanceY, 0.0},
                                          {0.0, -MarkDistanceY, ObjectiveRaise}}};
    NeedleCalibration calibration;
    for (std::size_t point = 0; point < marks.size(); ++point) {
        calibration.points[point] = ReachableCounts(mount, centre + marks[point]);
    }
    calibration.zero = travo::MirrorToCommon({view.mirrorX, view.mirrorY, view.focusZ});
    calibration.centre = ReachableCounts(mount, centre);
    return calibration;
}

std::string SettingsText(std::span<const NeedleCalibration> calibrations, const std::string& time,
                         SettingsWish wish) {
    std::string text;
    if (wish != SettingsWish::Calibrations) {
        // As the workbench links them.
        Section(text, "COMPort");
        Line(text, "Mirror", "1");
        Line(text, "Magnescale", "2");
        Line(text, "Motor", "3");
    }
    if (wish == SettingsWish::Desk) {
        text += DeskSettingsText();
    } else {
        Section(text, "User_Value");
        Line(text, "XYOffset", "0");
        Line(text, "ZOffset", "0");
    }
    for (std::size_t needle = 0; needle < calibrations.size(); ++needle) {
        NeedleSection(text, needle, calibrations[needle], time);
    }
    return text;
}

void WriteSettings(const std::string& path, const std::string& text) {
    const std::string fresh = path + ".workbench";
    std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
    file << text;
    file.close();
    if (!file || std::rename(fresh.c_str(), path.c_str()) != 0) {
        const int reason = errno;
        std::remove(fresh.c_str());
        throw std::system_error(reason, std::generic_category(), "the settings file cannot be written");
    }
}

}  // namespace workbench
