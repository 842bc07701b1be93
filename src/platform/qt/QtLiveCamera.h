// The live camera program on the session bus.
#pragma once

#include <chrono>
#include <memory>

#include "platform/LiveCamera.h"

namespace travo::platform::qt {

class LiveBus;

// Service and interface `TRAVOLive.Live`, object `/Live`; see docs/wire-formats.md. Holds a bus
// connection of its own from the first Create to Release: the camera program ends when its last caller
// leaves the bus. Calls go to the unique bus name that the program had when the object was created, so
// that they never reach, and never start, another one.
//
// The bus is the one in DBUS_SESSION_BUS_ADDRESS, else the socket "bus" in XDG_RUNTIME_DIR. Without
// either, and where the bus says nothing for the time of a call, Create raises; no bus is ever started.
class QtLiveCamera : public LiveCamera {
public:
    // How long each may take.
    struct Limits {
        std::chrono::milliseconds start{10000};
        std::chrono::milliseconds call{2000};     // from its sending; an announcement as well
        std::chrono::milliseconds release{2000};  // until a closing program has given up its name
    };

    QtLiveCamera();
    explicit QtLiveCamera(const Limits& limits);
    ~QtLiveCamera() override;

    void Create(Listener& listener) override;
    void Release() override;
    void Call(QLatin1String operation) override;
    void Announce(QLatin1String operation) override;
    void Announce(QLatin1String operation, std::int16_t argument) override;

private:
    std::unique_ptr<LiveBus> bus_;
};

}  // namespace travo::platform::qt
