// The closed driver library of the needle manipulators: five operations, fenced.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <stdexcept>

namespace travo::platform {

// An operation of the driver answered with a negative status, which the text names beside the operation, or
// threw whatever it may be.
class DriverFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Numbers are 1-based here. Positions are driver counts, 0 to 25000 on each axis when they are good;
// nothing is tested. Every operation blocks until the driver answers and raises DriverFailure.
class ManipulatorDriver {
public:
    struct Position {
        std::int32_t number = 0;
        std::array<std::int32_t, 3> xyz{};
    };

    virtual ~ManipulatorDriver() = default;
    // Number and present position of the selected manipulator.
    virtual Position DriverGetPosition() = 0;
    // Starts the selected manipulator towards the position and returns before it arrives.
    virtual void DriverMoveTo(std::int32_t x, std::int32_t y, std::int32_t z) = 0;
    // Selects a manipulator; the driver's answer.
    virtual std::int32_t DriverSelect(std::int32_t number) = 0;
    virtual std::int32_t DriverGetCount() = 0;
    virtual void DriverReconnect() = 0;
};

class ManipulatorDriverLibrary {
public:
    virtual ~ManipulatorDriverLibrary() = default;
    // The driver object, or none where the library is missing or lacks a function. Raises nothing.
    virtual std::unique_ptr<ManipulatorDriver> Create() = 0;
};

}  // namespace travo::platform
