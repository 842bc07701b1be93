#include "devices/links/LinkPort.h"

namespace travo {

LinkPort::LinkPort(platform::SerialPorts& ports, std::function<void()> OnComm, std::function<void()> OnLost)
    : port_(ports.Create(std::move(OnComm), std::move(OnLost))) {}

LinkPort::~LinkPort() { CloseInSilence(); }

void LinkPort::Close() {
    if (port_->PortOpen()) {
        port_->PortOpen(false);
    }
}

void LinkPort::CloseInSilence() {
    try {
        Close();
    } catch (...) {
        // A port that does not close here is released with the link in any case.
    }
}

bool LinkPort::Send(std::string_view bytes) {
    if (!port_->PortOpen()) {
        return false;
    }
    port_->Output(bytes);
    return true;
}

std::string LinkPort::Input() { return port_->InBufferCount() > 0 ? port_->Input() : std::string(); }

}  // namespace travo
