// Position values and the one place where the mirror's geometry becomes the common frame.
#pragma once

#include <array>
#include <cstdint>

namespace travo {

// X, Y and Z, in the counts of the frame that the context names: a needle's manipulator frame, the
// common frame of needles, cells and view, or the mirror frame (mirror X and Y, gauge Z).
using PositionXYZ = std::array<std::int32_t, 3>;

inline constexpr std::int32_t AxisCount = 3;
inline constexpr std::int32_t NeedleCount = 4;
inline constexpr std::int32_t CellCount = 8;
// The highest index that a connection may report: a fifth manipulator has no place in the tables.
inline constexpr std::int16_t HighestManipulatorNumber = 4;
// Recorded tip positions of a full calibration: three marks in the focal plane and the raised one.
inline constexpr std::int32_t CalibrationPointCount = 4;

// Marks a position as not set, in memory and in the settings file alike.
inline constexpr std::int32_t NoPositionValue = -100000;

// A step of the mirror's Y axis is 0.023 degree; times pi, so that divided by 180 it is in radians.
inline constexpr double MirrorStepTimesPi = 0.07225663103256517;
// Common units for each mirror X count, and from the tangent of the Y tilt to common units.
inline constexpr double CommonUnitsPerMirrorX = -5.0;
inline constexpr double CommonUnitsPerMirrorTangent = -12500.0;

// Mirror counts to common X and common Y. The added half is a fixed bias of the rule and no
// rounding: the conversion goes to nearest with ties to even. OverflowFailure beyond 32 bits.
std::int32_t MirrorXToCommon(std::int32_t mirrorX);
std::int32_t MirrorYToCommon(std::int32_t mirrorY);

// Mirror frame to common frame: X and Y as above, Z as it stands.
PositionXYZ MirrorToCommon(const PositionXYZ& mirror);

}  // namespace travo
