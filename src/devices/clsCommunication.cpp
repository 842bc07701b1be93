#include "devices/clsCommunication.h"

namespace travo {

clsCommunication::clsCommunication(const clsManipulator::Machine& manipulatorMachine,
                                   FailureHandler& failures)
    : manipulator_(manipulatorMachine, failures) {}

std::int16_t clsCommunication::SendManipulatorData(std::int16_t ManipulatorNumber,
                                                   const PositionXYZ& lngInXYZ,
                                                   const PositionXYZ& lngNowXYZ) {
    return manipulator_.SendData(ManipulatorNumber, lngInXYZ, lngNowXYZ);
}

std::string clsCommunication::RequestManipulatorData() { return manipulator_.RequestData(); }

void clsCommunication::TestManipulator(std::int16_t& ManipulatorNumber) {
    manipulator_.ConnectTest(ManipulatorNumber);
}

std::int32_t clsCommunication::ChangeManipulator(std::int16_t ManipulatorNumber) {
    return manipulator_.ConnectChange(ManipulatorNumber);
}

std::int16_t clsCommunication::ConnectManipulator() { return manipulator_.ConnectedNumber(); }

void clsCommunication::ReConnectManipulator() { manipulator_.ReConnect(); }

void clsCommunication::ManipulatorNumberSet(std::int16_t SettingManipulator,
                                            std::int16_t ManipulatorUSBNumber) {
    manipulator_.NumberSetting(SettingManipulator, ManipulatorUSBNumber);
}

std::int16_t clsCommunication::ManipulatorCheckNumber(std::int16_t ManipulatorUSBNumber) const {
    return manipulator_.CheckNumberSetting(ManipulatorUSBNumber);
}

}  // namespace travo
