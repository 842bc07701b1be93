#include "core/state/LiveLink.h"

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

void LiveLink::AnnounceHideWindow() {
    if (!state_.LiveOpen) {
        return;
    }
    try {
        LiveHideWindow();
    } catch (const LiveCameraFailure&) {
        // Whoever was to be told of it has been, by LiveDied.
    }
}

void LiveLink::AnnounceMagnification(std::int16_t magnification) {
    if (state_.LiveOpen && Living()) {
        camera_.Announce(QLatin1String("LiveChangeMagnification"), magnification);
    }
}

void LiveLink::AnnouncePanelLeave() {
    if (state_.LiveOpen) {
        Announce(QLatin1String("LivePanelLeave"));
    }
}

void LiveLink::AnnounceCalibPoints() {
    if (state_.LiveOpen) {
        LiveCalibPoints();
    }
}

void LiveLink::AnnounceCalibCenter() {
    if (state_.LiveOpen) {
        LiveCalibCenter();
    }
}

void LiveLink::Call(QLatin1String operation) {
    if (!Living()) {
        throw LiveCameraFailure("the live camera is not there");
    }
    try {
        camera_.Call(operation);
    } catch (const LiveCameraFailure&) {
        Die();
        throw;
    }
}

void LiveLink::Announce(QLatin1String operation) {
    if (Living()) {
        camera_.Announce(operation);
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
