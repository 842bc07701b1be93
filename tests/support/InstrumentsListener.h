// The owner's side of the facade: writes what the instruments tell to the journal.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include "devices/links/clsCommunication.h"
#include "support/StandIns.h"

namespace travo::test {

class InstrumentsListener : public clsCommunication::Listener {
public:
    explicit InstrumentsListener(Journal& journal) : journal_(journal) {}

    void checkMotor(std::int16_t ONOFF) override {
        Tell("checkMotor " + std::to_string(ONOFF));
        if (mirrorMotors) {
            mirrorMotors(ONOFF);
        }
    }
    void ControlONOFF(bool ONOFF) override {
        Tell(ONOFF ? "ControlONOFF 1" : "ControlONOFF 0");
        if (motorButtons) {
            motorButtons(ONOFF);
        }
    }
    void PortLost(Instrument instrument) override {
        Tell("PortLost " + std::to_string(static_cast<int>(instrument)));
        if (lostPorts) {
            lostPorts(instrument);
        }
    }
    void LineDropped(Instrument instrument) override {
        Tell("LineDropped " + std::to_string(static_cast<int>(instrument)));
    }

    bool fail = false;                               // each call raises, once it is in the journal
    std::function<void(bool)> motorButtons;          // the panel that is told, where a test has one
    std::function<void(std::int16_t)> mirrorMotors;  // likewise
    std::function<void(Instrument)> lostPorts;       // likewise

private:
    void Tell(const std::string& what) {
        journal_.push_back(what);
        if (fail) {
            throw std::runtime_error("the panel fails");
        }
    }

    Journal& journal_;
};

}  // namespace travo::test
