// Cuts received bytes at the line end of a wire.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace workbench {

class LineSplitter {
public:
    struct Line {
        std::string text;       // without its end; empty for one that was too long
        bool overflow = false;  // it was longer than the buffer, and is lost
    };

    // The longest line that the instrument's buffer takes, without its end.
    static constexpr std::size_t LongestLine = 64;

    explicit LineSplitter(std::string end) : end_(std::move(end)) {}

    void Append(std::string_view bytes) { pending_ += bytes; }
    // The next whole line, or none yet. A line that is too long is told once, as soon as it is.
    std::optional<Line> Next();

private:
    std::string end_;
    std::string pending_;
    bool overflowing_ = false;
};

}  // namespace workbench
