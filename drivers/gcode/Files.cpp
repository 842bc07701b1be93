#include "drivers/gcode/Files.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace gcode {

namespace {

constexpr std::size_t MostBytes = 1024 * 1024;

bool WriteAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = write(file, text.data(), text.size());
        if (count > 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (count < 0 && errno != EINTR) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::optional<std::string> ReadWholeFile(const std::string& name) {
    const int file = open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    struct stat state {};
    if (file < 0) {
        return std::nullopt;
    }
    if (fstat(file, &state) != 0 || !S_ISREG(state.st_mode)) {
        close(file);
        return std::nullopt;
    }
    std::string text;
    std::array<char, 4096> block{};
    while (text.size() < MostBytes) {
        const ssize_t count = read(file, block.data(), block.size());
        if (count > 0) {
            text.append(block.data(), static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            break;
        }
    }
    close(file);
    return text;
}

bool WriteWholeFile(const std::string& name, std::string_view text) {
    const std::string temporary = name + "." + std::to_string(getpid()) + ".new";
    const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0644);
    if (file < 0) {
        return false;
    }
    const bool isWritten = WriteAll(file, text) && fsync(file) == 0;
    close(file);
    if (!isWritten || std::rename(temporary.c_str(), name.c_str()) != 0) {
        unlink(temporary.c_str());
        return false;
    }
    return true;
}

std::string OwnFolder() {
    Dl_info place{};
    if (dladdr(reinterpret_cast<const void*>(&OwnFolder), &place) == 0 || place.dli_fname == nullptr) {
        return ".";
    }
    char* const whole = realpath(place.dli_fname, nullptr);
    const std::string name = whole != nullptr ? whole : place.dli_fname;
    std::free(whole);
    const std::size_t slash = name.rfind('/');
    return slash == std::string::npos ? "." : name.substr(0, slash);
}

}  // namespace gcode
