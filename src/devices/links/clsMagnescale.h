// The serial link to the Magnescale linear gauge on the focus axis. It asks and never waits.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/state/FailureHandler.h"
#include "devices/links/GaugeText.h"
#include "devices/links/LinkListener.h"
#include "devices/links/LinkPort.h"
#include "platform/SerialPort.h"

namespace travo {

class clsMagnescale {
public:
    class Receiver : public virtual LinkListener {
    public:
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
    // False from a ZeroReset on until the gauge has answered a request that was sent after it: until then the
    // last reading may be counted from the zero before.
    bool ReadingIsFresh() const { return read_ >= needed_; }
    // Disable and enable the keys on the gauge.
    void KeyOFF();
    void KeyON();

private:
    // An answer is taken for that of the oldest request without one. Of more than this many requests the
    // oldest count as lost: else an outage would put all later answers down to requests long past.
    static constexpr std::uint64_t MostUnanswered = 32;

    void MagnescaleComm_OnComm();
    void CountAnswer();

    FailureHandler& failures_;
    Receiver& receiver_;
    GaugeText PendingText_;
    // Requests are numbered from 1 in the order of sending.
    std::uint64_t sent_ = 0;
    // No answer is expected any more to those up to here.
    std::uint64_t settled_ = 0;
    // The one whose answer is the last reading, and the first whose answer will do.
    std::uint64_t read_ = 0;
    std::uint64_t needed_ = 0;
    LinkPort port_;
};

}  // namespace travo
