// Ports behind which controllers are simulated, on a clock that only waiting moves: no thread, no real time.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "drivers/gcode/Wire.h"
#include "drivers/gcode/simulator/Controller.h"

namespace gcode::test {

struct Clock {
    // Not 0, as the clock of a computer that runs is not.
    Time now = std::chrono::hours(5);
};

// What is done to the bytes on their way to the driver.
struct Cable {
    bool isPlugged = true;
    std::string refusal;  // why the port does not open; empty where it does
    // Bytes that still get through; then none does, until it is set anew.
    std::optional<std::size_t> untilCut;
    // What the cable itself says between two times.
    std::function<std::string(Time from, Time to)> noise;
    // What becomes of each piece that comes.
    std::function<std::string(std::string)> change;
    int openings = 0;
};

class SimulatedWire : public Wire {
public:
    SimulatedWire(Controller& controller, Cable& cable, Clock& clock)
        : controller_(controller), cable_(cable), clock_(clock), heardUntil_(clock.now) {}

    bool Write(std::string_view bytes) override;
    Reception Read(std::string& into, Time until) override;
    Time Now() const override { return clock_.now; }

private:
    std::string Arrived();

    Controller& controller_;
    Cable& cable_;
    Clock& clock_;
    Time heardUntil_;
};

class SimulatedPorts : public Ports {
public:
    std::unique_ptr<Wire> Open(const NeedleSettings& needle, std::string& why) override;
    std::string Identity(const NeedleSettings& needle) const override;

    struct Device {
        Controller* controller = nullptr;
        Cable cable;
        std::string identity;
    };
    Clock clock;
    std::map<std::string, Device> devices;  // by the name of the port
};

}  // namespace gcode::test
