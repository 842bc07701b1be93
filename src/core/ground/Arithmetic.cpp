#include "core/ground/Arithmetic.h"

#include <charconv>

namespace travo {

void ThrowOverflow() { throw OverflowFailure("a number does not fit its type"); }

void ThrowBounds() { throw BoundsFailure("an index lies outside its table"); }

std::int32_t ReadInteger32(std::string_view text) {
    std::int32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error == std::errc::result_out_of_range) {
        ThrowOverflow();
    }
    if (error != std::errc() || stop != end) {
        throw NumberFailure("a text is no whole number");
    }
    return value;
}

std::int16_t ReadInteger16(std::string_view text) { return ToInteger16(ReadInteger32(text)); }

}  // namespace travo
