#include "workbench/socket/SocketPath.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace workbench {

namespace {

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

std::string UserName() {
    const passwd* entry = getpwuid(geteuid());
    return entry == nullptr ? std::to_string(geteuid()) : std::string(entry->pw_name);
}

}  // namespace

std::string RuntimeFolder() {
    std::string folder = Environment("XDG_RUNTIME_DIR");
    if (!folder.empty()) {
        return folder;
    }
    folder = Environment("TMPDIR");
    return (folder.empty() ? std::string("/tmp") : folder) + "/runtime-" + UserName();
}

std::string SocketPath() { return RuntimeFolder() + "/travo-workbench.socket"; }

std::string CameraSocketPath() { return RuntimeFolder() + "/travo-live.socket"; }

}  // namespace workbench
