#include "workbench/doors/WirePort.h"

#include <utility>

namespace workbench {

WirePort::WirePort(Wire& wire, const std::string& programFolder, std::function<Time()> clock,
                   std::function<void()> stirred)
    : wire_(wire), clock_(std::move(clock)), stirred_(std::move(stirred)) {
    if (!programFolder.empty()) {
        link_.emplace(programFolder, wire.Port());
    }
    Connect();
    wire_.OnPlug([this] { Follow(); });
}

WirePort::~WirePort() {
    wire_.OnPlug({});
    heard_.reset();
    Disconnect();
}

void WirePort::Tick() {
    if (!terminal_) {
        return;
    }
    Hear();
    for (const std::string& bytes : wire_.Transmit(clock_())) {
        terminal_->Write(bytes);
    }
}

void WirePort::Connect() {
    auto terminal = std::make_unique<PseudoTerminal>();
    if (link_) {
        link_->LeadTo(terminal->Name());
    }
    terminal_ = std::move(terminal);
    heard_ = std::make_unique<QSocketNotifier>(terminal_->Descriptor(), QSocketNotifier::Read);
    // While nobody has the port open, the hang-up would ring without end: Tick looks instead.
    heard_->setEnabled(false);
    QObject::connect(heard_.get(), &QSocketNotifier::activated, heard_.get(), [this] { stirred_(); });
}

void WirePort::Disconnect() {
    if (link_) {
        link_->Remove();
    }
    if (heard_) {
        // It may be the one that is ringing.
        heard_->setEnabled(false);
        heard_.release()->deleteLater();
    }
    terminal_.reset();
}

void WirePort::Follow() {
    if (wire_.Plugged()) {
        Connect();
    } else {
        Disconnect();
    }
}

void WirePort::Hear() {
    // Asked for before reading: what was written ahead of a closing is still there to be read.
    const bool open = terminal_->IsOpen();
    if (open && !wire_.IsOpen()) {
        wire_.SetOpen(true, clock_());
        heard_->setEnabled(true);
    }
    const std::string bytes = terminal_->Read();
    if (!bytes.empty()) {
        wire_.Receive(bytes, clock_());
    }
    // Bytes at a closed port are those of a program that came and went between two looks.
    if (!open && (wire_.IsOpen() || !bytes.empty())) {
        wire_.SetOpen(false, clock_());
        heard_->setEnabled(false);
        SettleClosed();
    }
}

void WirePort::SettleClosed() {
    if (!terminal_->Refresh()) {
        Disconnect();
        Connect();
    }
}

}  // namespace workbench
