// A wire whose instrument is the test: the far end of a pseudo-terminal.
#pragma once

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <QString>
#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>

namespace travo::test {

class PseudoTerminal {
public:
    PseudoTerminal() : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
        if (master_ < 0 || ::grantpt(master_) != 0 || ::unlockpt(master_) != 0) {
            throw std::runtime_error("there are no pseudo-terminals");
        }
        device_ = QString::fromLocal8Bit(::ptsname(master_));
        // Raw from the start, as a wire is: nothing is echoed, nothing waits for a line end.
        termios settings = {};
        ::tcgetattr(master_, &settings);
        ::cfmakeraw(&settings);
        ::tcsetattr(master_, TCSANOW, &settings);
    }
    ~PseudoTerminal() { Vanish(); }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    const QString& Device() const { return device_; }

    // Sends what the wire takes; how many bytes that were.
    std::size_t Send(std::string_view bytes) const {
        const ssize_t sent = ::write(master_, bytes.data(), bytes.size());
        return sent < 0 ? 0 : static_cast<std::size_t>(sent);
    }
    // All that has come so far.
    std::string Receive() const {
        std::string bytes;
        std::array<char, 4096> block;
        for (ssize_t n = 0; (n = ::read(master_, block.data(), block.size())) > 0;) {
            bytes.append(block.data(), static_cast<std::size_t>(n));
        }
        return bytes;
    }
    termios Settings() const {
        termios settings = {};
        ::tcgetattr(master_, &settings);
        return settings;
    }
    // The cable is pulled.
    void Vanish() {
        if (master_ >= 0) {
            ::close(master_);
        }
        master_ = -1;
    }

private:
    int master_;
    QString device_;
};

}  // namespace travo::test
