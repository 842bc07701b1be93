#include "workbench/protocol/Argument.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <system_error>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

using Values = ArgumentKind::Values;

// The ends of 32 bits are told in words.
constexpr double LowestWhole = -2147483648.0;
constexpr double HighestWhole = 2147483647.0;

constexpr ArgumentKind Whole(std::string_view name, double lowest, double highest,
                             std::string_view unit = {}) {
    return {name, Values::Whole, lowest, highest, unit, {}};
}

constexpr ArgumentKind Real(std::string_view name, double lowest, double highest,
                            std::string_view unit = {}) {
    return {name, Values::Real, lowest, highest, unit, {}};
}

constexpr ArgumentKind Choice(std::string_view name, std::string_view choices) {
    return {name, Values::Choice, 0.0, 0.0, {}, choices};
}

constexpr std::array<ArgumentKind, 31> Kinds = {
    {Whole("needle", 1, 4),
     Whole("whole", LowestWhole, HighestWhole),
     Whole("count", 0, 25000, "counts"),
     Whole("play", 0, 1000, "counts"),
     Whole("index", 0, 3),
     Whole("calls", 0, HighestWhole),
     Whole("connected", 0, 4),
     Whole("noise", 0, 10000),
     Whole("garbled", 0, 1000000),
     Whole("kept", 0, 1000000),
     Whole("flood", 0, 10000),
     Whole("error", 0, 99),
     Whole("commands", 0, 1000000),
     Whole("fields", 0, 1000),
     Whole("lines", 0, 1000000),
     Whole("failures", 0, 1000000),
     Whole("focus", -4000000, 4000000),
     {"serial", Values::Serial, 0.0, 0.0, {}, {}},
     Real("deviation", 0, 1000),
     Real("drift", -10000, 10000, "counts a minute"),
     Real("bend", -500, 500, "common units"),
     Real("place", -1000000, 1000000, "common units"),
     Real("angle", -360, 360, "degrees"),
     Real("mirror", -180, 180, "counts"),
     Real("hang", 0, 3600),
     Real("pause", 0, 60),
     Choice("wire", "mirror|gauge|motor"),
     Choice("call", "getposition|moveto|select|getcount|reconnect"),
     Choice("axis", "x|y"),
     {"line", Values::Word, 0.0, 0.0, {}, {}},
     {"file", Values::Path, 0.0, 0.0, {}, {}}}};

bool HoldsInteger(std::string_view word, double lowest, double highest) {
    try {
        const double value = travo::ReadInteger32(word);
        return value >= lowest && value <= highest;
    } catch (const travo::Failure&) {
        return false;
    }
}

template <typename Number>
bool Holds(std::string_view word, Number lowest, Number highest) {
    Number value{};
    const auto [end, failure] = std::from_chars(word.data(), word.data() + word.size(), value);
    return failure == std::errc() && end == word.data() + word.size() && value >= lowest && value <= highest;
}

bool IsChoice(std::string_view choices, std::string_view word) {
    while (!choices.empty()) {
        const std::size_t end = std::min(choices.find('|'), choices.size());
        if (choices.substr(0, end) == word) {
            return true;
        }
        choices.remove_prefix(std::min(end + 1, choices.size()));
    }
    return false;
}

// Ends of ranges are whole numbers.
std::string EndText(double end) { return std::to_string(std::llround(end)); }

}  // namespace

const ArgumentKind& ArgumentKindNamed(std::string_view name) {
    const auto* found = std::find_if(Kinds.begin(), Kinds.end(),
                                     [name](const ArgumentKind& kind) { return kind.name == name; });
    if (found == Kinds.end()) {
        throw travo::BoundsFailure("no kind of argument is named " + std::string(name));
    }
    return *found;
}

bool Accepts(const ArgumentKind& kind, std::string_view word) {
    switch (kind.values) {
        case Values::Whole:
            return HoldsInteger(word, kind.lowest, kind.highest);
        case Values::Serial:
            return Holds<std::int64_t>(word, 0, INT64_MAX);
        case Values::Real:
            return Holds<double>(word, kind.lowest, kind.highest);
        case Values::Choice:
            return IsChoice(kind.choices, word);
        case Values::Word:
        case Values::Path:
            return true;
    }
    return false;
}

std::string RangeText(const ArgumentKind& kind) {
    const std::string unit = kind.unit.empty() ? std::string() : " " + std::string(kind.unit);
    switch (kind.values) {
        case Values::Whole:
            if (kind.highest == HighestWhole) {
                return (kind.lowest == 0.0 ? "a whole number from 0" : "any whole number") + unit;
            }
            return EndText(kind.lowest) + " to " + EndText(kind.highest) + unit;
        case Values::Serial:
            return "a whole number from 0";
        case Values::Real:
            return EndText(kind.lowest) + " to " + EndText(kind.highest) + unit;
        case Values::Choice:
            return ChoiceText(kind.choices);
        case Values::Word:
        case Values::Path:
            break;
    }
    return {};
}

std::string ChoiceText(std::string_view choices) {
    std::string text;
    while (!choices.empty()) {
        const std::size_t end = std::min(choices.find('|'), choices.size());
        const std::string_view word = choices.substr(0, end);
        choices.remove_prefix(std::min(end + 1, choices.size()));
        text.append(text.empty() ? "" : choices.empty() ? " or " : ", ").append(word);
    }
    return text;
}

}  // namespace workbench
