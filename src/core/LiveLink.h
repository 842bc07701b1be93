// The object `Live`: the link of the system to the live camera program.
#pragma once

#include <QLatin1String>
#include <cstdint>
#include <functional>

#include "core/SharedState.h"
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
        // The camera has died: a call failed or was not answered, or its process has gone. The object
        // is stale. Where a call found it out, this comes from within that call, before it raises.
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
    // 2 s at most. A call that fails makes the object stale and raises platform::LiveCameraFailure; so
    // does every call on a link that is not living, without any call on the camera.
    void LiveShowWindow() { Call(QLatin1String("LiveShowWindow")); }
    void LiveHideWindow() { Call(QLatin1String("LiveHideWindow")); }
    void LiveCalibPoints() { Call(QLatin1String("LiveCalibPoints")); }
    void LiveCalibZ() { Call(QLatin1String("LiveCalibZ")); }
    void LiveCalibCenter() { Call(QLatin1String("LiveCalibCenter")); }
    void LivePanelLeave() { Call(QLatin1String("LivePanelLeave")); }
    void LiveAttach() { Call(QLatin1String("LiveAttach")); }
    // Magnification index, 0 to 3.
    void LiveChangeMagnification(std::int16_t magnification);

    // Round an action that the operator has started. Called whether a camera is there or not: nothing
    // happens unless the object lives. A failure makes the object stale and raises nothing.
    void LiveActionStart();
    void LiveActionEnd();

    // The calls above for those whom an ill camera must not disturb: mirror, change of panels, closing.
    // Nothing happens unless `LiveOpen`. A failure makes the object stale and raises nothing.
    void AnnounceMagnification(std::int16_t magnification);
    void AnnouncePanelLeave();
    void AnnounceCalibPoints();
    void AnnounceCalibCenter();
    void AnnounceHideWindow();

private:
    void Call(QLatin1String operation);
    // Makes the call on the living object; what fails makes it stale and is raised again.
    void Guarded(const std::function<void()>& call);
    void CallQuietly(QLatin1String operation);
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
