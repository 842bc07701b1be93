// The five operations and the sixth, on up to four needles.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "drivers/gcode/Log.h"
#include "drivers/gcode/Needle.h"
#include "drivers/gcode/Settings.h"
#include "drivers/gcode/Trust.h"

namespace gcode {

// The files of a driver, in the folder of its library.
struct DriverFiles {
    static constexpr const char* Settings = "manipulators.ini";
    static constexpr const char* State = "manipulators.state";
    static constexpr const char* Log = "manipulators.log";
};

// Nothing is opened before the first operation; after it, by Reconnect alone.
class Manipulators {
public:
    // For the first answers of all ports together, which are asked one after the other from one opening: a
    // board that restarts when it is opened needs some 2 s.
    static constexpr Time OpeningLimit = std::chrono::milliseconds(2500);
    static constexpr Time ConnectLimit = std::chrono::seconds(8);

    Manipulators(std::string folder, Ports& ports);

    Status GetPosition(std::int32_t& number, Counts& counts);
    Status MoveTo(const Counts& counts);
    // The answer is 1 for one that was selected. One that is not connected leaves the selection as it is.
    Status Select(std::int32_t number, std::int32_t& answer);
    // The highest number that is connected: a needle that is missing in between does not take the others with
    // it.
    Status GetCount(std::int32_t& count);
    Status Reconnect();
    Status Stop(std::int32_t number);

private:
    void ConnectOnce();
    void Connect();
    void OpenPorts();
    void SelectOneThatIsThere();
    Needle* Connected(std::int32_t number);

    std::string folder_;
    Ports& ports_;
    Log log_;
    Trust trust_;
    std::array<std::unique_ptr<Needle>, MostNeedles> needles_;
    std::int32_t selected_ = 1;
    bool hasConnected_ = false;
};

}  // namespace gcode
