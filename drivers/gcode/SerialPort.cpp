#include "drivers/gcode/SerialPort.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>

#include "drivers/gcode/BaudRate.h"

namespace gcode {

namespace {

constexpr Time WriteLimit = std::chrono::milliseconds(200);

Time SteadyNow() {
    return std::chrono::duration_cast<Time>(std::chrono::steady_clock::now().time_since_epoch());
}

// What the file system says, in words for the one who has to mend it.
std::string Because(int reason, const std::string& port) {
    switch (reason) {
        case ENOENT:
        case ENODEV:
        case ENXIO:
            return "there is no device " + port + ": is it plugged in and switched on?";
        case EACCES:
        case EPERM:
            return "no permission for " + port + ": add the user to the group dialout";
        case EBUSY:
        case EWOULDBLOCK:
            return port + " is in use by another program";
        default:
            return port + " cannot be opened (error " + std::to_string(reason) + ")";
    }
}

bool MakeRaw(int terminal, int baud) {
    termios settings{};
    if (tcgetattr(terminal, &settings) != 0) {
        return false;
    }
    cfmakeraw(&settings);
    settings.c_cflag &= ~static_cast<tcflag_t>(HUPCL | CSTOPB | PARENB | CRTSCTS);
    settings.c_cflag |= CLOCAL | CREAD;
    settings.c_cc[VMIN] = 0;
    settings.c_cc[VTIME] = 0;
    return tcsetattr(terminal, TCSANOW, &settings) == 0 && SetBaudRate(terminal, baud);
}

// Waits until the terminal is ready; the answer is what poll says of it, 0 at the end of the time.
short Await(int terminal, short what, Time until) {
    while (true) {
        const Time left = std::max(Time(0), until - SteadyNow());
        const timespec wait{static_cast<std::time_t>(left.count() / 1000000),
                            static_cast<long>(left.count() % 1000000) * 1000};
        pollfd state{terminal, what, 0};
        const int count = ppoll(&state, 1, &wait, nullptr);
        if (count > 0) {
            return state.revents;
        }
        if (count == 0) {
            return 0;
        }
        if (errno != EINTR) {
            return POLLERR;
        }
    }
}

}  // namespace

SerialPort::~SerialPort() { close(terminal_); }

Time SerialPort::Now() const { return SteadyNow(); }

bool SerialPort::Write(std::string_view bytes) {
    const Time until = SteadyNow() + WriteLimit;
    while (!bytes.empty()) {
        const ssize_t count = write(terminal_, bytes.data(), bytes.size());
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (count < 0 && errno != EINTR && errno != EAGAIN) {
            return false;
        } else if (!bytes.empty() && (Await(terminal_, POLLOUT, until) & POLLOUT) == 0) {
            return false;
        }
    }
    return true;
}

Wire::Reception SerialPort::Read(std::string& into, Time until) {
    std::array<char, 4096> block;
    const short ready = Await(terminal_, POLLIN, until);
    if (ready == 0) {
        return Reception::Nothing;
    }
    // A device that has vanished hangs up; what it said before can still be read.
    const ssize_t count = read(terminal_, block.data(), block.size());
    if (count > 0) {
        into.append(block.data(), static_cast<std::size_t>(count));
        return Reception::Bytes;
    }
    const bool isLater =
        count < 0 && (errno == EAGAIN || errno == EINTR) && (ready & (POLLHUP | POLLERR)) == 0;
    return isLater ? Reception::Nothing : Reception::Gone;
}

std::unique_ptr<Wire> SerialPorts::Open(const NeedleSettings& needle, std::string& why) {
    const int terminal = open(needle.port.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (terminal < 0) {
        why = Because(errno, needle.port);
        return nullptr;
    }
    auto port = std::make_unique<SerialPort>(terminal);
    if (isatty(terminal) == 0) {
        why = needle.port + " is no serial port";
        return nullptr;
    }
    // Two claims: one that keeps others out who know of none, and one that holds for the administrator as
    // well.
    if (flock(terminal, LOCK_EX | LOCK_NB) != 0 || ioctl(terminal, TIOCEXCL) != 0) {
        why = Because(errno, needle.port);
        return nullptr;
    }
    if (!MakeRaw(terminal, needle.baud)) {
        why = needle.port + " does not take " + std::to_string(needle.baud) + " baud";
        return nullptr;
    }
    tcflush(terminal, TCIOFLUSH);
    return port;
}

std::string SerialPorts::Identity(const NeedleSettings& needle) const {
    struct stat state {};
    return stat(needle.port.c_str(), &state) == 0
               ? std::to_string(state.st_rdev) + "." + std::to_string(state.st_ino)
               : std::string();
}

}  // namespace gcode
