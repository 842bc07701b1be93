// A simulated motion controller: bytes in, bytes out, time passed in. No clock, no thread, no transport.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "drivers/gcode/simulator/Motion.h"

namespace gcode {

class Controller {
public:
    // How long it thinks before it answers.
    static constexpr Time Thinking = std::chrono::milliseconds(4);

    Controller(const Millimetres& at, const MachineLimits& limits) : motion_(at, limits), limits_(limits) {}
    virtual ~Controller() = default;

    void Receive(std::string_view bytes, Time now);
    // What it has said until now.
    std::string Take(Time now);
    // When it says the next thing, if it hears nothing more; Time::max() for never.
    virtual Time NextWord(Time now);

    // Where its stage truly is; what it says of it may be something else after a restart.
    Millimetres Truth(Time now);
    Motion& Motors() { return motion_; }

    // The lines that it has understood as commands, and its real-time characters, in their order.
    const std::vector<std::string>& Heard() const { return heard_; }
    void ForgetHeard() { heard_.clear(); }

    // Faults.
    virtual void Restart(Time now) = 0;  // as after a loss of power: it stops, and begins anew
    void Mute(bool isMute) { isMute_ = isMute; }
    // It takes so much longer to answer.
    void Slow(Time by) { slowness_ = by; }
    void Say(std::string_view bytes, Time now);  // without having been asked

protected:
    virtual void TakeCommand(const std::string& line, Time now) = 0;
    // A character that acts at once and belongs to no line.
    virtual bool TakeCharacter(char character, Time now) = 0;
    // What is due before anything else happens at that time.
    virtual void Pass(Time now) { static_cast<void>(now); }
    void Answer(std::string_view text, Time now, Time after = Thinking);
    void NoteHeard(std::string text) { heard_.push_back(std::move(text)); }
    // Power-on: the stage stays where it is, and the controller takes that for `as`.
    void ForgetPosition(const Millimetres& as, Time now);

    Motion motion_;  // in the controller's own coordinates
    MachineLimits limits_;

private:
    std::string line_;
    std::deque<std::pair<Time, std::string>> words_;
    std::vector<std::string> heard_;
    Millimetres truthMinusOwn_{};
    bool isMute_ = false;
    Time slowness_{0};
};

}  // namespace gcode
