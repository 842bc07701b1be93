#include "workbench/wires/Wire.h"

#include <utility>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

constexpr std::string_view EventKind = "event";
// Of a command without an end so much is told at once.
constexpr std::size_t LongestCommand = 256;

}  // namespace

void Wire::SetOpen(bool open, Time now) {
    if (open == open_) {
        return;
    }
    open_ = open;
    if (!heard_.empty()) {
        Tell(now, KindText(WireRecord::Kind::In), std::exchange(heard_, {}));
    }
    if (!unlogged_.empty()) {
        Tell(now, KindText(WireRecord::Kind::Out), unlogged_);
        log_.Write({now, WireRecord::Kind::Out, std::exchange(unlogged_, {})});
    }
    Tell(now, KindText(WireRecord::Kind::Note), open ? "open" : "shut");
    log_.Write({now, WireRecord::Kind::Note, open ? "opened" : "closed"});
    pacer_.Clear();
    instrument_.TakeLines();
}

void Wire::Receive(std::string_view bytes, Time now) {
    log_.Write({now, WireRecord::Kind::In, std::string(bytes)});
    NoteHeard(bytes, now);
    instrument_.Receive(bytes, now);
    Collect(now);
}

std::vector<std::string> Wire::Transmit(Time now) {
    instrument_.Advance(now);
    Collect(now);
    PlayBack(now);
    std::vector<std::string> writes;
    for (LinePacer::Piece& piece : pacer_.Take(now)) {
        NotePiece(piece, now);
        writes.push_back(std::move(piece.bytes));
    }
    return writes;
}

void Wire::SendNoise(std::int32_t bytes, Time now) {
    if (open_) {
        Tell(now, EventKind, "noise " + std::to_string(bytes));
        pacer_.Push(faults_.Noise(static_cast<std::size_t>(bytes)), now);
    }
}

void Wire::SendFlood(std::int32_t lines, Time now) {
    if (open_) {
        Tell(now, EventKind, "flood " + std::to_string(lines));
    }
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
    Tell(now, KindText(WireRecord::Kind::Note), plugged ? "cable in" : "cable out");
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
        const std::string said = line.bytes;
        if (auto sent = faults_.Befall(std::move(line))) {
            sent->fate = FateOf(said, sent->bytes);
            pacer_.Push(std::move(*sent), now);
        } else {
            Tell(now, EventKind, (faults_.Silent() ? "silent " : "cut ") + said);
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

void Wire::NotePiece(const LinePacer::Piece& piece, Time now) {
    unlogged_ += piece.bytes;
    if (piece.line.bytes.empty()) {
        return;
    }
    if (!piece.line.fate.empty()) {
        Tell(now, EventKind, piece.line.fate);
    }
    const WireRecord::Kind kind = KindOf(piece.line.manner);
    Tell(now, KindText(kind), unlogged_);
    log_.Write({now, kind, std::exchange(unlogged_, {})});
}

void Wire::NoteHeard(std::string_view bytes, Time now) {
    heard_ += bytes;
    const std::string_view end = instrument_.CommandEnd();
    for (std::size_t at = heard_.find(end); at != std::string::npos; at = heard_.find(end)) {
        Tell(now, KindText(WireRecord::Kind::In), heard_.substr(0, at + end.size()));
        heard_.erase(0, at + end.size());
    }
    if (heard_.size() > LongestCommand) {
        Tell(now, KindText(WireRecord::Kind::In), std::exchange(heard_, {}));
    }
}

void Wire::Tell(Time now, std::string_view kind, const std::string& bytes) {
    if (tap_) {
        tap_(now, kind, bytes);
    }
}

std::string Wire::FateOf(const std::string& said, const std::string& sent) {
    if (said == sent) {
        return {};
    }
    return (sent.size() < said.size() ? "cut " : "garbled ") + said;
}

}  // namespace workbench
