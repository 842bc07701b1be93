#include "drivers/gcode/simulator/OmmController.h"

#include "drivers/gcode/MarlinReader.h"
#include "drivers/gcode/Numbers.h"

namespace gcode {

namespace {

constexpr Time HomingTime = std::chrono::seconds(2);

}  // namespace

void OmmController::Restart(Time now) {
    ForgetPosition({}, now);
    isHomed_ = false;
    Say("I) Started\r\n", now);
}

void OmmController::Move(const std::string& line, Time now) {
    const std::optional<Millimetres> to = WordTriple(line);
    const std::optional<double> feed = Word(line, 'F');
    if (!isHomed_ || !to || !feed || *feed <= 0) {
        Answer(isHomed_ ? "E) missing word" : "E) not homed", now);
        Answer("error", now);
        return;
    }
    if (isBusy_) {
        Answer("busy", now);
        return;
    }
    motion_.Push(*to, *feed, now + Thinking);
    Answer("ok", now);
}

void OmmController::TakeCommand(const std::string& line, Time now) {
    if (line.starts_with("G0 ") || line.starts_with("G1 ")) {
        Move(line, now);
        return;
    }
    if (line == "M50") {
        const Millimetres at = motion_.At(now);
        Answer("X" + Fixed(at[0], 6) + " Y" + Fixed(at[1], 6) + " Z" + Fixed(at[2], 6) +
                   " A0.000000 B0.000000 C0.000000",
               now);
    } else if (line == "M53") {
        Answer(motion_.IsMoving(now) ? "0" : "1", now);
    } else if (line == "M57") {
        for (int joint = 0; tellsHomed_ && joint < 3; ++joint) {
            Answer("joint " + std::to_string(joint) + " homed: " + (isHomed_ ? "1" : "0"), now);
        }
    } else if (line == "M58") {
        Answer("v1.0.4", now);
    } else if (line == "G28") {
        ForgetPosition(motion_.At(now), now);
        motion_.Place({}, now);
        isHomed_ = true;
        Answer("I) homing", now);
        Answer("ok", now, HomingTime);
        return;
    } else {
        Answer("error", now);
        return;
    }
    Answer("ok", now);
}

}  // namespace gcode
