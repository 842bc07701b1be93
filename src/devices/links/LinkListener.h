// What every serial link has to tell besides the values of its instrument.
#pragma once

#include <cstdint>

namespace travo {

// The instruments on serial ports, by their rows of the connection panel.
enum class Instrument : std::int16_t { Mirror, Magnescale, Motor };

class LinkListener {
public:
    virtual ~LinkListener() = default;
    // The device of its port has gone: the port is closed, and nothing that it told holds any more.
    virtual void PortLost(Instrument instrument) = 0;
    // What it sent without an end has become too long, and is dropped up to its next end; told once for each.
    virtual void LineDropped(Instrument instrument) = 0;
};

}  // namespace travo
