#include "platform/qt/BusGreeting.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <thread>

namespace travo::platform::qt {

namespace {

using Clock = std::chrono::steady_clock;

// Between two tries at a bus that has no room for a newcomer.
constexpr std::chrono::milliseconds ConnectPause{10};

// A call of "Hello", byte by byte as the bus's protocol lays it down: a header of sixteen bytes, and in it
// path, interface, member and addressee, each filled up to a multiple of eight.
QByteArray HelloCall() {
    const auto number = [](qsizetype value) {
        QByteArray bytes(4, '\0');
        for (qsizetype place = 0; place < 4; ++place) {
            bytes[place] = static_cast<char>((value >> (8 * place)) & 0xff);
        }
        return bytes;
    };
    const auto filled = [](QByteArray bytes) {
        bytes.append((8 - bytes.size() % 8) % 8, '\0');
        return bytes;
    };
    const auto field = [&](char code, char type, const QByteArray& text) {
        return QByteArray(1, code) + '\x01' + type + '\0' + number(text.size()) + text + '\0';
    };
    QByteArray fields = filled(field(1, 'o', "/org/freedesktop/DBus"));
    fields = filled(fields + field(2, 's', "org.freedesktop.DBus"));
    fields = filled(fields + field(3, 's', "Hello"));
    fields += field(6, 's', "org.freedesktop.DBus");
    // Little-endian, a call, no flags, version 1; no body; serial number 1.
    return filled(QByteArray("l\x01\0\x01", 4) + number(0) + number(1) + number(fields.size()) + fields);
}

// The user's number in decimal figures, which travel as the hexadecimal codes of those.
QByteArray ProofOfUser() {
    return QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(getuid()).toHex() + "\r\n";
}

class BusSocket {
public:
    explicit BusSocket(Clock::time_point end)
        : end_(end), socket_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {}
    ~BusSocket() {
        if (socket_ >= 0) {
            close(socket_);
        }
    }
    BusSocket(const BusSocket&) = delete;
    BusSocket& operator=(const BusSocket&) = delete;

    Greeting Connect(const QByteArray& name) const {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        if (socket_ < 0 || static_cast<std::size_t>(name.size()) >= sizeof(address.sun_path)) {
            return Greeting::NotThere;
        }
        std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
        const auto size =
            static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(name.size()));
        while (connect(socket_, reinterpret_cast<const sockaddr*>(&address), size) != 0) {
            if (errno != EAGAIN && errno != EINTR) {
                return Greeting::NotThere;
            }
            if (Clock::now() >= end_) {
                return Greeting::NotAnswered;
            }
            std::this_thread::sleep_for(ConnectPause);
        }
        return Greeting::Answered;
    }
    // A bus that does not take so few bytes has hung up.
    bool Say(const QByteArray& words) const {
        return send(socket_, words.constData(), static_cast<std::size_t>(words.size()), MSG_NOSIGNAL) ==
               words.size();
    }
    // Empty where the bus hangs up; none where the time is over.
    std::optional<QByteArray> Hear() const {
        for (;;) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(end_ - Clock::now()).count();
            pollfd waiting = {socket_, POLLIN, 0};
            const int ready = poll(&waiting, 1, static_cast<int>(std::max<std::int64_t>(left, 0)));
            if (ready == 0) {
                return std::nullopt;
            }
            std::array<char, 512> bytes{};
            const ssize_t count = recv(socket_, bytes.data(), bytes.size(), 0);
            if (count >= 0) {
                return QByteArray(bytes.data(), count);
            }
            if (errno != EINTR && errno != EAGAIN) {
                return QByteArray();
            }
        }
    }

private:
    const Clock::time_point end_;
    const int socket_;
};

}  // namespace

Greeting Greet(const QByteArray& socketName, std::chrono::milliseconds limit) {
    const BusSocket bus(Clock::now() + limit);
    if (const Greeting greeting = bus.Connect(socketName); greeting != Greeting::Answered) {
        return greeting;
    }
    for (const QByteArray& words : {ProofOfUser(), "BEGIN\r\n" + HelloCall()}) {
        if (!bus.Say(words)) {
            return Greeting::Answered;
        }
        const std::optional<QByteArray> answer = bus.Hear();
        if (!answer) {
            return Greeting::NotAnswered;
        }
        if (!answer->startsWith("OK")) {
            // Hung up, refused, or the answer to the last words.
            return Greeting::Answered;
        }
    }
    return Greeting::Answered;
}

}  // namespace travo::platform::qt
