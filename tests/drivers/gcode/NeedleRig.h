// A driver with two needles of one dialect, on simulated ports, in a folder of its own.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "drivers/gcode/Axes.h"
#include "drivers/gcode/Manipulators.h"
#include "drivers/gcode/SimulatedPorts.h"

namespace gcode::test {

inline constexpr Counts Start{9500, 12500, 12500};
inline constexpr double Speed = 8;           // mm/s of each axis
inline constexpr double Acceleration = 200;  // mm/s²

// Machine positions in which 0 to 25000 counts fit, whatever the dialect's way with signs.
std::string SectionText(int number, DialectName dialect, const std::string& port);

class NeedleRig {
public:
    explicit NeedleRig(DialectName dialect, int needles = 1);
    ~NeedleRig();
    NeedleRig(const NeedleRig&) = delete;
    NeedleRig& operator=(const NeedleRig&) = delete;

    static std::string PortOf(int number) { return "/dev/simulated" + std::to_string(number); }
    SimulatedPorts::Device& Device(int number = 1) { return ports.devices[PortOf(number)]; }
    Controller& ControllerOf(int number = 1) { return *controllers[static_cast<std::size_t>(number - 1)]; }
    // In counts, from the stage and not from what anybody says.
    Counts Truth(int number = 1);
    void Wait(Time time) { ports.clock.now += time; }

    // Lines of G-code and real-time characters that set something in motion, in what the controller has
    // heard.
    int MovesHeard(int number = 1);

    void WriteSettings(const std::string& text);
    void WriteState(const std::string& text);
    std::string LogText() const;
    // The driver anew, as at a new start of the program.
    void StartDriver() { driver = std::make_unique<Manipulators>(folder, ports); }

    // The operations, for tests that look at one value of them.
    Status Read(Counts& counts);
    std::int32_t Count();

    DialectName dialect;
    std::string folder;
    SimulatedPorts ports;
    std::array<std::unique_ptr<Controller>, MostNeedles> controllers;
    std::unique_ptr<Manipulators> driver;
};

}  // namespace gcode::test
