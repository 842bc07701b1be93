// The link to the mirror controller with a receiver that writes down what it is given.
#pragma once

#include <optional>

#include "devices/links/LinkRig.h"
#include "devices/links/clsMirror.h"

namespace travo::test {

class MirrorRig : public LinkRig, public clsMirror::Receiver {
protected:
    MirrorRig() { link.emplace(serialPorts, failures, *this); }

    FakeSerialPort& Port() { return *serialPorts.created.front(); }

    // Opens the port and forgets what that sent.
    void Open() {
        link->PortOpen(1);
        Port().TakeOutput();
        journal.clear();
    }
    void Receive(std::string_view text) { Port().Receive(text); }

    std::optional<clsMirror> link;

private:
    void ReceiveMirrorXData(std::int32_t Data) override { FailIfAsked("X " + std::to_string(Data)); }
    void ReceiveMirrorYData(std::int32_t Data) override { FailIfAsked("Y " + std::to_string(Data)); }
    void ReceiveMirrorXYData(std::int32_t PositionX, std::int32_t PositionY) override {
        FailIfAsked("XY " + std::to_string(PositionX) + " " + std::to_string(PositionY));
    }
    void ReceiveMagnificationData(std::int16_t Magnification) override {
        FailIfAsked("magnification " + std::to_string(Magnification));
    }
    void ReceiveMotorData(std::int16_t ONOFF) override { FailIfAsked("motor " + std::to_string(ONOFF)); }
    void MotorErgoConnect(std::string_view strData) override { FailIfAsked("ergo " + std::string(strData)); }
};

}  // namespace travo::test
