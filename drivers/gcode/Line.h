// Lines of text over a wire: what is no line of text never leaves this file.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "drivers/gcode/Wire.h"

namespace gcode {

// A line ends with LF or CR; empty ones are skipped. One with a byte that is no printable ASCII (nor a tab),
// and one of more than LongestLine bytes, is noise: it is dropped up to and with its end, and counted. What
// has no end yet waits for it, so that a line that was cut becomes part of the next one, which no reader then
// understands.
class Line {
public:
    static constexpr std::size_t LongestLine = 1024;

    explicit Line(Wire& wire) : wire_(wire) {}

    // Sends the bytes as they are. False where the port is gone; so is every later answer.
    bool Send(std::string_view bytes);
    // The next line, without its end; waits until then at most, but never beyond the limit. None where there
    // is none: then IsGone() tells a port that is gone from one that is silent.
    std::optional<std::string> Next(Time until);
    bool IsGone() const { return isGone_; }

    Time Now() const { return wire_.Now(); }
    // No wait goes beyond this time from here on.
    void LimitWaits(Time limit) { limit_ = limit; }
    // The end of a wait of that length from now, cut by the limit.
    Time Within(Time length) const { return std::min(limit_, wire_.Now() + length); }
    void LiftLimit() { limit_ = Time::max(); }

    // Lines dropped as noise since the wire was opened.
    int Dropped() const { return dropped_; }

private:
    std::optional<std::string> TakeFromBuffer();

    Wire& wire_;
    std::string buffer_;
    std::size_t searched_ = 0;  // of the buffer, without a line end
    bool isSkipping_ = false;   // within a line that is too long
    bool isGone_ = false;
    int dropped_ = 0;
    Time limit_ = Time::max();
};

}  // namespace gcode
