// The object `Live`: the link of the system to the live camera program.
#pragma once

#include <QLatin1String>
#include <cstdint>

#include "core/state/SharedState.h"
#include "platform/LiveCamera.h"

namespace travo {

// The link is empty at first. `Create` makes it living; the loss of the camera makes it stale, which
// means that a reference is kept but never used again; `Clear` makes it empty again.
//
// `LiveOpen` of the shared state is set to true by whoever has created the object, once it is usable;
// here it only becomes false: when the object becomes stale, before anybody is told.
class LiveLink : private platform::LiveCamera::Listener {
public:
    enum class Object { None, Living, Stale };

    // What the owner does when the camera has something to tell. From the event loop, but for Died.
    class Listener {
    public:
        virtual ~Listener() = default;
        // The picture file is complete.
        virtual void Live_BirdViewSave() = 0;
        // The operator has hidden the camera window from its side.
        virtual void Live_WindowHide() = 0;
        // The operator has closed the camera program. The object is stale.
        virtual void Live_WindowClose() = 0;
        // The camera has died: a call or an announcement failed or was not answered, or its process has
        // gone. The object is stale. Where a call found it out, this comes from within that call, before
        // it raises.
        virtual void LiveDied() = 0;
    };

    LiveLink(platform::LiveCamera& camera, SharedState& state, Listener& listener)
        : camera_(camera), state_(state), listener_(listener) {}
    ~LiveLink() override { Release(); }
    LiveLink(const LiveLink&) = delete;
    LiveLink& operator=(const LiveLink&) = delete;

    // Creates the object, which starts the camera program where it does not run. Leaves `LiveOpen`
    // alone. Raises platform::LiveCameraFailure; the link is empty then.
    void Create();
    // Empties the link without a call on what it held: its events are no longer told.
    void Clear() { object_ = Object::None; }
    // Empties the link at the end of the run and lets the camera program end.
    void Release();
    Object State() const { return object_; }
    // The object can be called.
    bool Living() const { return object_ == Object::Living; }

    // Calls on the object; the caller has tested `LiveOpen`. Each blocks until the camera has answered,
    // 2 s at most once it has gone out, which it does behind all that has been announced. A call that
    // fails makes the object stale and raises platform::LiveCameraFailure; so does every call on a link
    // that is not living, without any call on the camera.
    void LiveShowWindow() { Call(QLatin1String("LiveShowWindow")); }
    void LiveHideWindow() { Call(QLatin1String("LiveHideWindow")); }
    void LiveAttach() { Call(QLatin1String("LiveAttach")); }
    // LiveHideWindow, which waits like it, for those whom an ill camera must not disturb. Nothing happens
    // unless `LiveOpen`. A failure makes the object stale and raises nothing.
    void AnnounceHideWindow();

    // Announcements: none waits for its answer, and none raises anything. Nothing happens unless the
    // object lives. One that fails, or is not answered within 2 s of going out, makes the object stale
    // later, from the event loop.
    //
    // Round an action that the operator has started, and the marks of the calibration.
    void LiveActionStart() { Announce(QLatin1String("LiveActionStart")); }
    void LiveActionEnd() { Announce(QLatin1String("LiveActionEnd")); }
    void LiveCalibPoints() { Announce(QLatin1String("LiveCalibPoints")); }
    void LiveCalibZ() { Announce(QLatin1String("LiveCalibZ")); }
    void LiveCalibCenter() { Announce(QLatin1String("LiveCalibCenter")); }
    // Announcements that test `LiveOpen` themselves. Magnification index, 0 to 3.
    void AnnounceMagnification(std::int16_t magnification);
    void AnnouncePanelLeave();
    void AnnounceCalibPoints();
    void AnnounceCalibCenter();

private:
    // Makes the call on the living object; one that fails makes it stale and is raised again.
    void Call(QLatin1String operation);
    void Announce(QLatin1String operation);
    void Die();

    // platform::LiveCamera::Listener
    void BirdViewSave() override;
    void WindowHide() override;
    void WindowClose() override;
    void Lost() override;

    platform::LiveCamera& camera_;
    SharedState& state_;
    Listener& listener_;
    Object object_ = Object::None;
};

}  // namespace travo
