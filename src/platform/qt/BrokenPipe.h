// A stream whose reader has gone: a failed write, and not the end of the program.
#pragma once

#include <csignal>

namespace travo::platform::qt {

// To be called first thing in a program. An empty procedure and not "ignored": what the program starts gets
// the system's own handling back.
inline void OutliveReaders() {
#ifdef SIGPIPE
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    sigaction(SIGPIPE, &action, nullptr);
#endif
}

}  // namespace travo::platform::qt
