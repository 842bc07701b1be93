#include "devices/links/clsMotor.h"

#include <string>
#include <utility>

#include "platform/Windows1252.h"

namespace travo {

clsMotor::clsMotor(platform::SerialPorts& ports, platform::EventLoop& eventLoop, SharedState& state,
                   Panel& panel, FailureHandler& failures)
    : eventLoop_(eventLoop),
      state_(state),
      panel_(panel),
      failures_(failures),
      port_(
          ports, [this] { MotorComm_OnComm(); }, [this] { panel_.PortLost(Instrument::Motor); }) {}

void clsMotor::PortOpen(std::int16_t PortNumber) {
    port_.Open([&](platform::SerialPort& port) {
        port.CommPort(PortNumber);
        port.Settings("9600,N,8,1");
        port.Handshaking(platform::NoHandshaking);
        port.InputLen(0);
        port.InputMode(platform::TextMode);
        port.RThreshold(1);
        port.PortOpen(true);
        WHO();
    });
}

void clsMotor::PortClose() {
    failures_.Handle(QStringLiteral("Motor : Communication failed"), [this] { port_.Close(); });
}

void clsMotor::ZeroReset() { Send("ZERO"); }
void clsMotor::ReceiveZData() { Send("WHEREZ"); }
void clsMotor::ResetData() { Send("RESET"); }
void clsMotor::MoveRZ(std::int32_t Data) { Send("RELMOVEZ" + std::to_string(Data)); }
void clsMotor::MoveMZ(std::int32_t Data) { Send("MOVEZ" + std::to_string(Data)); }
void clsMotor::HALT() { Send("HALT"); }
void clsMotor::WHO() { Send("WHO"); }
void clsMotor::ErgoConnect(std::string_view strData) { Send(strData); }

void clsMotor::Send(std::string_view command) {
    if (port_.Send(std::string(command) + '\r')) {
        panel_.ControlONOFF(false);
    }
}

void clsMotor::MotorComm_OnComm() {
    if (port_.CommEvent() != platform::ReceptionEvent) {
        return;
    }
    if (const std::string text = port_.Input(); !text.empty()) {
        DivideReceivedLines(text);
    }
}

// The loop is served before each line, so a further call may run within this one. It finds nothing
// pending, and what it leaves is replaced by what this call leaves, if this call leaves anything.
void clsMotor::DivideReceivedLines(std::string_view text) {
    MotorText received = std::exchange(PendingText_, MotorText());
    received.Append(text);
    eventLoop_.Serve();
    while (const auto line = received.NextLine()) {
        ParseReceivedLine(*line);
        eventLoop_.Serve();
    }
    const std::size_t dropped = received.TakeDropped();
    if (!received.Empty()) {
        PendingText_ = std::move(received);
    }
    for (std::size_t line = 0; line < dropped; ++line) {
        panel_.LineDropped(Instrument::Motor);
    }
}

void clsMotor::ParseReceivedLine(std::string_view line) {
    try {
        if (TakeAnswer(line)) {
            return;
        }
    } catch (...) {
        // An answer that nobody could take counts as an unknown one.
    }
    ReportUnknown(line);
}

// False for a line that is no good answer.
bool clsMotor::TakeAnswer(std::string_view line) {
    if (line.find('A') == std::string_view::npos) {
        return false;
    }
    if (line.find("Remote Drive Accessory") != std::string_view::npos) {
        state_.bMotorONOFF = true;
    }
    panel_.ControlONOFF(true);
    return true;
}

void clsMotor::ReportUnknown(std::string_view line) {
    try {
        panel_.ControlONOFF(true);
    } catch (...) {
        // The operator is told of the line all the same.
    }
    failures_.Report(platform::FromWindows1252(line) + QStringLiteral(": Motor : Unknown Error"));
}

}  // namespace travo
