// A simulated controller on a pseudo-terminal, in real time, on a thread of its own as it is a box of its
// own.
#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>

#include "drivers/gcode/simulator/Controller.h"

namespace gcode::test {

class Terminal {
public:
    explicit Terminal(Controller& controller);
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    // The device that the driver opens.
    const std::string& Device() const { return device_; }
    // The cable out: the device is gone, for those who have it open as well.
    void Unplug();
    // Does something with the controller between two of its steps.
    template <typename Procedure>
    auto With(Procedure procedure) {
        const std::lock_guard lock(mutex_);
        return procedure(controller_, Now());
    }
    static Time Now();

private:
    void Run();

    Controller& controller_;
    int near_ = -1;
    int held_ = -1;  // the far end, so that a closing of the driver is no hang-up
    std::string device_;
    std::mutex mutex_;
    std::atomic<bool> isOver_ = false;
    std::thread thread_;
};

}  // namespace gcode::test
