// How much of what an instrument sends without an end is kept.
#pragma once

#include <cstddef>

namespace travo {

// The longest line that any instrument knows has some forty characters. A line of more bytes than this,
// without its end, is dropped up to and with its end, whether it comes in one piece or in many.
inline constexpr std::size_t MostLineBytes = std::size_t{64} * 1024;

}  // namespace travo
