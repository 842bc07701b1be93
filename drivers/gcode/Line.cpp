#include "drivers/gcode/Line.h"

#include <algorithm>

namespace gcode {

namespace {

bool IsText(std::string_view line) {
    return std::all_of(line.begin(), line.end(),
                       [](char byte) { return (byte >= ' ' && byte <= '~') || byte == '\t'; });
}

}  // namespace

bool Line::Send(std::string_view bytes) {
    isGone_ = isGone_ || !wire_.Write(bytes);
    return !isGone_;
}

std::optional<std::string> Line::Next(Time until) {
    until = std::min(until, limit_);
    while (true) {
        if (std::optional<std::string> line = TakeFromBuffer()) {
            return line;
        }
        if (isGone_) {
            return std::nullopt;
        }
        switch (wire_.Read(buffer_, until)) {
            case Wire::Reception::Bytes:
                // A wire that never pauses must not hold the caller beyond its time.
                if (wire_.Now() > until) {
                    return TakeFromBuffer();
                }
                break;
            case Wire::Reception::Nothing:
                return std::nullopt;
            case Wire::Reception::Gone:
                isGone_ = true;
                break;
        }
    }
}

std::optional<std::string> Line::TakeFromBuffer() {
    while (true) {
        const std::size_t end = buffer_.find_first_of("\r\n", searched_);
        if (end == std::string::npos) {
            if (buffer_.size() > LongestLine) {
                dropped_ += isSkipping_ ? 0 : 1;
                isSkipping_ = true;
                buffer_.clear();
            }
            searched_ = buffer_.size();
            return std::nullopt;
        }
        std::string line = buffer_.substr(0, end);
        buffer_.erase(0, end + 1);
        searched_ = 0;
        if (isSkipping_) {
            isSkipping_ = false;
        } else if (line.size() > LongestLine || !IsText(line)) {
            ++dropped_;
        } else if (!line.empty()) {
            return line;
        }
    }
}

}  // namespace gcode
