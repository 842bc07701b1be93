#include "devices/links/GaugeText.h"

#include <algorithm>
#include <charconv>

#include "core/ground/Arithmetic.h"
#include "devices/links/LineLimit.h"

namespace travo {

namespace {

constexpr char ReadingMark = 'A';
constexpr std::size_t ReadingSize = 8;

constexpr double CountsPerUnit = 1000.0;

bool IsSign(char character) { return character == '+' || character == '-'; }
bool IsDigit(char character) { return character >= '0' && character <= '9'; }

// Without its sign: at least one digit, at most one point, nothing else.
bool IsDecimal(std::string_view number) {
    const auto points = std::count(number.begin(), number.end(), '.');
    const auto digits = std::count_if(number.begin(), number.end(), IsDigit);
    return points <= 1 && digits >= 1 && static_cast<std::size_t>(points + digits) == number.size();
}

}  // namespace

std::optional<std::string_view> GaugeText::Reading() {
    const std::size_t mark = text_.find(ReadingMark, search_);
    search_ = std::min(mark, text_.size());
    if (text_.size() - search_ < ReadingSize) {
        DropNoise();
        return std::nullopt;
    }
    return std::string_view(text_).substr(search_, ReadingSize);
}

void GaugeText::DropNoise() {
    if (search_ <= MostLineBytes) {
        return;
    }
    text_ = text_.substr(search_);
    search_ = 0;
    dropped_ = !std::exchange(hasDropped_, true);
}

std::optional<std::int32_t> GaugeCount(std::string_view reading) {
    if (reading.size() != ReadingSize || reading.front() != ReadingMark) {
        return std::nullopt;
    }
    std::string_view number = reading.substr(1);
    const bool negative = number.front() == '-';
    if (IsSign(number.front())) {
        number.remove_prefix(1);
    }
    if (!IsDecimal(number)) {
        return std::nullopt;
    }
    double value = 0.0;
    std::from_chars(number.data(), number.data() + number.size(), value, std::chars_format::fixed);
    try {
        return convert((negative ? -value : value) * CountsPerUnit);
    } catch (const OverflowFailure&) {
        return std::nullopt;
    }
}

}  // namespace travo
