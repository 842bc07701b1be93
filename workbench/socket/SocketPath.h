// Where the workbench, its driver library and its clients meet.
#pragma once

#include <string>

namespace workbench {

// The user's runtime folder: $XDG_RUNTIME_DIR, else "runtime-" and the user's name in the folder for
// temporary files ($TMPDIR, else /tmp). It need not exist yet.
std::string RuntimeFolder();

// The local socket, "travo-workbench.socket" in the runtime folder.
std::string SocketPath();

// The camera program's own, "travo-live.socket" there.
std::string CameraSocketPath();

}  // namespace workbench
