// The serial link to the motorised focus drive. It only commands: where the focus is, the gauge tells.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/state/FailureHandler.h"
#include "core/state/SharedState.h"
#include "devices/links/LinkListener.h"
#include "devices/links/LinkPort.h"
#include "devices/links/MotorText.h"
#include "platform/EventLoop.h"
#include "platform/SerialPort.h"

namespace travo {

class clsMotor {
public:
    // The motor's row of the connection panel.
    class Panel : public virtual LinkListener {
    public:
        // False locks the buttons at every command, true unlocks them at every answer.
        virtual void ControlONOFF(bool ONOFF) = 0;
    };

    clsMotor(platform::SerialPorts& ports, platform::EventLoop& eventLoop, SharedState& state, Panel& panel,
             FailureHandler& failures);

    // Opens the port anew and asks who answers there. Raises nothing: a port that does not open stays
    // closed.
    void PortOpen(std::int16_t PortNumber);
    // Failures are reported. The text without a line end is kept.
    void PortClose();
    bool PortOpenCheck() const { return port_.IsOpen(); }

    // The commands. Each is written at once, locks the panel's buttons, and waits for no answer; nothing
    // happens while the port is closed. Distances are the motor unit's counts, positive the way of the
    // "MirrorUp" buttons, without a limit here.
    void ZeroReset();
    // Asks where Z is; the answer is not used.
    void ReceiveZData();
    void ResetData();
    void MoveRZ(std::int32_t Data);
    void MoveMZ(std::int32_t Data);
    void HALT();
    void WHO();
    // Passes a line of the Ergo unit, without its CR, through to the motor unchanged.
    void ErgoConnect(std::string_view strData);

private:
    void Send(std::string_view command);

    void MotorComm_OnComm();
    void DivideReceivedLines(std::string_view text);
    void ParseReceivedLine(std::string_view line);
    bool TakeAnswer(std::string_view line);
    void ReportUnknown(std::string_view line);

    platform::EventLoop& eventLoop_;
    SharedState& state_;
    Panel& panel_;
    FailureHandler& failures_;
    MotorText PendingText_;
    LinkPort port_;
};

}  // namespace travo
