// The one door to the instruments: every operation goes straight to its link, every received value
// goes straight up. It holds no protocol, no timing and no value, and it waits for nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/ground/Positions.h"
#include "core/state/FailureHandler.h"
#include "core/state/SharedState.h"
#include "core/state/Slot.h"
#include "devices/links/LinkListener.h"
#include "devices/links/clsMagnescale.h"
#include "devices/links/clsManipulator.h"
#include "devices/links/clsMirror.h"
#include "devices/links/clsMotor.h"
#include "platform/EventLoop.h"
#include "platform/SerialPort.h"

namespace travo {

class clsCommunication : private clsMirror::Receiver,
                         private clsMagnescale::Receiver,
                         private clsMotor::Panel {
public:
    // What the links need of the machine.
    struct Machine {
        clsManipulator::Machine manipulators;
        platform::SerialPorts& serialPorts;
        platform::EventLoop& eventLoop;
    };

    // What the instruments have to tell besides the values that go into the shared state.
    class Listener : public LinkListener {
    public:
        // The mirror's own motors are on (not 0) or off, as the controller reports them. The shared
        // state knows already.
        virtual void checkMotor(std::int16_t ONOFF) = 0;
        // The focus motor's buttons on the connection panel: false locks them, true unlocks them.
        virtual void ControlONOFF(bool ONOFF) = 0;
    };

    // Creates the links in the order gauge, mirror, manipulators, focus motor, all ports closed, and
    // releases them in the same order when it ends.
    clsCommunication(const Machine& machine, SharedState& state, FailureHandler& failures,
                     Listener& listener);
    ~clsCommunication() override;
    clsCommunication(const clsCommunication&) = delete;
    clsCommunication& operator=(const clsCommunication&) = delete;

    // From now on nothing is sent that moves anything: needles, mirror, magnification, focus motor, nor what
    // would switch the mirror's motors on. The same holds from the moment at which the system asks the
    // program to end. What stops, asks, switches off or closes passes, and so does the way back of a test
    // of a manipulator that is under way.
    void EndMoves() { movesEnded_ = true; }

    // The mirror controller; see clsMirror. A request returns at once: the value that it asks for
    // comes when the event loop next runs. With a port closed nothing is sent and nothing is told.
    void MirrorPortOpen(std::int16_t PortNumber);
    void MirrorPortClose();
    bool MirrorPortOpenCheck() const;
    // Axis 0 is X, 1 is Y; any other does nothing. Absolute, in the mirror controller's counts.
    void SendMirrorData(std::int16_t Index, std::int32_t Data);
    void SendMirrorMagnificationData(std::int16_t Magnification);
    // Switches the motors of the tilting mirror: 1 on, 0 off.
    void SendMotorLock(std::int16_t ErgoLock);
    void SendErgoZ(std::int16_t ZLock);
    // Asks for X, then for Y.
    void RequestMirrorData();

    // What the mirror controller and the gauge tell, into the shared state.
    void ReceiveMirrorXData(std::int32_t Data) override;
    void ReceiveMirrorYData(std::int32_t Data) override;
    void ReceiveMirrorXYData(std::int32_t PositionX, std::int32_t PositionY) override;
    void ReceiveMagnificationData(std::int16_t Magnification) override;
    void ReceiveMotorData(std::int16_t ONOFF) override;
    void MagnescaleData(std::int32_t Data) override;

    // The needle manipulators; see clsManipulator for units, ranges and failures.
    std::int16_t SendManipulatorData(std::int16_t ManipulatorNumber, const PositionXYZ& lngInXYZ,
                                     const PositionXYZ& lngNowXYZ,
                                     clsManipulator::Presses presses = clsManipulator::Presses::Dropped);
    std::string RequestManipulatorData();
    // ManipulatorNumber is 1-based; on return it holds the 0-based number that the driver reports.
    void TestManipulator(std::int16_t& ManipulatorNumber);
    // ManipulatorNumber is 1-based.
    std::int32_t ChangeManipulator(std::int16_t ManipulatorNumber);
    std::int16_t ConnectManipulator();
    void ReConnectManipulator();
    void ManipulatorNumberSet(std::int16_t SettingManipulator, std::int16_t ManipulatorUSBNumber);
    std::int16_t ManipulatorCheckNumber(std::int16_t ManipulatorUSBNumber) const;

    // The gauge on the focus axis; see clsMagnescale.
    void MagnescalePortOpen(std::int16_t PortNumber);
    void MagnescalePortClose();
    bool MagnescalePortOpenCheck() const;
    void RequestMagnescaleData();
    void MagnescaleZeroReset();
    bool MagnescaleReadingIsFresh() const;
    void MagnescaleKeyON();
    void MagnescaleKeyOFF();

    // The focus motor; see clsMotor.
    void MotorPortOpen(std::int16_t PortNumber);
    void MotorPortClose();
    bool MotorPortOpenCheck() const;
    void MotorZeroReset();
    // To an absolute place, and by a distance; in the motor unit's counts.
    void MotorMoveMZ(std::int32_t Data);
    void MotorMoveRZ(std::int32_t Data);
    // Asks where Z is; nothing moves, also not after EndMoves.
    void MotorMoveWZ();
    void MotorHALT();
    // A line of the Ergo unit, which comes on the mirror controller's wire.
    void MotorErgoConnect(std::string_view strData) override;

private:
    void ControlONOFF(bool ONOFF) override;
    bool MayMove() const { return !movesEnded_ && !eventLoop_.EndAsked(); }
    void PortLost(Instrument instrument) override;
    void LineDropped(Instrument instrument) override;

    const platform::EventLoop& eventLoop_;
    SharedState& state_;
    Listener& listener_;
    Slot<clsMagnescale> magnescale_;
    Slot<clsMirror> mirror_;
    Slot<clsManipulator> manipulator_;
    Slot<clsMotor> motor_;
    bool movesEnded_ = false;
};

}  // namespace travo
