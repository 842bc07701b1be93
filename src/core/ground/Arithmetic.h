// Exact integer arithmetic of positions: what does not fit is a failure and never wraps.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace travo {

// The root of all failures that the system raises itself.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A result does not fit its integer type, or a floating result is not finite.
class OverflowFailure : public Failure {
public:
    using Failure::Failure;
};

// An index lies outside its table.
class BoundsFailure : public Failure {
public:
    using Failure::Failure;
};

// A text is no number of the wanted form.
class NumberFailure : public Failure {
public:
    using Failure::Failure;
};

// Out of line, so that the checks cost a compare and a jump at their place of use.
[[noreturn]] void ThrowOverflow();
[[noreturn]] void ThrowBounds();

// To a 32-bit integer, to nearest with ties to even. Raises OverflowFailure for NaN, infinities and
// whatever rounds beyond 32 bits. Expects the default rounding mode of the processor.
inline std::int32_t convert(double value) {
    if (!(value > -2147483649.0 && value < 2147483648.0)) {
        ThrowOverflow();
    }
    const long long rounded = std::llrint(value);
    if (rounded < INT32_MIN || rounded > INT32_MAX) {
        ThrowOverflow();
    }
    return static_cast<std::int32_t>(rounded);
}

// 32-bit sum, difference and product; OverflowFailure instead of wrapping.
inline std::int32_t Sum(std::int32_t a, std::int32_t b) {
    std::int32_t result = 0;
    if (__builtin_add_overflow(a, b, &result)) {
        ThrowOverflow();
    }
    return result;
}

inline std::int32_t Difference(std::int32_t a, std::int32_t b) {
    std::int32_t result = 0;
    if (__builtin_sub_overflow(a, b, &result)) {
        ThrowOverflow();
    }
    return result;
}

inline std::int32_t Product(std::int32_t a, std::int32_t b) {
    std::int32_t result = 0;
    if (__builtin_mul_overflow(a, b, &result)) {
        ThrowOverflow();
    }
    return result;
}

// |a|; OverflowFailure for the one value whose magnitude has no place in 32 bits.
inline std::int32_t AbsoluteValue(std::int32_t a) { return a < 0 ? Difference(0, a) : a; }

// To a 16-bit integer; OverflowFailure beyond -32768 to 32767.
inline std::int16_t ToInteger16(std::int32_t value) {
    if (value < INT16_MIN || value > INT16_MAX) {
        ThrowOverflow();
    }
    return static_cast<std::int16_t>(value);
}

// The value itself; OverflowFailure where a floating result is NaN or infinite.
inline double Finite(double value) {
    if (!std::isfinite(value)) {
        ThrowOverflow();
    }
    return value;
}

// The index as a table offset; BoundsFailure unless 0 <= index < size.
inline std::size_t Bounded(std::int32_t index, std::size_t size) {
    if (index < 0 || static_cast<std::size_t>(index) >= size) {
        ThrowBounds();
    }
    return static_cast<std::size_t>(index);
}

// A decimal number as it stands on a wire or in a position record: an optional minus and digits,
// nothing else. NumberFailure for another form, OverflowFailure beyond 32 (16) bits.
std::int32_t ReadInteger32(std::string_view text);
std::int16_t ReadInteger16(std::string_view text);

}  // namespace travo
