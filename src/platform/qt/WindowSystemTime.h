// The time by which the window system stamps what the operator does.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

namespace travo::platform::qt {

// Milliseconds of the X server's own clock, which need not run on this computer; they wrap at 32 bits.
class WindowSystemTime {
public:
    WindowSystemTime();
    ~WindowSystemTime();
    WindowSystemTime(const WindowSystemTime&) = delete;
    WindowSystemTime& operator=(const WindowSystemTime&) = delete;

    // The present moment: what has been done by now bears no later stamp. It takes a way to the server and
    // back. None where the program runs on another window system.
    std::optional<std::uint32_t> Now();

private:
    class Server;
    std::unique_ptr<Server> server_;
};

}  // namespace travo::platform::qt
