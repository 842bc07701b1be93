#include "drivers/gcode/Terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <stdexcept>

namespace gcode::test {

Time Terminal::Now() {
    return std::chrono::duration_cast<Time>(std::chrono::steady_clock::now().time_since_epoch());
}

Terminal::Terminal(Controller& controller) : controller_(controller) {
    near_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    std::array<char, 128> name{};
    if (near_ < 0 || grantpt(near_) != 0 || unlockpt(near_) != 0 ||
        ptsname_r(near_, name.data(), name.size()) != 0) {
        throw std::runtime_error("no pseudo-terminal for a test");
    }
    device_ = name.data();
    held_ = open(device_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings{};
    tcgetattr(held_, &settings);
    cfmakeraw(&settings);
    tcsetattr(held_, TCSANOW, &settings);
    thread_ = std::thread([this] { Run(); });
}

Terminal::~Terminal() { Unplug(); }

void Terminal::Unplug() {
    isOver_ = true;
    if (thread_.joinable()) {
        thread_.join();
        close(held_);
        close(near_);
    }
}

void Terminal::Run() {
    while (!isOver_) {
        pollfd state{near_, POLLIN, 0};
        poll(&state, 1, 1);
        const std::lock_guard lock(mutex_);
        std::array<char, 4096> block{};
        const ssize_t count = read(near_, block.data(), block.size());
        if (count > 0) {
            controller_.Receive({block.data(), static_cast<std::size_t>(count)}, Now());
        }
        const std::string words = controller_.Take(Now());
        for (std::size_t sent = 0; sent < words.size();) {
            const ssize_t written = write(near_, words.data() + sent, words.size() - sent);
            if (written <= 0) {
                break;  // nobody reads: like a wire, it keeps nothing
            }
            sent += static_cast<std::size_t>(written);
        }
    }
}

}  // namespace gcode::test
