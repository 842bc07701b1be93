// Numbers in text, strictly read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/gcode/Units.h"

namespace gcode {

// A minus or none, one to nine digits, and behind a point one to nine more: what controllers write. Nothing
// else is a number: no plus, no exponent, no blank, no "nan".
std::optional<double> Decimal(std::string_view text);

// One to nine digits.
std::optional<std::int32_t> Natural(std::string_view text);

// Three decimals between commas; a controller with more axes may have more behind them, at most six in all.
std::optional<Millimetres> DecimalTriple(std::string_view text);

std::vector<std::string_view> Split(std::string_view text, char separator);

// Without blanks and tabs at both ends.
std::string_view Trimmed(std::string_view text);

// With so many digits behind the point (0 to 9), in the C locale.
std::string Fixed(double value, int digits);

}  // namespace gcode
