#include "drivers/gcode/OmmReader.h"

#include <algorithm>
#include <cctype>

#include "drivers/gcode/Numbers.h"

namespace gcode {

namespace {

constexpr std::string_view PoseLetters = "XYZABC";

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return lower;
}

// Moves the text behind blanks and commas.
void SkipSeparators(std::string_view& text) {
    text.remove_prefix(std::min(text.size(), text.find_first_not_of(" \t,")));
}

// A pose has decimals, as many for each number: a whole one, or a shorter one, may be what is left of
// another.
std::optional<double> LetterValue(std::string_view& text, char letter, std::size_t& decimals) {
    SkipSeparators(text);
    if (text.empty() || text.front() != letter) {
        return std::nullopt;
    }
    text.remove_prefix(1);
    if (!text.empty() && (text.front() == ':' || text.front() == '=')) {
        text.remove_prefix(1);
        text.remove_prefix(std::min(text.size(), text.find_first_not_of(' ')));
    }
    const std::string_view value = text.substr(0, text.find_first_of(" \t,"));
    text.remove_prefix(value.size());
    const std::size_t point = value.find('.');
    const std::size_t own = point == std::string_view::npos ? 0 : value.size() - point - 1;
    if (own == 0 || (decimals != 0 && own != decimals)) {
        return std::nullopt;
    }
    decimals = own;
    return Decimal(value);
}

}  // namespace

OmmLine ReadOmm(std::string_view line) {
    const std::string_view text = Trimmed(line);
    if (text == "ok") {
        return {OmmLine::Kind::Ok, {}};
    }
    if (text == "busy") {
        return {OmmLine::Kind::Busy, {}};
    }
    if (text.starts_with("error")) {
        return {OmmLine::Kind::Error, std::string(text)};
    }
    if (text.size() >= 2 && text[1] == ')' &&
        std::string_view("DIWE").find(text[0]) != std::string_view::npos) {
        return {OmmLine::Kind::Log, std::string(Trimmed(text.substr(2)))};
    }
    return {OmmLine::Kind::Data, std::string(text)};
}

std::optional<Millimetres> OmmPose(std::string_view text) {
    Millimetres pose{};
    std::size_t decimals = 0;
    for (std::size_t index = 0; index < PoseLetters.size(); ++index) {
        std::string_view rest = text;
        SkipSeparators(rest);
        if (index >= pose.size() && rest.empty()) {
            break;
        }
        const std::optional<double> value = LetterValue(text, PoseLetters[index], decimals);
        if (!value) {
            return std::nullopt;
        }
        if (index < pose.size()) {
            pose[index] = *value;
        }
    }
    SkipSeparators(text);
    return text.empty() ? std::optional(pose) : std::nullopt;
}

std::optional<bool> OmmFinished(std::string_view text) {
    return text == "1" ? std::optional(true) : text == "0" ? std::optional(false) : std::nullopt;
}

std::optional<bool> OmmHomed(std::string_view text) {
    const std::string lower = Lower(text);
    const std::size_t word = lower.find("homed");
    if (word == std::string::npos) {
        return std::nullopt;
    }
    std::string_view rest = std::string_view(lower).substr(word + std::string_view("homed").size());
    rest.remove_prefix(std::min(rest.size(), rest.find_first_not_of(" \t:=")));
    const std::string_view value = rest.substr(0, rest.find_first_of(" \t,;"));
    if (value == "1" || value == "yes" || value == "true") {
        return true;
    }
    return value == "0" || value == "no" || value == "false" ? std::optional(false) : std::nullopt;
}

}  // namespace gcode
