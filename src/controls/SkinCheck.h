// Judges a picture file of the skin.
#pragma once

#include <QString>
#include <optional>

#include "controls/SkinFile.h"

namespace travo {

// Largest side of a picture, in design pixels. A window is 520 x 624.
constexpr double LargestSkinSide = 2048;

// Why the picture cannot be shown; nothing when it can.
std::optional<QString> SkinFault(const SkinFile& file);

}  // namespace travo
