// A serial port by the names of the platform's control.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace travo::platform {

// Values of CommEvent.
inline constexpr int ReceptionEvent = 2;
inline constexpr int ClearToSendEvent = 3;

// Values of Handshaking and InputMode.
inline constexpr int NoHandshaking = 0;
inline constexpr int TextMode = 0;

class SerialPort {
public:
    virtual ~SerialPort() = default;

    // Number of the port as the system counts it, from 1. To be set while the port is closed.
    virtual void CommPort(std::int16_t number) = 0;
    // Speed, parity, data bits and stop bits, as in "9600,N,8,1".
    virtual void Settings(std::string_view settings) = 0;
    virtual void Handshaking(int handshaking) = 0;
    // How many characters a read takes; 0 takes all.
    virtual void InputLen(int length) = 0;
    virtual void InputMode(int mode) = 0;
    // Received characters for each reception event; 0 fires none.
    virtual void RThreshold(int characters) = 0;

    // True opens and raises std::runtime_error where the port is missing, forbidden, in use or open
    // already, or its settings cannot be had; false closes, also inside OnComm. A port whose device
    // vanishes closes by itself, from the event loop; OnLost then, and no event, tells so.
    virtual void PortOpen(bool open) = 0;
    virtual bool PortOpen() const = 0;

    // Characters that wait to be read, and those characters, which are then gone.
    virtual int InBufferCount() const = 0;
    virtual std::string Input() = 0;
    // Queues the bytes for sending and returns. What a dead wire does not take is lost in silence.
    virtual void Output(std::string_view bytes) = 0;

    // The event that is being told: 2 for reception, 3 for a change of Clear To Send.
    virtual int CommEvent() const = 0;
};

class SerialPorts {
public:
    virtual ~SerialPorts() = default;
    // A closed port. OnComm is called from the event loop for each event of the port, and from event
    // loops that run inside such a call, up to a bound; it may end the port. OnLost is called from the
    // event loop once for each opening that ends by itself, when the port is closed already; it may open
    // or end the port.
    virtual std::unique_ptr<SerialPort> Create(std::function<void()> OnComm,
                                               std::function<void()> OnLost) = 0;
};

}  // namespace travo::platform
