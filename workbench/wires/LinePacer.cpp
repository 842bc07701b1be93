#include "workbench/wires/LinePacer.h"

#include <algorithm>
#include <utility>

namespace workbench {

std::vector<LinePacer::Piece> LinePacer::Take(Time now) {
    std::vector<Piece> pieces;
    while (!waiting_.empty()) {
        if (!begun_) {
            Begin();
        }
        const WireLine& line = waiting_.front().line;
        const std::size_t passed = Passed(now);
        const bool done = passed == line.bytes.size();
        const bool ready = done || line.manner != WireLine::Manner::Whole;
        if (ready && passed > sent_) {
            pieces.push_back({line.bytes.substr(sent_, passed - sent_), done ? line : WireLine{}});
            sent_ = passed;
            lastTaken_ = now;
        }
        if (!done) {
            break;
        }
        free_ = start_ + Duration(line.bytes.size());
        pauseDue_ = line.manner == WireLine::Manner::Apart;
        waiting_.pop_front();
        begun_ = false;
    }
    return pieces;
}

void LinePacer::Clear() {
    waiting_.clear();
    begun_ = false;
}

void LinePacer::Begin() {
    const Waiting& next = waiting_.front();
    begun_ = true;
    sent_ = 0;
    start_ = std::max(free_, next.since);
    if (pauseDue_ || next.line.manner == WireLine::Manner::Apart) {
        // Counted from when bytes were truly handed over: a late caller must not lose the pause.
        start_ = std::max(start_, lastTaken_ + Pause);
    }
}

std::size_t LinePacer::Passed(Time now) const {
    const std::size_t length = waiting_.front().line.bytes.size();
    if (now <= start_) {
        return 0;
    }
    const std::int64_t passed = (now - start_).count() * baud_ / (BitsPerByte * Time::period::den);
    return std::min(length, static_cast<std::size_t>(passed));
}

Time LinePacer::Duration(std::size_t bytes) const {
    const std::int64_t bits = static_cast<std::int64_t>(bytes) * BitsPerByte;
    return Time(bits * Time::period::den / baud_);
}

}  // namespace workbench
