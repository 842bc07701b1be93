#include "devices/clsMagnescale.h"

#include <utility>

namespace travo {

clsMagnescale::clsMagnescale(platform::SerialPorts& ports, FailureHandler& failures, Receiver& receiver)
    : failures_(failures), receiver_(receiver), port_(ports, [this] { MagnescaleComm_OnComm(); }) {}

void clsMagnescale::PortOpen(std::int16_t PortNumber) {
    port_.Open([&](platform::SerialPort& port) {
        port.CommPort(PortNumber);
        port.Settings("2400,N,8,1");
        port.InputLen(0);
        port.InputMode(platform::TextMode);
        // The gauge marks the end of a reading by its Clear To Send line; reception tells nothing.
        port.RThreshold(0);
        port.PortOpen(true);
        RequestData();
    });
}

void clsMagnescale::PortClose() {
    failures_.Handle(QStringLiteral("Error : Magnescale : Communication Port Close failed"),
                     [this] { port_.Close(); });
}

void clsMagnescale::RequestData() { port_.Send("Ar\r\n"); }
void clsMagnescale::ZeroReset() { port_.Send("ARES\r\n"); }
void clsMagnescale::KeyOFF() { port_.Send("KEYOFF\r\n"); }
void clsMagnescale::KeyON() { port_.Send("KEYON\r\n"); }

void clsMagnescale::MagnescaleComm_OnComm() {
    if (port_.CommEvent() != platform::ClearToSendEvent) {
        return;
    }
    GaugeText text = std::exchange(PendingText_, GaugeText());
    text.Append(port_.Input());
    const auto reading = text.Reading();
    if (!reading) {
        PendingText_ = std::move(text);
        return;
    }
    // A reading that is no number is lost with all that came with it.
    if (const auto count = GaugeCount(*reading)) {
        receiver_.MagnescaleData(*count);
    }
}

}  // namespace travo
