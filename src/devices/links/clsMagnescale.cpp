#include "devices/links/clsMagnescale.h"

#include <algorithm>
#include <utility>

namespace travo {

clsMagnescale::clsMagnescale(platform::SerialPorts& ports, FailureHandler& failures, Receiver& receiver)
    : failures_(failures),
      receiver_(receiver),
      port_(
          ports, [this] { MagnescaleComm_OnComm(); },
          [this] { receiver_.PortLost(Instrument::Magnescale); }) {}

void clsMagnescale::PortOpen(std::int16_t PortNumber) {
    port_.Open([&](platform::SerialPort& port) {
        port.CommPort(PortNumber);
        port.Settings("2400,N,8,1");
        port.InputLen(0);
        port.InputMode(platform::TextMode);
        // The gauge marks the end of a reading by its Clear To Send line; reception tells nothing.
        port.RThreshold(0);
        port.PortOpen(true);
        // What was asked before the port was closed is answered no more.
        settled_ = sent_;
        RequestData();
    });
}

void clsMagnescale::PortClose() {
    failures_.Handle(QStringLiteral("Error : Magnescale : Communication Port Close failed"),
                     [this] { port_.Close(); });
}

void clsMagnescale::RequestData() {
    if (port_.Send("Ar\r\n")) {
        ++sent_;
        settled_ = std::max(settled_, sent_ - std::min(sent_, MostUnanswered));
    }
}

void clsMagnescale::ZeroReset() {
    if (port_.IsOpen()) {
        // Also where the port then fails: what the caller has moved is moved.
        needed_ = sent_ + 1;
    }
    port_.Send("ARES\r\n");
}

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
        const bool dropped = text.TakeDropped();
        PendingText_ = std::move(text);
        if (dropped) {
            receiver_.LineDropped(Instrument::Magnescale);
        }
        return;
    }
    // A reading that is no number is lost with all that came with it.
    if (const auto count = GaugeCount(*reading)) {
        CountAnswer();
        receiver_.MagnescaleData(*count);
    }
}

// A reading that nobody has asked for answers nothing.
void clsMagnescale::CountAnswer() {
    if (settled_ < sent_) {
        read_ = ++settled_;
    }
}

}  // namespace travo
