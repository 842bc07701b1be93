#include "workbench/wires/Wire.h"

#include <utility>

#include "core/ground/Arithmetic.h"

namespace workbench {

void Wire::SetOpen(bool open, Time now) {
    if (open == open_) {
        return;
    }
    open_ = open;
    if (!unlogged_.empty()) {
        log_.Write({now, WireRecord::Kind::Out, std::exchange(unlogged_, {})});
    }
    log_.Write({now, WireRecord::Kind::Note, open ? "opened" : "closed"});
    pacer_.Clear();
    instrument_.TakeLines();
}

void Wire::Receive(std::string_view bytes, Time now) {
    log_.Write({now, WireRecord::Kind::In, std::string(bytes)});
    instrument_.Receive(bytes, now);
    Collect(now);
}

std::vector<std::string> Wire::Transmit(Time now) {
    instrument_.Advance(now);
    Collect(now);
    PlayBack(now);
    std::vector<std::string> writes;
    for (LinePacer::Piece& piece : pacer_.Take(now)) {
        LogPiece(piece, now);
        writes.push_back(std::move(piece.bytes));
    }
    return writes;
}

void Wire::SendNoise(std::int32_t bytes, Time now) {
    if (open_) {
        pacer_.Push(faults_.Noise(static_cast<std::size_t>(bytes)), now);
    }
}

void Wire::SendFlood(std::int32_t lines, Time now) {
    for (std::int32_t line = 0; open_ && line < lines; ++line) {
        pacer_.Push({instrument_.FloodLine(line, now), WireLine::Manner::Paced}, now);
    }
}

void Wire::Plug(bool plugged, Time now) {
    if (plugged == plugged_) {
        return;
    }
    plugged_ = plugged;
    try {
        if (plugChanged_) {
            plugChanged_();
        }
    } catch (...) {
        plugged_ = !plugged;
        throw;
    }
    if (!plugged) {
        SetOpen(false, now);
    }
}

void Wire::Replay(const std::string& path, Time now) {
    std::deque<WireRecord> records;
    for (WireRecord& record : ReadRecords(path)) {
        if (MannerOf(record.kind)) {
            records.push_back(std::move(record));
        }
    }
    if (records.empty()) {
        throw travo::Failure("there is nothing to replay in " + path);
    }
    replayShift_ = now - records.front().time;
    replay_ = std::move(records);
}

void Wire::Collect(Time now) {
    for (WireLine& line : instrument_.TakeLines()) {
        if (!open_ || Replays()) {
            continue;
        }
        if (auto sent = faults_.Befall(std::move(line))) {
            pacer_.Push(std::move(*sent), now);
        }
    }
}

void Wire::PlayBack(Time now) {
    while (!replay_.empty() && replay_.front().time + replayShift_ <= now) {
        const WireRecord& record = replay_.front();
        if (open_) {
            pacer_.Push({record.bytes, MannerOf(record.kind).value_or(WireLine::Manner::Paced)},
                        record.time + replayShift_);
        }
        replay_.pop_front();
    }
}

void Wire::LogPiece(const LinePacer::Piece& piece, Time now) {
    if (!log_.IsOpen()) {
        unlogged_.clear();
        return;
    }
    unlogged_ += piece.bytes;
    if (!piece.line.bytes.empty()) {
        log_.Write({now, KindOf(piece.line.manner), std::exchange(unlogged_, {})});
    }
}

}  // namespace workbench
