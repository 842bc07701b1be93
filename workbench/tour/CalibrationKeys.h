// What the settings file holds of a needle's calibration.
#pragma once

#include <QString>
#include <array>
#include <cstdint>

#include "core/ground/Positions.h"
#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Read from the file itself. The times are texts.
struct CalibrationKeys {
    std::array<travo::PositionXYZ, travo::CalibrationPointCount> points{};  // counts: A, B, C, Z
    travo::PositionXYZ zero{};                                              // common frame
    travo::PositionXYZ centre{};                                            // counts
    QString time;
    QString reTime;

    bool operator==(const CalibrationKeys&) const = default;
};

// ActFailure where a key is missing or is no number.
CalibrationKeys ReadCalibrationKeys(Stage& stage, std::int32_t needle);
// What a reset leaves behind.
CalibrationKeys ClearedKeys();
// The text must be date and time of the present minute, or of the last one.
void RequirePresentTime(const QString& text);

}  // namespace workbench::tour
