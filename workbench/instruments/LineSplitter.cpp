#include "workbench/instruments/LineSplitter.h"

#include <algorithm>

namespace workbench {

std::optional<LineSplitter::Line> LineSplitter::Next() {
    while (true) {
        const std::size_t end = pending_.find(end_);
        if (end == std::string::npos) {
            break;
        }
        std::string text = pending_.substr(0, end);
        pending_.erase(0, end + end_.size());
        if (overflowing_) {
            // The rest of a line that has been told already.
            overflowing_ = false;
            continue;
        }
        if (text.size() > LongestLine) {
            return Line{{}, true};
        }
        return Line{std::move(text), false};
    }
    if (!overflowing_ && pending_.size() <= LongestLine + end_.size() - 1) {
        return std::nullopt;
    }
    // The beginning of a line end may stand at the end of what has come.
    pending_.erase(0, pending_.size() - std::min(pending_.size(), end_.size() - 1));
    if (overflowing_) {
        return std::nullopt;
    }
    overflowing_ = true;
    return Line{{}, true};
}

}  // namespace workbench
