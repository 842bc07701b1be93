#include "workbench/protocol/CommandForm.h"

#include <algorithm>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

bool HasWord(const std::vector<std::string_view>& parts, std::string_view word) {
    return std::find(parts.begin(), parts.end(), word) != parts.end();
}

std::vector<std::string_view> SplitAt(std::string_view text, char mark) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = std::min(text.find(mark), text.size());
        parts.push_back(text.substr(0, end));
        if (end == text.size()) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

// The form's text without ":kind".
std::string WithoutKinds(std::string_view text) {
    std::string shown;
    bool isKind = false;
    for (const char letter : text) {
        isKind = (isKind || letter == ':') && letter != '>';
        if (!isKind) {
            shown += letter;
        }
    }
    return shown;
}

}  // namespace

CommandForm::CommandForm(std::string_view text) : shown_(WithoutKinds(text)) {
    for (std::string_view word : SplitWords(text)) {
        Place place;
        place.mayBeLeftOut = word.starts_with('[');
        word.remove_prefix(place.mayBeLeftOut ? 1 : 0);
        word = word.substr(0, word.find(']'));
        const std::vector<std::string_view> parts = SplitAt(word, '|');
        for (const std::string_view part : parts) {
            place.alternatives.push_back(ReadAlternative(part));
        }
        place.isSwitch = HasWord(parts, "on") && HasWord(parts, "off");
        places_.push_back(std::move(place));
    }
    if (places_.empty() || !IsFixed(places_.front())) {
        throw travo::NumberFailure("a command begins with a word of its own: " + std::string(text));
    }
}

std::string CommandForm::Ranges() const {
    std::vector<std::pair<std::string, std::string>> told;  // names, range
    for (const Place& place : places_) {
        for (const Alternative& one : place.alternatives) {
            if (one.kind == nullptr || !HasRange(*one.kind)) {
                continue;
            }
            const std::string range = RangeText(*one.kind);
            if (!told.empty() && told.back().second == range) {
                told.back().first += ", " + one.text;
            } else {
                told.emplace_back(one.text, range);
            }
        }
    }
    std::string text;
    for (const auto& [names, range] : told) {
        text.append(text.empty() ? "" : "; ").append(names).append(" ").append(range);
    }
    return text;
}

CommandForm::Fit CommandForm::FitTo(const Words& words) const {
    Fit fit;
    for (const Place& place : places_) {
        if (fit.places == words.size()) {
            fit.whole = place.mayBeLeftOut;
            fit.wanted = Wanted(place);
            return fit;
        }
        const std::string_view word = words[fit.places];
        if (!Accepts(place, word)) {
            fit.wanted = Wanted(place);
            return fit;
        }
        if (TakesRest(place)) {
            const std::string_view last = words.back();
            const auto length = static_cast<std::size_t>(last.data() + last.size() - word.data());
            fit.arguments.emplace_back(word.data(), length);
            fit.places = words.size();
            break;
        }
        if (!IsFixed(place)) {
            fit.arguments.push_back(word);
        }
        ++fit.places;
    }
    fit.whole = fit.places == words.size();
    return fit;
}

CommandForm::Alternative CommandForm::ReadAlternative(std::string_view text) {
    if (!text.starts_with('<')) {
        return {std::string(text), nullptr};
    }
    const std::string_view inner = text.substr(1, text.find('>') - 1);
    const std::size_t mark = inner.find(':');
    const std::string_view kind = mark == std::string_view::npos ? inner : inner.substr(mark + 1);
    return {std::string(inner.substr(0, mark)), &ArgumentKindNamed(kind)};
}

bool CommandForm::Accepts(const Place& place, std::string_view word) {
    if (place.isSwitch && (word == "1" || word == "0")) {
        return true;
    }
    return std::any_of(place.alternatives.begin(), place.alternatives.end(), [word](const Alternative& one) {
        return one.kind == nullptr ? one.text == word : workbench::Accepts(*one.kind, word);
    });
}

bool CommandForm::IsFixed(const Place& place) {
    return place.alternatives.size() == 1 && place.alternatives.front().kind == nullptr;
}

bool CommandForm::TakesRest(const Place& place) {
    return std::any_of(place.alternatives.begin(), place.alternatives.end(), [](const Alternative& one) {
        return one.kind != nullptr && one.kind->values == ArgumentKind::Values::Path;
    });
}

std::string CommandForm::Wanted(const Place& place) {
    std::string text;
    for (const Alternative& one : place.alternatives) {
        text.append(text.empty() ? "" : "|");
        if (one.kind == nullptr) {
            text.append(one.text);
            continue;
        }
        const std::string range = RangeText(*one.kind);
        text.append("<").append(one.text).append(">");
        text.append(range.empty() ? "" : " (" + range + ")");
    }
    return text;
}

}  // namespace workbench
