// A port that is open: bytes out, bytes in, and the time that goes with them.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "drivers/gcode/NeedleSettings.h"
#include "drivers/gcode/Units.h"

namespace gcode {

class Wire {
public:
    enum class Reception { Bytes, Nothing, Gone };

    virtual ~Wire() = default;

    // All of it, waiting for room 200 ms at most; false where the port is gone or takes no more.
    virtual bool Write(std::string_view bytes) = 0;
    // Appends what has come. Waits for the first byte until then at most; a time that has passed asks without
    // waiting.
    virtual Reception Read(std::string& into, Time until) = 0;
    virtual Time Now() const = 0;
};

// Where ports are opened.
class Ports {
public:
    virtual ~Ports() = default;
    // None where it cannot be had; `why` then says what a person can do something about.
    virtual std::unique_ptr<Wire> Open(const NeedleSettings& needle, std::string& why) = 0;
    // Two names of one device have one identity; empty where there is no device.
    virtual std::string Identity(const NeedleSettings& needle) const = 0;
};

}  // namespace gcode
