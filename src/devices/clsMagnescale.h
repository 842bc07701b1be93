// The serial link to the Magnescale linear gauge on the focus axis. It asks and never waits.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/FailureHandler.h"
#include "devices/GaugeText.h"
#include "devices/LinkPort.h"
#include "platform/SerialPort.h"

namespace travo {

class clsMagnescale {
public:
    class Receiver {
    public:
        virtual ~Receiver() = default;
        // The gauge's reading times 1000.
        virtual void MagnescaleData(std::int32_t Data) = 0;
    };

    clsMagnescale(platform::SerialPorts& ports, FailureHandler& failures, Receiver& receiver);

    // Opens the port anew and asks for a reading. Raises nothing: a port that does not open stays closed.
    void PortOpen(std::int16_t PortNumber);
    // Failures are reported. Text without a whole reading is kept.
    void PortClose();
    bool PortOpenCheck() const { return port_.IsOpen(); }

    // The commands. Each is written at once; nothing happens while the port is closed.
    void RequestData();
    // Sets the gauge's display to zero.
    void ZeroReset();
    // Disable and enable the keys on the gauge.
    void KeyOFF();
    void KeyON();

private:
    void MagnescaleComm_OnComm();

    FailureHandler& failures_;
    Receiver& receiver_;
    GaugeText PendingText_;
    LinkPort port_;
};

}  // namespace travo
