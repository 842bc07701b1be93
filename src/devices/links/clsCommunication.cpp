#include "devices/links/clsCommunication.h"

namespace travo {

clsCommunication::clsCommunication(const Machine& machine, SharedState& state, FailureHandler& failures,
                                   Listener& listener)
    : eventLoop_(machine.eventLoop), state_(state), listener_(listener) {
    clsMagnescale::Receiver& gaugeReceiver = *this;
    clsMirror::Receiver& mirrorReceiver = *this;
    clsMotor::Panel& motorPanel = *this;
    magnescale_.Create(machine.serialPorts, failures, gaugeReceiver);
    mirror_.Create(machine.serialPorts, failures, mirrorReceiver);
    manipulator_.Create(machine.manipulators, failures);
    motor_.Create(machine.serialPorts, machine.eventLoop, state, motorPanel, failures);
}

clsCommunication::~clsCommunication() {
    magnescale_.Release();
    mirror_.Release();
    manipulator_.Release();
    motor_.Release();
}

void clsCommunication::MirrorPortOpen(std::int16_t PortNumber) { mirror_->PortOpen(PortNumber); }
void clsCommunication::MirrorPortClose() { mirror_->PortClose(); }
bool clsCommunication::MirrorPortOpenCheck() const { return mirror_->PortOpenCheck(); }

void clsCommunication::SendMirrorData(std::int16_t Index, std::int32_t Data) {
    if (!MayMove()) {
        return;
    }
    if (Index == 0) {
        mirror_->SendXData(Data);
    } else if (Index == 1) {
        mirror_->SendYData(Data);
    }
}

void clsCommunication::SendMirrorMagnificationData(std::int16_t Magnification) {
    if (MayMove()) {
        mirror_->SendMagnificationData(Magnification);
    }
}

void clsCommunication::SendMotorLock(std::int16_t ErgoLock) {
    if (ErgoLock == 0 || MayMove()) {
        mirror_->SendMotorONOFF(ErgoLock);
    }
}
void clsCommunication::SendErgoZ(std::int16_t ZLock) { mirror_->SendErgoZONOFF(ZLock); }

void clsCommunication::RequestMirrorData() {
    mirror_->RequestXData();
    mirror_->RequestYData();
}

void clsCommunication::ReceiveMirrorXData(std::int32_t Data) { state_.CurrentXYZ(0, Data); }
void clsCommunication::ReceiveMirrorYData(std::int32_t Data) { state_.CurrentXYZ(1, Data); }

void clsCommunication::ReceiveMirrorXYData(std::int32_t PositionX, std::int32_t PositionY) {
    state_.CurrentXY(PositionX, PositionY);
}

void clsCommunication::ReceiveMagnificationData(std::int16_t Magnification) {
    state_.CurrentMagnification(Magnification);
}

void clsCommunication::ReceiveMotorData(std::int16_t ONOFF) {
    state_.bMirrorMotorONOFF = ONOFF != 0;
    listener_.checkMotor(ONOFF);
}

void clsCommunication::MagnescaleData(std::int32_t Data) { state_.CurrentXYZ(2, Data); }

std::int16_t clsCommunication::SendManipulatorData(std::int16_t ManipulatorNumber,
                                                   const PositionXYZ& lngInXYZ, const PositionXYZ& lngNowXYZ,
                                                   clsManipulator::Presses presses) {
    return MayMove() ? manipulator_->SendData(ManipulatorNumber, lngInXYZ, lngNowXYZ, presses)
                     : std::int16_t{0};
}

std::string clsCommunication::RequestManipulatorData() { return manipulator_->RequestData(); }

void clsCommunication::TestManipulator(std::int16_t& ManipulatorNumber) {
    if (MayMove()) {
        manipulator_->ConnectTest(ManipulatorNumber);
    }
}

std::int32_t clsCommunication::ChangeManipulator(std::int16_t ManipulatorNumber) {
    return manipulator_->ConnectChange(ManipulatorNumber);
}

std::int16_t clsCommunication::ConnectManipulator() { return manipulator_->ConnectedNumber(); }

void clsCommunication::ReConnectManipulator() { manipulator_->ReConnect(); }

void clsCommunication::ManipulatorNumberSet(std::int16_t SettingManipulator,
                                            std::int16_t ManipulatorUSBNumber) {
    manipulator_->NumberSetting(SettingManipulator, ManipulatorUSBNumber);
}

std::int16_t clsCommunication::ManipulatorCheckNumber(std::int16_t ManipulatorUSBNumber) const {
    return manipulator_->CheckNumberSetting(ManipulatorUSBNumber);
}

void clsCommunication::MagnescalePortOpen(std::int16_t PortNumber) { magnescale_->PortOpen(PortNumber); }
void clsCommunication::MagnescalePortClose() { magnescale_->PortClose(); }
bool clsCommunication::MagnescalePortOpenCheck() const { return magnescale_->PortOpenCheck(); }
void clsCommunication::RequestMagnescaleData() { magnescale_->RequestData(); }
void clsCommunication::MagnescaleZeroReset() { magnescale_->ZeroReset(); }
bool clsCommunication::MagnescaleReadingIsFresh() const { return magnescale_->ReadingIsFresh(); }
void clsCommunication::MagnescaleKeyON() { magnescale_->KeyON(); }
void clsCommunication::MagnescaleKeyOFF() { magnescale_->KeyOFF(); }

void clsCommunication::MotorPortOpen(std::int16_t PortNumber) { motor_->PortOpen(PortNumber); }
void clsCommunication::MotorPortClose() { motor_->PortClose(); }
bool clsCommunication::MotorPortOpenCheck() const { return motor_->PortOpenCheck(); }
void clsCommunication::MotorZeroReset() { motor_->ZeroReset(); }

void clsCommunication::MotorMoveMZ(std::int32_t Data) {
    if (MayMove()) {
        motor_->MoveMZ(Data);
    }
}

void clsCommunication::MotorMoveRZ(std::int32_t Data) {
    if (MayMove()) {
        motor_->MoveRZ(Data);
    }
}

void clsCommunication::MotorMoveWZ() { motor_->ReceiveZData(); }
void clsCommunication::MotorHALT() { motor_->HALT(); }

void clsCommunication::MotorErgoConnect(std::string_view strData) {
    // The Ergo unit's wheel drives the focus motor.
    if (MayMove()) {
        motor_->ErgoConnect(strData);
    }
}

void clsCommunication::ControlONOFF(bool ONOFF) { listener_.ControlONOFF(ONOFF); }
void clsCommunication::PortLost(Instrument instrument) { listener_.PortLost(instrument); }
void clsCommunication::LineDropped(Instrument instrument) { listener_.LineDropped(instrument); }

}  // namespace travo
