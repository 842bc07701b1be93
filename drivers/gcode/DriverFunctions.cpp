// The functions that TRAVO calls; see drivers/TravoDriver.h for their contract.
#include "drivers/TravoDriver.h"
#include "drivers/gcode/Files.h"
#include "drivers/gcode/Manipulators.h"
#include "drivers/gcode/SerialPort.h"

// The last ramp, the answer of a controller and a report on its way.
const std::int32_t DriverSettlingMilliseconds = 200;

namespace {

// The functions take no context, so the library keeps it itself, from its first call until it is unloaded.
gcode::Manipulators& Needles() {
    static gcode::SerialPorts ports;
    static gcode::Manipulators needles(gcode::OwnFolder(), ports);
    return needles;
}

// No failure of the language may leave a function with C linkage: it would end the host program.
template <typename Operation>
std::int32_t Safely(Operation operation) noexcept {
    try {
        return static_cast<std::int32_t>(operation());
    } catch (...) {
        return static_cast<std::int32_t>(gcode::Status::Failed);
    }
}

}  // namespace

extern "C" std::int32_t DriverGetPosition(std::int32_t* number, std::int32_t* x, std::int32_t* y,
                                          std::int32_t* z) {
    return Safely([=] {
        std::int32_t selected = 0;
        gcode::Counts counts{};
        const gcode::Status status = Needles().GetPosition(selected, counts);
        if (status == gcode::Status::Done) {
            *number = selected;
            *x = counts[0];
            *y = counts[1];
            *z = counts[2];
        }
        return status;
    });
}

extern "C" std::int32_t DriverMoveTo(std::int32_t x, std::int32_t y, std::int32_t z) {
    return Safely([=] { return Needles().MoveTo({x, y, z}); });
}

extern "C" std::int32_t DriverSelect(std::int32_t number, std::int32_t* answer) {
    return Safely([=] { return Needles().Select(number, *answer); });
}

extern "C" std::int32_t DriverGetCount(std::int32_t* count) {
    return Safely([=] { return Needles().GetCount(*count); });
}

extern "C" std::int32_t DriverReconnect(void) {
    return Safely([] { return Needles().Reconnect(); });
}

extern "C" std::int32_t DriverStop(std::int32_t number) {
    return Safely([=] { return Needles().Stop(number); });
}
