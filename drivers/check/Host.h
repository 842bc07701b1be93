// The process that holds the library: does what it is asked, one request after the other.
#pragma once

#include <string>

namespace check {

// Serves requests that come as Request over the socket, each with an Answer, until it is asked to end or the
// socket closes. Does not return.
[[noreturn]] void HostLibrary(int socket, const std::string& path);

}  // namespace check
