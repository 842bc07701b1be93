#include "workbench/commands/CommandWords.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "core/ground/Arithmetic.h"

namespace workbench {

Words SplitWords(std::string_view line) {
    constexpr std::string_view blanks = " \t\r";
    Words words;
    std::size_t begin = line.find_first_not_of(blanks);
    while (begin != std::string_view::npos) {
        const std::size_t end = std::min(line.find_first_of(blanks, begin), line.size());
        words.push_back(line.substr(begin, end - begin));
        begin = line.find_first_not_of(blanks, end);
    }
    return words;
}

std::string_view WordAt(const Words& words, std::size_t index) {
    if (index >= words.size()) {
        throw travo::NumberFailure("a word is missing");
    }
    return words[index];
}

void ExpectWords(const Words& words, std::size_t least, std::size_t most) {
    if (words.size() < least) {
        throw travo::NumberFailure("a word is missing");
    }
    if (words.size() > most) {
        throw travo::NumberFailure("there are too many words");
    }
}

bool ForgetAsked(const Words& words) {
    ExpectWords(words, 0, 1);
    if (words.empty()) {
        return false;
    }
    if (words[0] != "forget") {
        throw travo::NumberFailure("only \"forget\" may follow");
    }
    return true;
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

double RealAt(const Words& words, std::size_t index, double limit) {
    const std::string_view word = WordAt(words, index);
    double value = 0.0;
    const auto [end, failure] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (failure != std::errc() || end != word.data() + word.size() || !(std::abs(value) <= limit)) {
        throw travo::NumberFailure("a number is expected, between " + Text(-limit) + " and " + Text(limit));
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

std::string Blanked(std::initializer_list<std::string> words) {
    std::string text;
    for (const std::string& word : words) {
        text += ' ';
        text += word;
    }
    return text;
}

}  // namespace workbench
