#include "devices/links/MotorText.h"

#include "devices/links/LineLimit.h"

namespace travo {

std::optional<std::string_view> MotorText::NextLine() {
    for (std::size_t end = 0; (end = text_.find('\r', search_)) != std::string::npos;) {
        const std::string_view line = std::string_view(text_).substr(place_, end - place_);
        place_ = end + 1;
        search_ = place_;
        if (std::exchange(dropping_, false)) {
            continue;
        }
        if (line.size() <= MostLineBytes) {
            return line;
        }
        ++dropped_;
    }
    KeepRest();
    return std::nullopt;
}

void MotorText::KeepRest() {
    if (!dropping_ && text_.size() - place_ > MostLineBytes) {
        dropping_ = true;
        ++dropped_;
    }
    if (dropping_) {
        text_ = std::string();
    } else if (place_ != 0) {
        text_ = text_.substr(place_);
    }
    place_ = 0;
    search_ = text_.size();
}

}  // namespace travo
