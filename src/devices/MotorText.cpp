#include "devices/MotorText.h"

namespace travo {

std::optional<std::string_view> MotorText::NextLine() {
    const std::size_t end = text_.find('\r', search_);
    if (end != std::string::npos) {
        const std::string_view line = std::string_view(text_).substr(place_, end - place_);
        place_ = end + 1;
        search_ = place_;
        return line;
    }
    if (place_ != 0) {
        text_ = text_.substr(place_);
        place_ = 0;
    }
    search_ = text_.size();
    return std::nullopt;
}

}  // namespace travo
