// The one door to the instruments: every operation goes straight to its link, every received value
// goes straight up.
#pragma once

#include <cstdint>
#include <string>

#include "core/FailureHandler.h"
#include "core/Positions.h"
#include "devices/clsManipulator.h"

namespace travo {

class clsCommunication {
public:
    // The facade creates its links when it is created and releases them when it ends.
    clsCommunication(const clsManipulator::Machine& manipulatorMachine, FailureHandler& failures);
    clsCommunication(const clsCommunication&) = delete;
    clsCommunication& operator=(const clsCommunication&) = delete;

    // The needle manipulators; see clsManipulator for units, ranges and failures.
    std::int16_t SendManipulatorData(std::int16_t ManipulatorNumber, const PositionXYZ& lngInXYZ,
                                     const PositionXYZ& lngNowXYZ);
    std::string RequestManipulatorData();
    // ManipulatorNumber is 1-based; on return it holds the 0-based number that the driver reports.
    void TestManipulator(std::int16_t& ManipulatorNumber);
    // ManipulatorNumber is 1-based.
    std::int32_t ChangeManipulator(std::int16_t ManipulatorNumber);
    std::int16_t ConnectManipulator();
    void ReConnectManipulator();
    void ManipulatorNumberSet(std::int16_t SettingManipulator, std::int16_t ManipulatorUSBNumber);
    std::int16_t ManipulatorCheckNumber(std::int16_t ManipulatorUSBNumber) const;

private:
    clsManipulator manipulator_;
};

}  // namespace travo
