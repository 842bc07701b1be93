// What passes between the checking process and the one that holds the library.
#pragma once

#include <array>
#include <cstdint>

namespace check {

enum class Wish : std::int32_t {
    Load,         // status 0 when loaded; else text says why not
    GetPosition,  // values: number, x, y, z
    MoveTo,       // arguments: x, y, z
    Select,       // argument: number; value: answer
    GetCount,     // value: count
    Reconnect,
    Stop,      // argument: number
    Changes,   // text: what the library has changed around it; empty: nothing
    Unload,    // status of dlclose
    Remains,   // values: threads, descriptors and processes left behind; text names the descriptors
    EndCalmly  // no answer: ends through exit
};

struct Request {
    Wish wish = Wish::Load;
    std::array<std::int32_t, 3> arguments{};
};

// Times are of the monotonic clock, which is one for all processes.
struct Answer {
    std::int32_t status = 0;
    std::array<std::int32_t, 4> values{};
    std::int64_t begun = 0;  // ns, right ahead of the call
    std::int64_t ended = 0;  // ns, right behind it
    bool wroteBeside = false;
    // Of Load alone.
    std::uint32_t missingFunctions = 0;  // one bit each, in the order of FunctionNames
    bool hasStop = false;
    bool hasSettling = false;
    std::int32_t settling = 0;
    std::array<char, 400> text{};
};

inline constexpr std::array<const char*, 5> FunctionNames{"DriverGetPosition", "DriverMoveTo", "DriverSelect",
                                                          "DriverGetCount", "DriverReconnect"};

}  // namespace check
