// A serial port of this computer.
#pragma once

#include "drivers/gcode/Wire.h"

namespace gcode {

// Raw, 8 data bits, no parity, one stop bit, no handshake. Nobody else can have it meanwhile. Closing leaves
// DTR as it is, so that a board that restarts with DTR does so at its first opening only.
class SerialPort : public Wire {
public:
    // Takes over an open terminal.
    explicit SerialPort(int terminal) : terminal_(terminal) {}
    ~SerialPort() override;
    SerialPort(const SerialPort&) = delete;
    SerialPort& operator=(const SerialPort&) = delete;

    bool Write(std::string_view bytes) override;
    Reception Read(std::string& into, Time until) override;
    Time Now() const override;

private:
    int terminal_;
};

class SerialPorts : public Ports {
public:
    std::unique_ptr<Wire> Open(const NeedleSettings& needle, std::string& why) override;
    std::string Identity(const NeedleSettings& needle) const override;
};

}  // namespace gcode
