// One line of the mirror controller, taken apart.
#pragma once

#include <QLatin1String>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace travo {

// Views of the line that it was read from.
struct MirrorLine {
    char Class = '\0';         // first character
    std::string_view Command;  // the next three
    std::string_view Value;    // all the rest
};

// NumberFailure for a line under four characters.
MirrorLine ReadMirrorLine(std::string_view line);

// Fields of a status line's value.
inline constexpr std::size_t StatusFieldCount = 8;
inline constexpr std::size_t StatusX = 0;
inline constexpr std::size_t StatusY = 1;
inline constexpr std::size_t StatusMotor = 3;
inline constexpr std::size_t StatusMagnification = 4;
inline constexpr std::size_t StatusLimitY = 5;
inline constexpr std::size_t StatusLimitX = 6;
using StatusFields = std::array<std::string_view, StatusFieldCount>;

// The first eight fields, which commas separate, as they stand. BoundsFailure where there are fewer.
StatusFields ReadStatusFields(std::string_view value);

// What the controller means by an error number; none for a text that is none of its numbers "1" to "8".
std::optional<QLatin1String> MirrorErrorText(std::string_view value);

}  // namespace travo
