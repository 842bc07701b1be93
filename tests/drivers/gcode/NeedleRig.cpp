#include "drivers/gcode/NeedleRig.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "drivers/gcode/Files.h"
#include "drivers/gcode/Settings.h"
#include "drivers/gcode/simulator/GrblController.h"
#include "drivers/gcode/simulator/MarlinController.h"
#include "drivers/gcode/simulator/OmmController.h"

namespace gcode::test {

namespace {

constexpr double Travel = 30;  // mm of each axis

// The lowest machine position of each axis.
double Lowest(DialectName dialect) {
    return dialect == DialectName::Grbl ? -Travel : dialect == DialectName::Marlin ? 0 : -Travel / 2;
}

std::unique_ptr<Controller> MakeController(DialectName dialect, const Millimetres& at) {
    const MachineLimits limits{{Speed, Speed, Speed}, {Acceleration, Acceleration, Acceleration}};
    switch (dialect) {
        case DialectName::Grbl:
            return std::make_unique<GrblController>(at, limits, Millimetres{Travel, Travel, Travel});
        case DialectName::Marlin:
            return std::make_unique<MarlinController>(at, limits, Millimetres{},
                                                      Millimetres{Travel, Travel, Travel});
        case DialectName::Omm:
            break;
    }
    return std::make_unique<OmmController>(at, limits);
}

}  // namespace

std::string SectionText(int number, DialectName dialect, const std::string& port) {
    const double low = Lowest(dialect);
    return "[needle " + std::to_string(number) + "]\nport = " + port + "\ndialect = " + Name(dialect) +
           "\ncounts-per-mm = 1000\nx = +X\ny = -Y\nz = +Z\nzero = " + std::to_string(low + 1) + ", " +
           std::to_string(low + 27) + ", " + std::to_string(low + 1) +
           (dialect == DialectName::Omm ? "\nspeed-limit = 8\nacceleration = 200\n" : "\n");
}

NeedleRig::NeedleRig(DialectName name, int needles) : dialect(name) {
    std::string pattern = (std::filesystem::temp_directory_path() / "gcode-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no folder for a test");
    }
    folder = pattern;
    std::string text;
    std::string state;
    for (int number = 1; number <= needles; ++number) {
        text += SectionText(number, dialect, PortOf(number));
        // grbl tells itself whether it is homed; of the others it must be known.
        state += dialect == DialectName::Grbl ? "" : "needle " + std::to_string(number) + " homed\n";
    }
    WriteSettings(text);
    WriteState(state);
    const Settings settings = ReadSettings(text);
    for (std::size_t index = 0; index < static_cast<std::size_t>(needles); ++index) {
        controllers[index] = MakeController(dialect, MachinePosition(*settings.needles[index], Start));
        SimulatedPorts::Device& device = Device(static_cast<int>(index) + 1);
        device.controller = controllers[index].get();
        device.identity = std::to_string(index);
    }
    StartDriver();
}

NeedleRig::~NeedleRig() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

Counts NeedleRig::Truth(int number) {
    const Settings settings = ReadSettings(SectionText(number, dialect, PortOf(number)));
    return *NearestCounts(*settings.needles[static_cast<std::size_t>(number - 1)],
                          ControllerOf(number).Truth(ports.clock.now));
}

int NeedleRig::MovesHeard(int number) {
    int moves = 0;
    for (const std::string& line : ControllerOf(number).Heard()) {
        moves += line.starts_with("$J") || line.starts_with("G0") || line.starts_with("G1 ") ||
                         line.starts_with("G28") || line == "$H" || line == "~"
                     ? 1
                     : 0;
    }
    return moves;
}

void NeedleRig::WriteSettings(const std::string& text) { WriteWholeFile(folder + "/manipulators.ini", text); }

void NeedleRig::WriteState(const std::string& text) { WriteWholeFile(folder + "/manipulators.state", text); }

std::string NeedleRig::LogText() const { return ReadWholeFile(folder + "/manipulators.log").value_or(""); }

Status NeedleRig::Read(Counts& counts) {
    std::int32_t number = 0;
    return driver->GetPosition(number, counts);
}

std::int32_t NeedleRig::Count() {
    std::int32_t count = -1;
    driver->GetCount(count);
    return count;
}

}  // namespace gcode::test
