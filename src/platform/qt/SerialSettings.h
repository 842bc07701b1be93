// The settings text of a serial port.
#pragma once

#include <cstdint>
#include <string_view>

namespace travo::platform::qt {

struct SerialSettings {
    enum class Parity { None, Even, Odd };
    enum class StopBits { One, OneAndHalf, Two };

    std::int32_t speed = 0;  // bits a second
    Parity parity = Parity::None;
    int dataBits = 0;
    StopBits stopBits = StopBits::One;

    bool operator==(const SerialSettings&) const = default;
};

// Reads speed, parity, data bits and stop bits as in "9600,N,8,1": a speed of 1 to 9 digits that does
// not begin with 0; N, E or O; 5 to 8; 1, 1.5 or 2. Nothing else may stand there, not even a blank.
// Raises std::runtime_error with the text in it otherwise.
SerialSettings ReadSerialSettings(std::string_view text);

}  // namespace travo::platform::qt
