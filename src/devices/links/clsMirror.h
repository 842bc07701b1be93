// The serial link to the mirror controller: tilts the mirror, changes the magnification, and takes in
// what the controller reports, asked and unasked.
#pragma once

#include <QLatin1String>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/state/FailureHandler.h"
#include "devices/links/LinkListener.h"
#include "devices/links/LinkPort.h"
#include "devices/links/MirrorLine.h"
#include "devices/links/MirrorText.h"
#include "platform/SerialPort.h"

namespace travo {

class clsMirror {
public:
    // Whoever takes what comes in. What a call raises drops the rest of its line.
    class Receiver : public virtual LinkListener {
    public:
        // Answers: one axis of the mirror's place, in the controller's counts.
        virtual void ReceiveMirrorXData(std::int32_t Data) = 0;
        virtual void ReceiveMirrorYData(std::int32_t Data) = 0;
        // Status lines: both axes at once.
        virtual void ReceiveMirrorXYData(std::int32_t PositionX, std::int32_t PositionY) = 0;
        // Objective index as reported; any 16-bit value may come.
        virtual void ReceiveMagnificationData(std::int16_t Magnification) = 0;
        // The mirror's own motors: 0 off, anything else on.
        virtual void ReceiveMotorData(std::int16_t ONOFF) = 0;
        // A line of the Ergo unit for the focus motor, without its CR.
        virtual void MotorErgoConnect(std::string_view strData) = 0;
    };

    clsMirror(platform::SerialPorts& ports, FailureHandler& failures, Receiver& receiver);

    // Opens the port anew, switches the unasked status lines on and asks for all that the controller
    // tells. Raises nothing: a port that does not open stays closed.
    void PortOpen(std::int16_t PortNumber);
    // Failures are reported. The last line and the text without a line end are kept.
    void PortClose();
    bool PortOpenCheck() const { return port_.IsOpen(); }

    // The commands. Each is written at once and waits for no answer; nothing happens while the port is
    // closed. Mirror positions are absolute, in the controller's counts, 0 at the centre of the tilt.
    void RequestXData();
    void RequestYData();
    void RequestMagnificationData();
    void SendXData(std::int32_t Data);
    void SendYData(std::int32_t Data);
    void SendMagnificationData(std::int16_t Magnification);
    void SendErgoLock(std::int16_t ErgoLock);
    void RequestErgoLock();
    // 1 switches the mirror's motors on, 0 off.
    void SendMotorONOFF(std::int16_t ONOFF);
    // Whether the controller forwards the Z commands of the Ergo unit.
    void SendErgoZONOFF(std::int16_t ONOFF);
    void RequestMotorONOFF();
    void RequestProgramName();
    // 1 turns the unasked status lines on.
    void StatusONOFF(std::int16_t ONOFF);

private:
    // The box of one axis: it has been shown and the limit still holds; it is up now.
    struct Limit {
        bool Shown = false;
        bool IsUp = false;
    };

    void Send(std::string_view command);
    void Send(std::string_view command, std::int32_t number);

    void MirrorComm_OnComm();
    void DivideReceivedLines(std::string_view text);
    void ParseReceivedLine(std::string_view line);
    void ActOn(const MirrorLine& parts, std::string_view line);
    void TakeAnswer(const MirrorLine& answer);
    void TakeStatus(std::string_view value);
    void ShowLimit(std::string_view field, Limit& limit, QLatin1String text);
    void ReportError(std::string_view line, std::string_view value);

    FailureHandler& failures_;
    Receiver& receiver_;
    std::string LastLine_ = "0";
    MirrorText PendingText_;
    Limit LimitY_;
    Limit LimitX_;
    LinkPort port_;
};

}  // namespace travo
