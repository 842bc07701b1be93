#include "drivers/gcode/simulator/Controller.h"

#include <algorithm>

namespace gcode {

void Controller::Receive(std::string_view bytes, Time now) {
    Pass(now);
    for (const char character : bytes) {
        if (TakeCharacter(character, now)) {
            continue;
        }
        if (character != '\n' && character != '\r') {
            line_ += character;
            continue;
        }
        if (!line_.empty()) {
            const std::string line = std::exchange(line_, {});
            heard_.push_back(line);
            TakeCommand(line, now);
        }
    }
}

std::string Controller::Take(Time now) {
    Pass(now);
    std::string text;
    while (!words_.empty() && words_.front().first <= now) {
        text += isMute_ ? std::string() : words_.front().second;
        words_.pop_front();
    }
    return text;
}

Time Controller::NextWord(Time now) {
    Pass(now);
    return words_.empty() ? Time::max() : words_.front().first;
}

Millimetres Controller::Truth(Time now) {
    Millimetres truth = motion_.At(now);
    for (std::size_t axis = 0; axis < truth.size(); ++axis) {
        truth[axis] += truthMinusOwn_[axis];
    }
    return truth;
}

void Controller::ForgetPosition(const Millimetres& as, Time now) {
    const Millimetres truth = Truth(now);
    motion_.Place(as, now);
    for (std::size_t axis = 0; axis < truth.size(); ++axis) {
        truthMinusOwn_[axis] = truth[axis] - as[axis];
    }
}

void Controller::Answer(std::string_view text, Time now, Time after) {
    // In their order: nothing overtakes what was said before.
    const Time due =
        words_.empty() ? now + after + slowness_ : std::max(now + after + slowness_, words_.back().first);
    words_.emplace_back(due, std::string(text) + "\r\n");
}

void Controller::Say(std::string_view bytes, Time now) {
    const Time due = words_.empty() ? now : std::max(now, words_.back().first);
    words_.emplace_back(due, std::string(bytes));
}

}  // namespace gcode
