// An instrument at the end of a serial wire: bytes in, lines out. No transport, no clock.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/world/Travel.h"

namespace workbench {

// A line as an instrument hands it to its wire, with its line end.
struct WireLine {
    enum class Manner {
        Paced,  // byte after byte; never in one write with another line
        Apart,  // the same, and with a pause before and after it
        Whole,  // all of it in one write
    };

    std::string bytes;
    Manner manner = Manner::Paced;
    // What a fault did to it, as the traffic tells it; empty for a line that goes as it was said.
    std::string fate{};
};

class Instrument {
public:
    using Counters = std::map<std::string, std::int64_t, std::less<>>;

    Instrument() = default;
    virtual ~Instrument() = default;
    Instrument(const Instrument&) = delete;
    Instrument& operator=(const Instrument&) = delete;

    // Bytes from the wire, cut anywhere. Commands are carried out as soon as they are whole.
    virtual void Receive(std::string_view bytes, Time now) = 0;
    // Lets time pass: what it says by itself is said here.
    virtual void Advance(Time now) = 0;
    // What ends a command on its wire.
    virtual std::string_view CommandEnd() const { return "\r"; }
    // The n-th line, 0-based, of a flood of lines that nobody asked for: harmless, and unlike the one before.
    virtual std::string FloodLine(std::int32_t n, Time now) const = 0;

    // What it has said since it was last asked.
    std::vector<WireLine> TakeLines() { return std::exchange(said_, {}); }

    // Commands received, by name, whatever came of them; "unknown" for all others.
    const Counters& Received() const { return received_; }
    void ForgetCounters() { received_.clear(); }

protected:
    void Say(std::string bytes, WireLine::Manner manner = WireLine::Manner::Paced) {
        said_.push_back({std::move(bytes), manner});
    }
    void Count(std::string_view name) { ++received_[std::string(name)]; }

private:
    std::vector<WireLine> said_;
    Counters received_;
};

}  // namespace workbench
