// A live camera program that the test plays.
#pragma once

#include <functional>
#include <set>
#include <string>

#include "platform/LiveCamera.h"
#include "support/StandIns.h"

namespace travo::test {

// Journal: "live created", "live released", and each call or announcement by its name, with its argument
// after a blank. Announcements are taken at once; that one has failed is told when the test says so.
class FakeLiveCamera : public platform::LiveCamera {
public:
    explicit FakeLiveCamera(Journal& journal) : journal_(journal) {}

    void Create(Listener& listener) override {
        listener_ = nullptr;
        ill_ = false;
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
    void Call(QLatin1String operation) override {
        if (listener_ == nullptr || ill_) {
            throw platform::LiveCameraFailure("no object");
        }
        journal_.push_back(operation.data());
        if (failing.contains(operation.data())) {
            throw platform::LiveCameraFailure(std::string(operation.data()) + " failed");
        }
    }
    void Announce(QLatin1String operation) override { Take(operation.data(), {}); }
    void Announce(QLatin1String operation, std::int16_t argument) override {
        Take(operation.data(), std::string(" ").append(std::to_string(argument)));
    }

    // The event loop comes round: an announcement that has failed is told as the loss that it is.
    void TellFailure() {
        if (ill_) {
            ill_ = false;
            TellLost();
        }
    }

    // The camera's side. Nothing happens where no object is held.
    void TellBirdViewSave() { Tell(&Listener::BirdViewSave); }
    void TellWindowHide() { Tell(&Listener::WindowHide); }
    void TellWindowClose() { Tell(&Listener::WindowClose); }
    void TellLost() { Tell(&Listener::Lost); }

    bool absent = false;            // Create raises
    std::set<std::string> failing;  // calls that raise and announcements that fail, by name
    int created = 0;

private:
    void Take(const std::string& operation, const std::string& argument) {
        if (listener_ != nullptr && !ill_) {
            journal_.push_back(operation + argument);
            ill_ = failing.contains(operation);
        }
    }
    void Tell(void (Listener::*event)()) {
        if (listener_ != nullptr) {
            (listener_->*event)();
        }
    }

    Journal& journal_;
    Listener* listener_ = nullptr;
    bool ill_ = false;  // an announcement has failed, and nobody has been told yet
};

}  // namespace travo::test
