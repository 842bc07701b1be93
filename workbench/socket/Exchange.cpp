#include "workbench/socket/Exchange.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <thread>

namespace workbench {

namespace {

// Longer answers do not exist; a peer that sends more is no workbench.
constexpr std::size_t LongestAnswer = 1U << 20U;
// Pause before a connection is tried again at a workbench whose queue is full.
constexpr std::chrono::milliseconds QueuePause{2};

}  // namespace

Exchange::Outcome Exchange::Ask(const std::string& line, std::chrono::milliseconds limit,
                                std::string& answer) {
    const Clock::time_point end = Clock::now() + limit;
    Outcome outcome = Outcome::Answered;
    if (!Alive()) {
        Close();
        outcome = Connect(end);
    }
    if (outcome == Outcome::Answered) {
        outcome = Send(line + "\n", end);
    }
    if (outcome == Outcome::Answered) {
        outcome = Receive(answer, end);
    }
    if (outcome != Outcome::Answered) {
        Close();
    }
    return outcome;
}

bool Exchange::IsThere() {
    if (Alive()) {
        return true;
    }
    Close();
    const Outcome outcome = Connect(Clock::now());
    if (outcome != Outcome::Answered) {
        Close();
    }
    // One whose queue is full is there as well.
    return outcome != Outcome::NoWorkbench;
}

void Exchange::Close() {
    if (socket_ >= 0) {
        close(socket_);
        socket_ = -1;
    }
}

// Whether the connection is there and quiet. An end of the stream says that the workbench is gone;
// bytes that nobody asked for could be taken for an answer.
bool Exchange::Alive() const {
    if (socket_ < 0) {
        return false;
    }
    char byte = 0;
    const ssize_t count = recv(socket_, &byte, 1, MSG_PEEK | MSG_DONTWAIT);
    return count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
}

Exchange::Outcome Exchange::Connect(Clock::time_point end) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path_.size() >= sizeof(address.sun_path)) {
        return Outcome::NoWorkbench;
    }
    std::copy(path_.begin(), path_.end(), address.sun_path);
    socket_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket_ < 0) {
        return Outcome::NoWorkbench;
    }
    while (connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) {
        if (errno != EAGAIN && errno != EINTR) {
            return Outcome::NoWorkbench;
        }
        if (Clock::now() >= end) {
            return Outcome::TimedOut;
        }
        std::this_thread::sleep_for(QueuePause);
    }
    return Outcome::Answered;
}

Exchange::Outcome Exchange::Send(const std::string& line, Clock::time_point end) {
    std::size_t sent = 0;
    while (sent < line.size()) {
        const ssize_t count = send(socket_, line.data() + sent, line.size() - sent, MSG_NOSIGNAL);
        if (count > 0) {
            sent += static_cast<std::size_t>(count);
        } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
            if (const Outcome outcome = Wait(POLLOUT, end); outcome != Outcome::Answered) {
                return outcome;
            }
        } else if (errno != EINTR) {
            return Outcome::Broken;
        }
    }
    return Outcome::Answered;
}

Exchange::Outcome Exchange::Receive(std::string& answer, Clock::time_point end) {
    answer.clear();
    std::array<char, 4096> chunk{};
    while (answer.size() < LongestAnswer) {
        if (const Outcome outcome = Wait(POLLIN, end); outcome != Outcome::Answered) {
            return outcome;
        }
        const ssize_t count = recv(socket_, chunk.data(), chunk.size(), 0);
        if (count > 0) {
            answer.append(chunk.data(), static_cast<std::size_t>(count));
            if (answer.back() == '\n') {
                answer.pop_back();
                return answer.find('\n') == std::string::npos ? Outcome::Answered : Outcome::Broken;
            }
        } else if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
            return Outcome::Broken;
        }
    }
    return Outcome::Broken;
}

Exchange::Outcome Exchange::Wait(short events, Clock::time_point end) const {
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0) {
            return Outcome::TimedOut;
        }
        pollfd waiting{socket_, events, 0};
        const int ready = poll(&waiting, 1, static_cast<int>(left.count()));
        if (ready > 0) {
            return Outcome::Answered;
        }
        if (ready < 0 && errno != EINTR) {
            return Outcome::Broken;
        }
    }
}

}  // namespace workbench
