#include "drivers/check/Trial.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "drivers/check/Host.h"

namespace check {

namespace {

using Clock = std::chrono::steady_clock;

// Behind a closed socket the process is ending, unless the library has closed what is not its own.
constexpr Trial::Milliseconds EndBehindSocket(500);
constexpr Trial::Milliseconds ReapInterval(2);
constexpr std::size_t MostTextKept = 4096;
constexpr std::size_t MostTextShown = 60;

std::string HowItEnded(const siginfo_t& info) {
    if (info.si_code == CLD_EXITED) {
        return "ended the process with exit code " + std::to_string(info.si_status);
    }
    return "signal " + std::to_string(info.si_status) + " (" + strsignal(info.si_status) + ")";
}

[[noreturn]] void Refuse(const char* what) {
    throw std::runtime_error(std::string(what) + ": " + std::strerror(errno));
}

}  // namespace

Trial::Trial(const std::string& path) {
    std::array<int, 2> sockets{};
    std::array<int, 2> output{};
    std::array<int, 2> error{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, sockets.data()) != 0 ||
        pipe2(output.data(), O_CLOEXEC | O_NONBLOCK) != 0 ||
        pipe2(error.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        Refuse("no pipe");
    }
    process_ = fork();
    if (process_ < 0) {
        Refuse("no process");
    }
    if (process_ == 0) {
        close(sockets[0]);
        close(output[0]);
        close(error[0]);
        BeHost(sockets[1], {output[1], error[1]}, path);
    }
    // On both sides, so that it holds whichever runs first.
    setpgid(process_, process_);
    close(sockets[1]);
    close(output[1]);
    close(error[1]);
    socket_ = sockets[0];
    streams_ = {Stream{output[0], "standard output", {}}, Stream{error[0], "standard error", {}}};
}

Trial::~Trial() {
    if (ending_.empty() && !endedCalmly_) {
        Reap(Milliseconds(0));
    }
    close(socket_);
    for (const Stream& stream : streams_) {
        close(stream.descriptor);
    }
}

void Trial::BeHost(int socket, const std::array<int, 2>& outputs, const std::string& path) const {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    setpgid(0, 0);
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    dup2(nothing, STDIN_FILENO);
    dup2(outputs[0], STDOUT_FILENO);
    dup2(outputs[1], STDERR_FILENO);
    for (const int descriptor : {nothing, outputs[0], outputs[1]}) {
        if (descriptor > STDERR_FILENO) {
            close(descriptor);
        }
    }
    // A full pipe must hold up a library that writes too much, not fail its writing.
    fcntl(STDOUT_FILENO, F_SETFL, fcntl(STDOUT_FILENO, F_GETFL) & ~O_NONBLOCK);
    fcntl(STDERR_FILENO, F_SETFL, fcntl(STDERR_FILENO, F_GETFL) & ~O_NONBLOCK);
    for (int signal = 1; signal < NSIG; ++signal) {
        ::signal(signal, SIG_DFL);
    }
    HostLibrary(socket, path);
}

bool Trial::Take(Stream& stream) {
    std::array<char, 4096> piece{};
    for (;;) {
        const ssize_t count = read(stream.descriptor, piece.data(), piece.size());
        if (count <= 0) {
            return count < 0 && errno == EAGAIN;
        }
        const std::size_t room = MostTextKept - std::min(MostTextKept, stream.text.size());
        stream.text.append(piece.data(), std::min(room, static_cast<std::size_t>(count)));
    }
}

bool Trial::AwaitSocket(Clock::time_point deadline) {
    std::array<bool, 2> isOpen{true, true};
    for (;;) {
        const auto left = std::chrono::ceil<Milliseconds>(deadline - Clock::now()).count();
        if (left <= 0) {
            return false;
        }
        std::array<pollfd, 3> places{{{socket_, POLLIN, 0},
                                      {isOpen[0] ? streams_[0].descriptor : -1, POLLIN, 0},
                                      {isOpen[1] ? streams_[1].descriptor : -1, POLLIN, 0}}};
        poll(places.data(), places.size(), static_cast<int>(left));
        for (std::size_t place = 0; place < streams_.size(); ++place) {
            isOpen[place] = isOpen[place] && Take(streams_[place]);
        }
        if (places[0].revents != 0) {
            return true;
        }
    }
}

std::optional<Answer> Trial::Ask(const Request& request, Milliseconds limit) {
    if (!ending_.empty()) {
        return std::nullopt;
    }
    Answer answer;
    if (send(socket_, &request, sizeof(request), MSG_NOSIGNAL) == static_cast<ssize_t>(sizeof(request))) {
        if (!AwaitSocket(Clock::now() + limit)) {
            hasHung_ = true;
            Reap(Milliseconds(0));
            ending_ = "no answer within " + std::to_string(limit.count()) + " ms";
            return std::nullopt;
        }
        if (recv(socket_, &answer, sizeof(answer), 0) == static_cast<ssize_t>(sizeof(answer))) {
            // All that was written ahead of the answer is in the pipes.
            Take(streams_[0]);
            Take(streams_[1]);
            return answer;
        }
    }
    Reap(EndBehindSocket);
    return std::nullopt;
}

bool Trial::EndCalmly(Milliseconds limit) {
    Request request;
    request.wish = Wish::EndCalmly;
    if (!ending_.empty() || send(socket_, &request, sizeof(request), MSG_NOSIGNAL) < 0) {
        return false;
    }
    Reap(limit);
    endedCalmly_ = ending_ == "ended the process with exit code 0";
    return endedCalmly_;
}

void Trial::Reap(Milliseconds limit) {
    const auto deadline = Clock::now() + limit;
    siginfo_t info{};
    // Left unburied until its group is ended: till then nobody else can have the group's number.
    while (waitid(P_PID, static_cast<id_t>(process_), &info, WEXITED | WNOWAIT | WNOHANG) == 0 &&
           info.si_pid == 0 && Clock::now() < deadline) {
        Take(streams_[0]);
        Take(streams_[1]);
        poll(nullptr, 0, static_cast<int>(ReapInterval.count()));
    }
    const bool endedByItself = info.si_pid != 0;
    kill(-process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    Take(streams_[0]);
    Take(streams_[1]);
    ending_ = endedByItself ? HowItEnded(info) : "does not end";
}

std::string Trial::TakeOutput() {
    for (Stream& stream : streams_) {
        if (stream.text.empty()) {
            continue;
        }
        std::string shown = stream.text.substr(0, MostTextShown);
        stream.text.clear();
        for (char& character : shown) {
            character = character >= ' ' && character <= '~' ? character : ' ';
        }
        return std::string(stream.name) + ": \"" + shown + "\"";
    }
    return {};
}

}  // namespace check
