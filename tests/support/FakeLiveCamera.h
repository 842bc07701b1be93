// A live camera program that the test plays.
#pragma once

#include <functional>
#include <set>
#include <string>

#include "platform/LiveCamera.h"
#include "support/FakeMachine.h"

namespace travo::test {

// Journal: "live created", "live released", and each call by its name, with its argument after a blank.
class FakeLiveCamera : public platform::LiveCamera {
public:
    explicit FakeLiveCamera(Journal& journal) : journal_(journal) {}

    void Create(Listener& listener) override {
        listener_ = nullptr;
        if (absent) {
            throw platform::LiveCameraFailure("the camera program is not installed");
        }
        journal_.push_back("live created");
        ++created;
        listener_ = &listener;
    }
    void Release() override {
        if (listener_ != nullptr) {
            journal_.push_back("live released");
            listener_ = nullptr;
        }
    }
    void Call(QLatin1String operation) override { Enter(operation.data(), {}); }
    void Call(QLatin1String operation, std::int16_t argument) override {
        Enter(operation.data(), std::string(" ").append(std::to_string(argument)));
    }

    // The camera's side. Nothing happens where no object is held.
    void TellBirdViewSave() { Tell(&Listener::BirdViewSave); }
    void TellWindowHide() { Tell(&Listener::WindowHide); }
    void TellWindowClose() { Tell(&Listener::WindowClose); }
    void TellLost() { Tell(&Listener::Lost); }

    bool absent = false;            // Create raises
    std::set<std::string> failing;  // calls that raise, by name
    int created = 0;

private:
    void Enter(const std::string& operation, const std::string& argument) {
        if (listener_ == nullptr) {
            throw platform::LiveCameraFailure("no object");
        }
        journal_.push_back(operation + argument);
        if (failing.contains(operation)) {
            throw platform::LiveCameraFailure(operation + " failed");
        }
    }
    void Tell(void (Listener::*event)()) {
        if (listener_ != nullptr) {
            (listener_->*event)();
        }
    }

    Journal& journal_;
    Listener* listener_ = nullptr;
};

}  // namespace travo::test
