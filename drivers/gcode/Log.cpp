#include "drivers/gcode/Log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <ctime>

namespace gcode {

namespace {

std::string Now() {
    std::array<char, 64> text{};
    const std::time_t now = std::time(nullptr);
    std::tm broken{};
    localtime_r(&now, &broken);
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S ", &broken)};
}

}  // namespace

void Log::Write(std::string_view text) const {
    if (file_.empty()) {
        return;
    }
    // Opened for each line: nothing stays open between two calls. A pipe in its place must not hold us.
    const int file =
        open(file_.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0644);
    if (file < 0) {
        return;
    }
    const std::string line = Now() + std::string(text) + "\n";
    struct stat state {};
    const bool isFull =
        fstat(file, &state) == 0 && state.st_size + static_cast<long>(line.size()) > MostBytes;
    if (!isFull) {
        [[maybe_unused]] const ssize_t written = write(file, line.data(), line.size());
    }
    close(file);
    if (isFull && std::rename(file_.c_str(), (file_ + ".1").c_str()) == 0) {
        Write(text);
    }
}

}  // namespace gcode
