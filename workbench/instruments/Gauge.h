// The linear gauge on the focus axis, on its wire: answers readings when it is asked, and nothing else.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "workbench/instruments/Instrument.h"
#include "workbench/instruments/LineSplitter.h"
#include "workbench/world/World.h"

namespace workbench {

// Commands and readings end with CR LF. A reading is "A", a sign and NN.NNN: Z units from the gauge's own
// zero, divided by 1000. Beyond 99.999 the display stands still there. A command that it does not know
// is passed over in silence. The world must outlive the gauge.
class Gauge : public Instrument {
public:
    explicit Gauge(World& world) : world_(world) {}

    void Receive(std::string_view bytes, Time now) override;
    void Advance(Time) override {}
    std::string_view CommandEnd() const override { return "\r\n"; }
    std::string FloodLine(std::int32_t n, Time now) const override;

    // Its keys by hand. False, and nothing happens, while they are disabled.
    bool PressZeroKey(Time now);
    bool KeysEnabled() const { return keysEnabled_; }

    // Out of order: eight characters that are no number, where a reading is asked for.
    void GiveGarbage(bool garbage) { garbage_ = garbage; }
    bool GivesGarbage() const { return garbage_; }

private:
    void Obey(std::string_view command, Time now);
    std::string Reading(Time now) const;
    std::string Garbage();

    World& world_;
    LineSplitter received_{"\r\n"};
    bool keysEnabled_ = true;
    bool garbage_ = false;
    std::minstd_rand chance_;
};

}  // namespace workbench
