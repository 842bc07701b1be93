// The clauses of the contract that can be seen from outside a library.
#pragma once

#include <array>
#include <cstddef>

namespace check {

enum class Clause {
    Loads,
    Functions,
    Settling,
    Lives,
    Times,
    ReadingTime,
    Values,
    Count,
    Select,
    Numbers,
    Range,
    NotConnected,
    Reconnect,
    Still,
    Taken,
    Returns,
    TruePlace,
    Straight,
    Arrival,
    Refusal,
    Stop,
    Surroundings,
    Output,
    Unload,
    Threads,
    Descriptors,
    Children,
};

struct ClauseText {
    const char* name;      // one word, the same in the table and in docs/driver-kit.md
    const char* sentence;  // what the contract asks for
};

// In the order of the enumeration.
extern const std::array<ClauseText, 27> ClauseTexts;

inline constexpr std::size_t Place(Clause clause) { return static_cast<std::size_t>(clause); }

}  // namespace check
