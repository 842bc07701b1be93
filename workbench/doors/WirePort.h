// One wire on its pseudo-terminal.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "workbench/doors/PortLink.h"
#include "workbench/doors/PseudoTerminal.h"
#include "workbench/wires/Wire.h"

namespace workbench {

// Carries what is due whenever Tick is called, and what is received at once. A wire that is unplugged has
// neither pseudo-terminal nor link; plugged in again it gets a new one. Raises std::runtime_error where
// the port cannot be made.
class WirePort {
public:
    // The clock says what time it is in the world. Without a program folder no link is made. stirred is
    // called when something has come in: Tick is wanted then.
    WirePort(Wire& wire, const std::string& programFolder, std::function<Time()> clock,
             std::function<void()> stirred);
    ~WirePort();
    WirePort(const WirePort&) = delete;
    WirePort& operator=(const WirePort&) = delete;

    // Looks who has the port open, and sends what is due.
    void Tick();
    // The device that leads to the instrument; empty while it is unplugged.
    std::string Device() const { return terminal_ ? terminal_->Name() : std::string(); }

private:
    void Connect();
    void Disconnect();
    void Follow();
    void Hear();
    void SettleClosed();

    Wire& wire_;
    std::function<Time()> clock_;
    std::function<void()> stirred_;
    std::optional<PortLink> link_;
    std::unique_ptr<PseudoTerminal> terminal_;
    std::unique_ptr<QSocketNotifier> heard_;
};

}  // namespace workbench
