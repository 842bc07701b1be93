#include "devices/links/MirrorText.h"

#include <algorithm>
#include <array>

#include "devices/links/LineLimit.h"

namespace travo {

namespace {

constexpr char CarriageReturn = '\r';
constexpr std::string_view LineEnd = "\r\n";

bool IsForMotor(std::string_view text) {
    constexpr std::array<std::string_view, 5> MotorCommands{"RZ", "MZ", "RE", "WZ", "ZE"};
    return std::any_of(MotorCommands.begin(), MotorCommands.end(),
                       [text](std::string_view command) { return text.starts_with(command); });
}

}  // namespace

std::optional<MirrorText::Line> MirrorText::NextLine() {
    while (DropUpToEnd()) {
        const auto line = AnyLine();
        if (!line) {
            StartDropping();
            break;
        }
        if (line->text.size() <= MostLineBytes) {
            return line;
        }
        ++dropped_;
    }
    DropRead();
    return std::nullopt;
}

std::optional<MirrorText::Line> MirrorText::AnyLine() {
    if (const std::size_t end = text_.find(LineEnd, searchLineEnd_); end != std::string::npos) {
        const Line line{Behind(end), false};
        GoOnAt(end + LineEnd.size());
        return line;
    }
    searchLineEnd_ = std::max(place_, EndOfSearch());
    if (searchCarriageReturn_) {
        const std::size_t end = text_.find(CarriageReturn, *searchCarriageReturn_);
        if (end != std::string::npos && IsForMotor(Behind(end))) {
            const Line line{Behind(end), true};
            place_ = end + 1;
            searchLineEnd_ = std::max(searchLineEnd_, place_);
            searchCarriageReturn_ = place_;
            return line;
        }
        searchCarriageReturn_ = end == std::string::npos ? std::optional(text_.size()) : std::nullopt;
    }
    return std::nullopt;
}

// False where the end of a dropped line has still not come.
bool MirrorText::DropUpToEnd() {
    if (dropUpTo_ == End::None) {
        return true;
    }
    const bool isForMotor = dropUpTo_ == End::CarriageReturn;
    const std::size_t end = isForMotor ? text_.find(CarriageReturn, place_) : text_.find(LineEnd, place_);
    if (end == std::string::npos) {
        GoOnAt(isForMotor ? text_.size() : EndOfSearch());
        return false;
    }
    const bool isLineEnd = std::string_view(text_).substr(end).starts_with(LineEnd);
    GoOnAt(end + (isLineEnd ? LineEnd.size() : 1));
    dropUpTo_ = End::None;
    return true;
}

// All that is left has no end. Too long, it goes, and what comes goes with it.
void MirrorText::StartDropping() {
    if (std::max(place_, EndOfSearch()) - place_ <= MostLineBytes) {
        return;
    }
    ++dropped_;
    dropUpTo_ = IsForMotor(Behind(text_.size())) ? End::CarriageReturn : End::LineEnd;
    GoOnAt(EndOfSearch());
}

void MirrorText::GoOnAt(std::size_t place) {
    place_ = place;
    searchLineEnd_ = place;
    searchCarriageReturn_ = place;
}

// The LF of a CR at the very end may still come.
std::size_t MirrorText::EndOfSearch() const {
    return text_.size() - (text_.ends_with(CarriageReturn) ? 1 : 0);
}

std::string_view MirrorText::Behind(std::size_t end) const {
    return std::string_view(text_).substr(place_, end - place_);
}

void MirrorText::DropRead() {
    if (place_ == 0) {
        return;
    }
    text_ = text_.substr(place_);
    searchLineEnd_ -= place_;
    if (searchCarriageReturn_) {
        *searchCarriageReturn_ -= place_;
    }
    place_ = 0;
}

}  // namespace travo
