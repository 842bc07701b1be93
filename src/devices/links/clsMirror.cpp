#include "devices/links/clsMirror.h"

#include <utility>

#include "core/ground/Arithmetic.h"
#include "platform/Windows1252.h"

namespace travo {

clsMirror::clsMirror(platform::SerialPorts& ports, FailureHandler& failures, Receiver& receiver)
    : failures_(failures),
      receiver_(receiver),
      port_(
          ports, [this] { MirrorComm_OnComm(); }, [this] { receiver_.PortLost(Instrument::Mirror); }) {}

void clsMirror::PortOpen(std::int16_t PortNumber) {
    port_.Open([&](platform::SerialPort& port) {
        port.CommPort(PortNumber);
        port.Settings("9600,N,8,1");
        port.Handshaking(platform::NoHandshaking);
        port.InputLen(0);
        port.InputMode(platform::TextMode);
        port.RThreshold(1);
        port.PortOpen(true);
        StatusONOFF(1);
        RequestErgoLock();
        RequestMotorONOFF();
        RequestXData();
        RequestYData();
        RequestMagnificationData();
    });
}

void clsMirror::PortClose() {
    failures_.Handle(QStringLiteral("Mirror : Communication failed"), [this] { port_.Close(); });
}

void clsMirror::RequestXData() { Send("rD2R"); }
void clsMirror::RequestYData() { Send("rD1R"); }
void clsMirror::RequestMagnificationData() { Send("rMGR"); }
void clsMirror::SendXData(std::int32_t Data) { Send("cD2A", Data); }
void clsMirror::SendYData(std::int32_t Data) { Send("cD1A", Data); }
void clsMirror::SendMagnificationData(std::int16_t Magnification) { Send("cMAG", Magnification); }
void clsMirror::SendErgoLock(std::int16_t ErgoLock) { Send("cWES", ErgoLock); }
void clsMirror::RequestErgoLock() { Send("rWER"); }
void clsMirror::SendMotorONOFF(std::int16_t ONOFF) { Send("cPMS", ONOFF); }
void clsMirror::SendErgoZONOFF(std::int16_t ONOFF) { Send("cZEN", ONOFF); }
void clsMirror::RequestMotorONOFF() { Send("rPMR"); }
void clsMirror::RequestProgramName() { Send("rPNM"); }
void clsMirror::StatusONOFF(std::int16_t ONOFF) { Send("cSAS", ONOFF); }

void clsMirror::Send(std::string_view command) { port_.Send(std::string(command) + '\r'); }

void clsMirror::Send(std::string_view command, std::int32_t number) {
    port_.Send(std::string(command) + std::to_string(number) + '\r');
}

void clsMirror::MirrorComm_OnComm() {
    if (const std::string text = port_.Input(); !text.empty()) {
        DivideReceivedLines(text);
    }
}

// A box in the middle of a line lets a further call in. It finds nothing pending, and what it leaves
// is replaced by what this call leaves, if this call leaves anything.
void clsMirror::DivideReceivedLines(std::string_view text) {
    MirrorText received = std::exchange(PendingText_, MirrorText());
    received.Append(text);
    while (const auto line = received.NextLine()) {
        if (line->forMotor) {
            receiver_.MotorErgoConnect(line->text);
        } else {
            ParseReceivedLine(line->text);
        }
    }
    const std::size_t dropped = received.TakeDropped();
    if (!received.Empty()) {
        PendingText_ = std::move(received);
    }
    for (std::size_t line = 0; line < dropped; ++line) {
        receiver_.LineDropped(Instrument::Mirror);
    }
}

void clsMirror::ParseReceivedLine(std::string_view line) {
    // The controller repeats its status while nothing changes.
    if (line == LastLine_) {
        return;
    }
    LastLine_ = line;
    std::string_view value;
    try {
        const MirrorLine parts = ReadMirrorLine(line);
        value = parts.Value;
        ActOn(parts, line);
    } catch (...) {
        // A malformed line is dropped, but for one whose value reads as an error number.
        ReportError(line, value);
    }
}

void clsMirror::ActOn(const MirrorLine& parts, std::string_view line) {
    switch (parts.Class) {
        case 'q':
        case 'o':
            return;
        case 'n':
            // Not every controller knows the switch of the Ergo unit's Z.
            if (parts.Command != "ZEN") {
                ReportError(line, parts.Value);
            }
            return;
        case 's':
            if (parts.Command == "SAA") {
                TakeStatus(parts.Value);
            }
            return;
        default:
            TakeAnswer(parts);
    }
}

void clsMirror::TakeAnswer(const MirrorLine& answer) {
    if (answer.Command == "D2R") {
        receiver_.ReceiveMirrorXData(ReadInteger32(answer.Value));
    } else if (answer.Command == "D1R") {
        receiver_.ReceiveMirrorYData(ReadInteger32(answer.Value));
    } else if (answer.Command == "MGR") {
        receiver_.ReceiveMagnificationData(ReadInteger16(answer.Value));
    } else if (answer.Command == "PMR") {
        receiver_.ReceiveMotorData(ReadInteger16(answer.Value));
    }
}

// Each field is read when its turn comes: a bad one stops there, with the ones ahead of it delivered.
void clsMirror::TakeStatus(std::string_view value) {
    const StatusFields fields = ReadStatusFields(value);
    receiver_.ReceiveMagnificationData(ReadInteger16(fields[StatusMagnification]));
    const std::int32_t x = ReadInteger32(fields[StatusX]);
    const std::int32_t y = ReadInteger32(fields[StatusY]);
    receiver_.ReceiveMirrorXYData(x, y);
    receiver_.ReceiveMotorData(ReadInteger16(fields[StatusMotor]));
    ShowLimit(fields[StatusLimitY], LimitY_, QLatin1String("Movement limit Y"));
    ShowLimit(fields[StatusLimitX], LimitX_, QLatin1String("Movement limit X"));
}

// Once for each arrival at the limit. The latch closes when the box has been answered, and until then
// further status lines find the box up.
void clsMirror::ShowLimit(std::string_view field, Limit& limit, QLatin1String text) {
    if (ReadInteger32(field) == 0) {
        limit.Shown = false;
    } else if (!limit.Shown && !limit.IsUp) {
        limit.IsUp = true;
        failures_.Show(text);
        limit.IsUp = false;
        limit.Shown = true;
    }
}

void clsMirror::ReportError(std::string_view line, std::string_view value) {
    if (const auto text = MirrorErrorText(value)) {
        failures_.Report(platform::FromWindows1252(line) + *text);
    }
}

}  // namespace travo
