#include "workbench/doors/PseudoTerminal.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace workbench {

namespace {

[[noreturn]] void Raise(int near) {
    const int reason = errno;
    if (near >= 0) {
        close(near);
    }
    throw std::system_error(reason, std::generic_category(), "a pseudo-terminal cannot be made");
}

}  // namespace

PseudoTerminal::PseudoTerminal() : near_(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    std::array<char, 128> name{};
    if (near_ < 0 || grantpt(near_) != 0 || unlockpt(near_) != 0 ||
        ptsname_r(near_, name.data(), name.size()) != 0) {
        Raise(near_);
    }
    name_ = name.data();
    // The hang-up shows only after a first closing.
    if (!Refresh()) {
        Raise(near_);
    }
}

PseudoTerminal::~PseudoTerminal() { close(near_); }

bool PseudoTerminal::IsOpen() const {
    pollfd state{near_, POLLIN, 0};
    return poll(&state, 1, 0) >= 0 && (state.revents & (POLLHUP | POLLERR)) == 0;
}

std::string PseudoTerminal::Read() {
    std::string received;
    std::array<char, 4096> bytes{};
    while (true) {
        const ssize_t count = read(near_, bytes.data(), bytes.size());
        if (count > 0) {
            received.append(bytes.data(), static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            return received;
        }
    }
}

void PseudoTerminal::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(near_, bytes.data(), bytes.size());
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            return;
        }
    }
}

bool PseudoTerminal::Refresh() {
    const int far = open(name_.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (far < 0) {
        return false;
    }
    ioctl(far, TIOCNXCL);
    termios settings{};
    bool done = tcgetattr(far, &settings) == 0;
    cfmakeraw(&settings);
    done = done && tcsetattr(far, TCSANOW, &settings) == 0 && tcflush(far, TCIOFLUSH) == 0;
    close(far);
    return done;
}

}  // namespace workbench
