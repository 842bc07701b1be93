// A process of its own for the library under check: what it does there reaches nobody else.
#pragma once

#include <sys/types.h>

#include <array>
#include <chrono>
#include <optional>
#include <string>

#include "drivers/check/Messages.h"

namespace check {

class Trial {
public:
    using Milliseconds = std::chrono::milliseconds;

    // Starts the process; the library is not loaded yet. Raises std::runtime_error where there is none to be
    // had.
    explicit Trial(const std::string& path);
    // Ends the process, and those that it has left in its group.
    ~Trial();
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

    // Nothing where the process has ended or has not answered in time; it is ended then.
    std::optional<Answer> Ask(const Request& request, Milliseconds limit);
    // Lets it end through exit. True when it does so with exit code 0 within the limit.
    bool EndCalmly(Milliseconds limit);

    // How the process ended; empty while it runs.
    const std::string& Ending() const { return ending_; }
    bool HasHung() const { return hasHung_; }
    // What has come over its standard streams since the last call: the stream's name and the beginning of the
    // text in one line; empty where there is none.
    std::string TakeOutput();

private:
    struct Stream {
        int descriptor = -1;
        const char* name = "";
        std::string text;
    };

    [[noreturn]] void BeHost(int socket, const std::array<int, 2>& outputs, const std::string& path) const;
    // Takes what has come; false when the other end has closed.
    static bool Take(Stream& stream);
    // Waits for the socket, taking the streams meanwhile; false at the deadline.
    bool AwaitSocket(std::chrono::steady_clock::time_point deadline);
    // Waits for its end, by force after the limit, and says how it was.
    void Reap(Milliseconds limit);

    pid_t process_ = -1;
    int socket_ = -1;
    std::array<Stream, 2> streams_;
    std::string ending_;
    bool hasHung_ = false;
    bool endedCalmly_ = false;
};

}  // namespace check
