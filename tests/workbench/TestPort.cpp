#include "workbench/TestPort.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>

namespace workbench {

namespace {

constexpr int Limit = 20000;     // ms
constexpr int QuietLimit = 300;  // ms: a reading of the gauge takes 42

}  // namespace

TestPort::TestPort(const std::string& path, bool exclusive)
    : descriptor_(open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    termios settings{};
    if (descriptor_ >= 0 && tcgetattr(descriptor_, &settings) == 0) {
        raw_ = (settings.c_lflag & (ICANON | ECHO | ISIG)) == 0 && (settings.c_oflag & OPOST) == 0 &&
               (settings.c_iflag & (ICRNL | IXON | ISTRIP)) == 0;
    }
    if (exclusive) {
        ioctl(descriptor_, TIOCEXCL);
    }
}

TestPort::~TestPort() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

void TestPort::Write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor_, bytes.data(), bytes.size());
        if (count <= 0) {
            return;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

std::string TestPort::ReadUntil(std::string_view end) {
    std::string text;
    const auto limit = std::chrono::steady_clock::now() + std::chrono::milliseconds(Limit);
    // Byte by byte, so as not to take what follows.
    while (!text.ends_with(end) && std::chrono::steady_clock::now() < limit && ReadMore(text, Limit, 1)) {
    }
    return text;
}

std::string TestPort::ReadPiece() {
    std::string text;
    ReadMore(text, Limit, std::string::npos);
    return text;
}

std::string TestPort::ReadBytes(std::size_t count) {
    std::string text;
    while (text.size() < count && ReadMore(text, Limit, count - text.size())) {
    }
    return text;
}

bool TestPort::Quiet() {
    std::string text;
    return !ReadMore(text, QuietLimit, 1);
}

bool TestPort::WaitForHangUp() {
    pollfd state{descriptor_, 0, 0};
    return poll(&state, 1, Limit) > 0 && (state.revents & POLLHUP) != 0;
}

bool TestPort::ReadMore(std::string& text, int limit, std::size_t most) {
    pollfd state{descriptor_, POLLIN, 0};
    std::array<char, 256> bytes{};
    if (poll(&state, 1, limit) <= 0) {
        return false;
    }
    const ssize_t count = read(descriptor_, bytes.data(), std::min(most, bytes.size()));
    if (count <= 0) {
        return false;
    }
    text.append(bytes.data(), static_cast<std::size_t>(count));
    return true;
}

}  // namespace workbench
