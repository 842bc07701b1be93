// The session bus as it may be found at the start: there, not there, or silent.
#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <optional>

namespace travo::platform::qt {

// The bus in DBUS_SESSION_BUS_ADDRESS, else the socket "bus" in XDG_RUNTIME_DIR; empty without either.
// The bus library's own search would start a bus where there is none.
QString SessionBusAddress();

// Whether a bus takes a connection and then says nothing, or does not even take it, until the time is
// over. The bus library would wait for such a one for 25 s each time. False for one that refuses, and
// for one that cannot be tried, since it is reached by other means than a local socket.
bool IsSilent(const QString& busAddress, std::chrono::milliseconds limit);

// Keeps a session bus that is silent at the start away from the toolkit, which would join it for
// accessibility before there is a window. One object in the main function, made before the application
// object; blocks for 2 s where the bus is silent, and not noticeably where it is not.
class SilentBusGuard {
public:
    explicit SilentBusGuard(std::chrono::milliseconds limit = std::chrono::seconds(2));
    SilentBusGuard(const SilentBusGuard&) = delete;
    SilentBusGuard& operator=(const SilentBusGuard&) = delete;

    // To be called once, with the application object made: from here on the toolkit has no session bus
    // for the rest of the run, and everybody else, a camera program and whatever is started, the one that
    // the environment names, which may have come to itself by then.
    void LetGo();

private:
    bool isKeptAway_ = false;
    std::optional<QByteArray> address_;  // as it stood in the environment
};

}  // namespace travo::platform::qt
