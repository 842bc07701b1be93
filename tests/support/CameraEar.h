// Stands between the system and a camera, whichever it is, and writes down what the camera tells.
#pragma once

#include <string>
#include <vector>

#include "platform/LiveCamera.h"

namespace travo::test {

class CameraEar : public platform::LiveCamera, private platform::LiveCamera::Listener {
    using Hearer = platform::LiveCamera::Listener;

public:
    explicit CameraEar(platform::LiveCamera& camera) : camera_(camera) {}

    void Create(Hearer& listener) override {
        listener_ = &listener;
        camera_.Create(*this);
    }
    void Release() override { camera_.Release(); }
    void Call(QLatin1String operation) override { camera_.Call(operation); }
    void Announce(QLatin1String operation) override { camera_.Announce(operation); }
    void Announce(QLatin1String operation, std::int16_t argument) override {
        camera_.Announce(operation, argument);
    }

    // "BirdViewSave", "WindowHide", "WindowClose" or "Lost", in their order, each when the system has heard
    // it.
    std::vector<std::string> told;

private:
    void BirdViewSave() override { PassOn(&Hearer::BirdViewSave, "BirdViewSave"); }
    void WindowHide() override { PassOn(&Hearer::WindowHide, "WindowHide"); }
    void WindowClose() override { PassOn(&Hearer::WindowClose, "WindowClose"); }
    void Lost() override { PassOn(&Hearer::Lost, "Lost"); }
    void PassOn(void (Hearer::*event)(), const char* name) {
        (listener_->*event)();
        told.emplace_back(name);
    }

    platform::LiveCamera& camera_;
    Hearer* listener_ = nullptr;
};

}  // namespace travo::test
