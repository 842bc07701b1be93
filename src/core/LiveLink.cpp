#include "core/LiveLink.h"

namespace travo {

using platform::LiveCameraFailure;

void LiveLink::Create() {
    Clear();
    camera_.Create(*this);
    object_ = Object::Living;
}

void LiveLink::Release() {
    Clear();
    camera_.Release();
}

void LiveLink::LiveChangeMagnification(std::int16_t magnification) {
    Guarded([&] { camera_.Call(QLatin1String("LiveChangeMagnification"), magnification); });
}

void LiveLink::LiveActionStart() { CallQuietly(QLatin1String("LiveActionStart")); }

void LiveLink::LiveActionEnd() { CallQuietly(QLatin1String("LiveActionEnd")); }

void LiveLink::AnnounceMagnification(std::int16_t magnification) {
    if (!state_.LiveOpen) {
        return;
    }
    try {
        LiveChangeMagnification(magnification);
    } catch (const LiveCameraFailure&) {
        // Whoever was to be told of it has been, by LiveDied.
    }
}

void LiveLink::AnnouncePanelLeave() {
    if (state_.LiveOpen) {
        CallQuietly(QLatin1String("LivePanelLeave"));
    }
}

void LiveLink::AnnounceCalibPoints() {
    if (state_.LiveOpen) {
        CallQuietly(QLatin1String("LiveCalibPoints"));
    }
}

void LiveLink::AnnounceCalibCenter() {
    if (state_.LiveOpen) {
        CallQuietly(QLatin1String("LiveCalibCenter"));
    }
}

void LiveLink::AnnounceHideWindow() {
    if (state_.LiveOpen) {
        CallQuietly(QLatin1String("LiveHideWindow"));
    }
}

void LiveLink::Call(QLatin1String operation) {
    Guarded([&] { camera_.Call(operation); });
}

void LiveLink::Guarded(const std::function<void()>& call) {
    if (!Living()) {
        throw LiveCameraFailure("the live camera is not there");
    }
    try {
        call();
    } catch (const LiveCameraFailure&) {
        Die();
        throw;
    }
}

void LiveLink::CallQuietly(QLatin1String operation) {
    if (!Living()) {
        return;
    }
    try {
        Call(operation);
    } catch (const LiveCameraFailure&) {
        // Whoever was to be told of it has been, by LiveDied.
    }
}

void LiveLink::Die() {
    object_ = Object::Stale;
    state_.LiveOpen = false;
    listener_.LiveDied();
}

void LiveLink::BirdViewSave() {
    if (Living()) {
        listener_.Live_BirdViewSave();
    }
}

void LiveLink::WindowHide() {
    if (Living()) {
        listener_.Live_WindowHide();
    }
}

void LiveLink::WindowClose() {
    if (Living()) {
        object_ = Object::Stale;
        state_.LiveOpen = false;
        listener_.Live_WindowClose();
    }
}

void LiveLink::Lost() {
    if (Living()) {
        Die();
    }
}

}  // namespace travo
