// Gives the bytes of lines out as a serial wire does: one after the other, at its rate.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "workbench/instruments/Instrument.h"

namespace workbench {

class LinePacer {
public:
    // Ten bits to a byte: a start bit, eight of data, a stop bit.
    static constexpr std::int64_t BitsPerByte = 10;
    // Before and after a line that stands apart: long enough for a reader that follows its port.
    static constexpr Time Pause = std::chrono::milliseconds(30);

    // What goes out in one write. It never holds bytes of two lines.
    struct Piece {
        std::string bytes;
        WireLine line;  // all of the line, with its last byte; else empty
    };

    explicit LinePacer(std::int64_t baud) : baud_(baud) {}

    void Push(WireLine line, Time now) { waiting_.push_back({std::move(line), now}); }
    // What is due by now, in order.
    std::vector<Piece> Take(Time now);
    bool Idle() const { return waiting_.empty(); }
    // Drops what has not gone out yet.
    void Clear();

private:
    struct Waiting {
        WireLine line;
        Time since{0};
    };

    void Begin();
    // Bytes of the line in front that have passed by now.
    std::size_t Passed(Time now) const;
    Time Duration(std::size_t bytes) const;

    std::int64_t baud_;
    std::deque<Waiting> waiting_;
    bool begun_ = false;
    Time start_{0};         // of the line in front
    std::size_t sent_ = 0;  // bytes of it
    Time free_{0};          // when the wire is free for the next line
    Time lastTaken_{0};
    bool pauseDue_ = false;
};

}  // namespace workbench
