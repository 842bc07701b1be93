// What the owner tells on of the serial ports, as core/state/News.h has it of all else.
#pragma once

#include "devices/links/LinkListener.h"

namespace travo {

class HearsPortLost {
public:
    virtual ~HearsPortLost() = default;
    // The port has closed by itself; what its instrument told does not hold any more.
    virtual void PortLost(Instrument instrument) = 0;
};

class HearsLineDropped {
public:
    virtual ~HearsLineDropped() = default;
    // What the instrument sent without an end has become too long and is dropped.
    virtual void LineDropped(Instrument instrument) = 0;
};

}  // namespace travo
