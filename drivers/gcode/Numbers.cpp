#include "drivers/gcode/Numbers.h"

#include <array>
#include <charconv>

namespace gcode {

namespace {

constexpr std::size_t MostDigits = 9;
constexpr std::size_t MostAxes = 6;

bool IsDigits(std::string_view text) {
    return !text.empty() && text.size() <= MostDigits &&
           text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

std::optional<double> Decimal(std::string_view text) {
    std::string_view digits = text;
    if (!digits.empty() && digits.front() == '-') {
        digits.remove_prefix(1);
    }
    const std::size_t point = digits.find('.');
    const bool isWhole = point == std::string_view::npos;
    if (!IsDigits(digits.substr(0, point)) || (!isWhole && !IsDigits(digits.substr(point + 1)))) {
        return std::nullopt;
    }
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return value;
}

std::optional<std::int32_t> Natural(std::string_view text) {
    if (!IsDigits(text)) {
        return std::nullopt;
    }
    std::int32_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::optional<Millimetres> DecimalTriple(std::string_view text) {
    const std::vector<std::string_view> parts = Split(text, ',');
    Millimetres triple{};
    if (parts.size() < triple.size() || parts.size() > MostAxes) {
        return std::nullopt;
    }
    for (std::size_t part = 0; part < parts.size(); ++part) {
        const std::optional<double> value = Decimal(parts[part]);
        if (!value) {
            return std::nullopt;
        }
        if (part < triple.size()) {
            triple[part] = *value;
        }
    }
    return triple;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string Fixed(double value, int digits) {
    std::array<char, 400> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, digits);
    return {text.data(), end.ptr};
}

}  // namespace gcode
