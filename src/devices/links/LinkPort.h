// The serial port of one instrument: opening fails in silence, and nothing is sent while it is closed.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/SerialPort.h"

namespace travo {

class LinkPort {
public:
    // Creates the port, closed. OnComm is called for each event of the port, OnLost where it has closed by
    // itself.
    LinkPort(platform::SerialPorts& ports, std::function<void()> OnComm, std::function<void()> OnLost);
    // Closes the port if it is open and releases it.
    ~LinkPort();
    LinkPort(const LinkPort&) = delete;
    LinkPort& operator=(const LinkPort&) = delete;

    // Closes the port if it is open and runs the procedure, which sets the port up, opens it and sends
    // the first commands. What fails in it is told to nobody: the port is closed then, and that is seen.
    template <typename Procedure>
    void Open(Procedure&& procedure) {
        try {
            Close();
            std::forward<Procedure>(procedure)(*port_);
        } catch (...) {
            CloseInSilence();
        }
    }
    // Closes the port if it is open. Raises what the port raises.
    void Close();
    bool IsOpen() const { return port_->PortOpen(); }

    // True when the bytes have been given to the port; false, with nothing sent, while it is closed.
    bool Send(std::string_view bytes);

    // The event that is being told, see platform::SerialPort.
    int CommEvent() const { return port_->CommEvent(); }
    // All that waits in the port's buffer, which is empty then; the empty text where nothing waits.
    std::string Input();

private:
    void CloseInSilence();

    std::unique_ptr<platform::SerialPort> port_;
};

}  // namespace travo
