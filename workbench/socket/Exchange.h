// One line out, one line back, over the workbench's local socket: blocking, with a time limit. No
// event loop, no threads, no signals.
#pragma once

#include <chrono>
#include <string>

namespace workbench {

class Exchange {
public:
    enum class Outcome { Answered, NoWorkbench, TimedOut, Broken };

    explicit Exchange(std::string socketPath) : path_(std::move(socketPath)) {}
    ~Exchange() { Close(); }
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    // Sends the line (without its LF) and waits for the answer, which comes without its LF. Connects
    // where that has not been done, or anew where the workbench was started again since. After any
    // outcome but Answered the connection is closed, so that no late answer is taken for another one.
    // NoWorkbench comes at once.
    Outcome Ask(const std::string& line, std::chrono::milliseconds limit, std::string& answer);

    // Whether somebody serves the socket, busy or not: asks nothing and waits for nobody.
    bool IsThere();

    void Close();

private:
    using Clock = std::chrono::steady_clock;

    bool Alive() const;
    Outcome Connect(Clock::time_point end);
    Outcome Send(const std::string& line, Clock::time_point end);
    Outcome Receive(std::string& answer, Clock::time_point end);
    // Waits for the socket to become ready; TimedOut at the end, Answered when it is.
    Outcome Wait(short events, Clock::time_point end) const;

    std::string path_;
    int socket_ = -1;
};

}  // namespace workbench
