// The wire between one instrument and its port: pace, faults, log and replay. Where the bytes go is the
// affair of whoever owns the port.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/instruments/Instrument.h"
#include "workbench/wires/LineFaults.h"
#include "workbench/wires/LinePacer.h"
#include "workbench/wires/WireLog.h"

namespace workbench {

class Wire {
public:
    static constexpr std::int32_t LongestFlood = 10000;  // lines
    static constexpr std::int32_t LongestNoise = 10000;  // bytes

    // The name is the one of the commands; the port is the number of the serial port in the program folder.
    // The instrument must outlive the wire.
    Wire(std::string name, std::int32_t port, std::int64_t baud, Instrument& instrument)
        : name_(std::move(name)), port_(port), instrument_(instrument), pacer_(baud) {}

    const std::string& Name() const { return name_; }
    std::int32_t Port() const { return port_; }
    const Instrument& Device() const { return instrument_; }
    Instrument& Device() { return instrument_; }

    // The port was opened, or closed by the last who had it open. What was under way is lost with a
    // closing, and nothing is kept for the next opening.
    void SetOpen(bool open, Time now);
    bool IsOpen() const { return open_; }

    // Who wants to know what goes over the wire, at once. Kinds: those of a log, whose "in" is one whole
    // command here, with "note" for "open", "shut", "cable in", "cable out"; "event" for what a fault did:
    // "silent LINE", "garbled LINE", "cut LINE", "noise N", "flood N". That of a garbled or cut line comes
    // directly before the record of what went.
    using Tap = std::function<void(Time time, std::string_view kind, std::string_view bytes)>;
    void OnTraffic(Tap tap) { tap_ = std::move(tap); }

    // Bytes for the instrument.
    void Receive(std::string_view bytes, Time now);
    // Lets time pass. What is due by now, each text for one write.
    std::vector<std::string> Transmit(Time now);
    // Whether something is under way, so that Transmit is wanted soon.
    bool Busy() const { return !pacer_.Idle() || !replay_.empty(); }

    LineFaults& Faults() { return faults_; }
    const LineFaults& Faults() const { return faults_; }
    void SendNoise(std::int32_t bytes, Time now);
    void SendFlood(std::int32_t lines, Time now);

    // The cable. Whoever owns the port is told of a change; what he raises goes to whoever asked, with the
    // cable as it was.
    void Plug(bool plugged, Time now);
    bool Plugged() const { return plugged_; }
    void OnPlug(std::function<void()> changed) { plugChanged_ = std::move(changed); }

    // travo::Failure for a file that cannot be written, or read. A replay plays what came from the
    // instrument once more, in its own time, and the instrument's own lines are lost meanwhile.
    void LogTo(const std::string& path) { log_.Open(path); }
    void EndLog() { log_.Close(); }
    void Replay(const std::string& path, Time now);
    void EndReplay() { replay_.clear(); }
    bool Replays() const { return !replay_.empty(); }

private:
    void Collect(Time now);
    void PlayBack(Time now);
    void NotePiece(const LinePacer::Piece& piece, Time now);
    void NoteHeard(std::string_view bytes, Time now);
    void Tell(Time now, std::string_view kind, const std::string& bytes);
    static std::string FateOf(const std::string& said, const std::string& sent);

    std::string name_;
    std::int32_t port_;
    Instrument& instrument_;
    LineFaults faults_;
    LinePacer pacer_;
    WireLog log_;
    Tap tap_;
    std::string heard_;     // of a command that has not ended yet
    std::string unlogged_;  // of a line that has not ended yet
    std::deque<WireRecord> replay_;
    Time replayShift_{0};
    bool open_ = false;
    bool plugged_ = true;
    std::function<void()> plugChanged_;
};

}  // namespace workbench
