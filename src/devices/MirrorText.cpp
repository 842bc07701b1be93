#include "devices/MirrorText.h"

#include <algorithm>
#include <array>

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
    if (const std::size_t end = text_.find(LineEnd, searchLineEnd_); end != std::string::npos) {
        const Line line{Behind(end), false};
        place_ = end + LineEnd.size();
        searchLineEnd_ = place_;
        searchCarriageReturn_ = place_;
        return line;
    }
    // The LF of a CR at the very end may still come.
    searchLineEnd_ = std::max(place_, text_.size() - (text_.ends_with(CarriageReturn) ? 1 : 0));
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
    DropRead();
    return std::nullopt;
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
