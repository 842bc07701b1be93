#include "workbench/commands/CommandWords.h"

#include <array>
#include <charconv>
#include <cmath>

#include "core/ground/Arithmetic.h"

namespace workbench {

std::string_view WordAt(const Words& words, std::size_t index) {
    if (index >= words.size()) {
        throw travo::NumberFailure("a word is missing");
    }
    return words[index];
}

bool SwitchAt(const Words& words, std::size_t index) {
    const std::string_view word = WordAt(words, index);
    if (word == "on" || word == "1") {
        return true;
    }
    if (word != "off" && word != "0") {
        throw travo::NumberFailure("\"on\" or \"off\" is expected");
    }
    return false;
}

std::int32_t IntegerAt(const Words& words, std::size_t index) {
    return travo::ReadInteger32(WordAt(words, index));
}

std::int64_t SerialAt(const Words& words, std::size_t index) {
    const std::string_view word = WordAt(words, index);
    std::int64_t value = 0;
    const auto [end, failure] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (failure != std::errc() || end != word.data() + word.size()) {
        throw travo::NumberFailure("a whole number is expected");
    }
    return value;
}

double RealAt(const Words& words, std::size_t index) {
    const std::string_view word = WordAt(words, index);
    double value = 0.0;
    const auto [end, failure] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (failure != std::errc() || end != word.data() + word.size() || !std::isfinite(value)) {
        throw travo::NumberFailure("a number is expected");
    }
    return value;
}

std::int32_t NeedleAt(const Words& words, std::size_t index) {
    const std::int32_t number = IntegerAt(words, index);
    if (number < 1 || number > travo::NeedleCount) {
        throw travo::BoundsFailure("needles are numbered 1 to 4");
    }
    return number - 1;
}

travo::PositionXYZ TripleAt(const Words& words, std::size_t index) {
    return {IntegerAt(words, index), IntegerAt(words, index + 1), IntegerAt(words, index + 2)};
}

Vector VectorAt(const Words& words, std::size_t index) {
    return {RealAt(words, index), RealAt(words, index + 1), RealAt(words, index + 2)};
}

std::int32_t TimesAt(const Words& words, std::size_t index) {
    if (index >= words.size()) {
        return 1;
    }
    return words[index] == "always" ? -1 : IntegerAt(words, index);
}

std::string Text(const travo::PositionXYZ& counts) {
    return Blanked({std::to_string(counts[0]), std::to_string(counts[1]), std::to_string(counts[2])});
}

std::string Text(const Vector& place) { return Blanked({Text(place[0]), Text(place[1]), Text(place[2])}); }

std::string Text(const PlanPoint& place) { return Blanked({Text(place[0]), Text(place[1])}); }

std::string Text(double value) {
    std::array<char, 400> digits{};
    const auto [end, failure] =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 3);
    const std::string text(digits.data(), failure == std::errc() ? end : digits.data());
    return text == "-0.000" ? std::string("0.000") : text;
}

std::string Flag(bool on) { return on ? " 1" : " 0"; }

std::string Blanked(std::initializer_list<std::string> words) {
    std::string text;
    for (const std::string& word : words) {
        text += ' ';
        text += word;
    }
    return text;
}

}  // namespace workbench
