#include "drivers/gcode/SimulatedPorts.h"

#include <algorithm>

namespace gcode::test {

namespace {

// Noise comes in pieces of this length.
constexpr Time Slice = std::chrono::milliseconds(5);

}  // namespace

bool SimulatedWire::Write(std::string_view bytes) {
    if (cable_.isPlugged) {
        controller_.Receive(bytes, clock_.now);
    }
    return cable_.isPlugged;
}

std::string SimulatedWire::Arrived() {
    std::string arrived = controller_.Take(clock_.now);
    if (cable_.noise) {
        arrived += cable_.noise(heardUntil_, clock_.now);
    }
    heardUntil_ = clock_.now;
    if (cable_.untilCut) {
        arrived.resize(std::min(arrived.size(), *cable_.untilCut));
        *cable_.untilCut -= arrived.size();
    }
    return cable_.change ? cable_.change(std::move(arrived)) : arrived;
}

Wire::Reception SimulatedWire::Read(std::string& into, Time until) {
    while (cable_.isPlugged) {
        const std::string arrived = Arrived();
        if (!arrived.empty()) {
            into += arrived;
            return Reception::Bytes;
        }
        if (clock_.now >= until) {
            return Reception::Nothing;
        }
        Time next = std::min(until, controller_.NextWord(clock_.now));
        next = cable_.noise ? std::min(next, clock_.now + Slice) : next;
        clock_.now = std::max(clock_.now + Time(1), next);
    }
    return Reception::Gone;
}

std::unique_ptr<Wire> SimulatedPorts::Open(const NeedleSettings& needle, std::string& why) {
    const auto found = devices.find(needle.port);
    if (found == devices.end() || !found->second.cable.isPlugged) {
        why = "there is no device " + needle.port;
        return nullptr;
    }
    Device& device = found->second;
    if (!device.cable.refusal.empty()) {
        why = device.cable.refusal;
        return nullptr;
    }
    ++device.cable.openings;
    // What was said while nobody listened is gone.
    device.controller->Take(clock.now);
    return std::make_unique<SimulatedWire>(*device.controller, device.cable, clock);
}

std::string SimulatedPorts::Identity(const NeedleSettings& needle) const {
    const auto found = devices.find(needle.port);
    return found == devices.end() ? std::string() : found->second.identity;
}

}  // namespace gcode::test
