// The keys of a needle's section: which there are, and what value each takes.
#pragma once

#include <string>
#include <string_view>

#include "drivers/gcode/NeedleSettings.h"

namespace gcode {

// Takes a value into the settings of a needle. The answer is what is wrong with it, empty if nothing.
std::string TakeValue(NeedleSettings& needle, std::string_view key, std::string_view value);

bool IsKey(std::string_view key);

// The keys that every needle must have, for a loop.
inline constexpr std::string_view NeededKeys[] = {"port", "dialect", "counts-per-mm", "x", "y", "z", "zero"};

// What is wrong between values that are each right; empty if nothing.
std::string WrongTogether(const NeedleSettings& needle);

}  // namespace gcode
