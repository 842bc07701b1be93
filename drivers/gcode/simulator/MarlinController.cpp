#include "drivers/gcode/simulator/MarlinController.h"

#include <algorithm>
#include <cmath>

#include "drivers/gcode/MarlinReader.h"
#include "drivers/gcode/Numbers.h"

namespace gcode {

namespace {

constexpr Time HomingTime = std::chrono::seconds(2);
constexpr Time BusyTime = std::chrono::seconds(1);

std::string Words(const Millimetres& values) {
    return "X" + Fixed(values[0], 2) + " Y" + Fixed(values[1], 2) + " Z" + Fixed(values[2], 2);
}

}  // namespace

MarlinController::MarlinController(const Millimetres& at, const MachineLimits& limits, const Millimetres& min,
                                   const Millimetres& max)
    : Controller(at, limits), min_(min), max_(max) {}

void MarlinController::Restart(Time now) {
    ForgetPosition({}, now);
    isKilled_ = false;
    isRelative_ = false;
    Say("start\r\necho: External Reset\r\nMarlin 2.1.2\r\n", now);
}

void MarlinController::Kill(Time now) {
    motion_.Halt(now);
    isKilled_ = true;
    Say("Error:Printer halted. kill() called!\r\n", now);
}

void MarlinController::TellPosition(Time now) {
    const Millimetres at = motion_.At(now);
    std::string text;
    std::string count = " Count";
    for (std::size_t axis = 0; axis < at.size(); ++axis) {
        const std::string letter{"XYZ"[axis], ':'};
        text += letter + Fixed(motion_.Target()[axis] + offset_[axis], 2) + " ";
        count += " " + letter + std::to_string(std::lround(at[axis] * stepsPerMm_[axis]));
    }
    Answer(text + "E:0.00" + (tellsCount_ ? count : ""), now);
    Answer("ok", now);
}

void MarlinController::TellSettings(Time now) {
    Answer("echo:; Steps per unit:", now);
    Answer("echo: M92 " + Words(stepsPerMm_) + " E500.00", now);
    Answer("echo:; Max feedrates (units/s):", now);
    Answer("echo:  M203 " + Words(limits_.speed) + " E25.00", now);
    Answer("echo:; Max Acceleration (units/s2):", now);
    Answer("echo:  M201 " + Words(limits_.acceleration) + " E10000.00", now);
    Answer("echo:  M204 P3000.00 R3000.00 T3000.00", now);
    Answer("ok", now);
}

void MarlinController::Move(const std::string& line, Time now) {
    if (needsHoming_) {
        Answer("echo:Home XYZ First", now);
        Answer("ok", now);
        return;
    }
    feed_ = Word(line, 'F').value_or(feed_ * 60) / 60;
    Millimetres to = motion_.Target();
    for (std::size_t axis = 0; axis < to.size(); ++axis) {
        const std::optional<double> word = Word(line, "XYZ"[axis]);
        // "Moves will be clipped to the physical boundaries."
        to[axis] = word ? std::clamp(*word + (isRelative_ ? to[axis] : 0), min_[axis], max_[axis]) : to[axis];
    }
    motion_.Push(to, feed_, now + Thinking);
    Answer("ok", now);
}

void MarlinController::TakeCommand(const std::string& line, Time now) {
    if (isKilled_) {
        return;
    }
    if (line.starts_with("G0 ") || line.starts_with("G1 ")) {
        Move(line, now);
    } else if (line == "M114") {
        TellPosition(now);
    } else if (line == "M115") {
        Answer(
            "FIRMWARE_NAME:Marlin 2.1.2 (Simulated) SOURCE_CODE_URL:- PROTOCOL_VERSION:1.0 "
            "MACHINE_TYPE:Stage "
            "EXTRUDER_COUNT:1 UUID:cede2a2f-41a2-4748-9b12-c55c62f367ff",
            now);
        Answer("Cap:EEPROM:1", now);
        Answer("Cap:EMERGENCY_PARSER:1", now);
        Answer("ok", now);
    } else if (line == "M503") {
        TellSettings(now);
    } else if (line == "M211") {
        Answer("echo:Soft endstops: On  Min: " + Words(min_) + "   Max: " + Words(max_), now);
        Answer("ok", now);
    } else if (line == "M410") {
        motion_.Halt(now);
        Answer("ok", now);
    } else if (line == "G28") {
        ForgetPosition(motion_.At(now), now);
        motion_.Place(min_, now);
        needsHoming_ = false;
        Answer("echo:busy: processing", now, BusyTime);
        Answer("ok", now, HomingTime);
    } else if (line == "G21" || line == "G90" || line == "G91") {
        isRelative_ = line == "G21" ? isRelative_ : line == "G91";
        Answer("ok", now);
    } else {
        Answer("echo:Unknown command: \"" + line + "\"", now);
        Answer("ok", now);
    }
}

}  // namespace gcode
