#include "drivers/gcode/simulator/GrblController.h"

#include <cmath>

#include "drivers/gcode/Numbers.h"

namespace gcode {

namespace {

constexpr Time HomingTime = std::chrono::seconds(2);
constexpr int ReportsBetweenOffsets = 30;
constexpr std::size_t LongestCommand = 127;

std::string Triple(const Millimetres& values) {
    return Fixed(values[0], 3) + "," + Fixed(values[1], 3) + "," + Fixed(values[2], 3);
}

// The number behind a letter of "$J=G53G21G90X1.5Y-2F100".
std::optional<double> WordOf(const std::string& line, char letter) {
    const std::size_t place = line.find(letter, 3);
    if (place == std::string::npos) {
        return std::nullopt;
    }
    const std::size_t end = line.find_first_not_of("-.0123456789", place + 1);
    return Decimal(
        std::string_view(line).substr(place + 1, end == std::string::npos ? end : end - place - 1));
}

}  // namespace

GrblController::GrblController(const Millimetres& at, const MachineLimits& limits, const Millimetres& travel)
    : Controller(at, limits), settings_{{10, 1}, {13, 0}, {20, 1}, {22, 1}, {23, 0}} {
    for (int axis = 0; axis < 3; ++axis) {
        const auto index = static_cast<std::size_t>(axis);
        settings_[110 + axis] = limits.speed[index] * 60;
        settings_[120 + axis] = limits.acceleration[index];
        settings_[130 + axis] = travel[index];
    }
}

void GrblController::SetWorkOffset(const Millimetres& offset) {
    workOffset_ = offset;
    reportsToOffset_ = 0;
}

void GrblController::Restart(Time now) {
    ForgetPosition({}, now);
    state_ = settings_[22] != 0 ? "Alarm" : "";
    reportsToOffset_ = 0;
    Say("\r\nGrbl 1.1h ['$' for help]\r\n", now);
    if (!state_.empty()) {
        Say("[MSG:'$H'|'$X' to unlock]\r\n", now);
    }
}

void GrblController::RaiseAlarm(int number, Time now) {
    motion_.Halt(now);
    state_ = "Alarm";
    Say("ALARM:" + std::to_string(number) + "\r\n[MSG:Reset to continue]\r\n", now);
}

void GrblController::OpenDoor(Time now) {
    motion_.Hold(now);
    state_ = "Door:1";
    Say("[MSG:Check Door]\r\n", now);
}

void GrblController::Pass(Time now) {
    if (state_ == "Hold:1" && !motion_.IsMoving(now)) {
        state_ = "Hold:0";
    }
}

bool GrblController::TakeCharacter(char character, Time now) {
    const bool isJogging = state_.empty() && motion_.IsMoving(now);
    switch (character) {
        case '?':
            NoteHeard("?");
            TellStatus(now);
            return true;
        case '!':
            NoteHeard("!");
            motion_.Hold(now);
            // "If jogging, a feed hold will cancel the jog motion", and the state returns to Idle.
            state_ = state_.empty() && !isJogging ? "Hold:0" : state_;
            return true;
        case '~':
            NoteHeard("~");
            state_ = state_.starts_with("Hold") || state_ == "Door:0" ? "" : state_;
            return true;
        case '\x18':
            NoteHeard("reset");
            if (isJogging) {
                RaiseAlarm(3, now);
            }
            // "If reset while not in motion, position is retained"; an alarm stays, sleep becomes one.
            state_ = state_ == "Alarm" || state_ == "Sleep" ? "Alarm" : "";
            reportsToOffset_ = 0;
            Answer("Grbl 1.1h ['$' for help]", now);
            return true;
        case '\x85':
            NoteHeard("jog cancel");
            if (isJogging) {
                motion_.Hold(now);
            }
            return true;
        default:
            return false;
    }
}

void GrblController::TellStatus(Time now) {
    const Millimetres at = motion_.At(now);
    const bool tellsMachine = (static_cast<int>(settings_[10]) & 1) != 0;
    Millimetres told = at;
    for (std::size_t axis = 0; axis < told.size(); ++axis) {
        told[axis] -= tellsMachine ? 0 : workOffset_[axis];
    }
    std::string report = "<" + (state_.empty() ? (motion_.IsMoving(now) ? "Jog" : "Idle") : state_) + "|" +
                         (tellsMachine ? "MPos:" : "WPos:") + Triple(told);
    if ((static_cast<int>(settings_[10]) & 2) != 0) {
        report += "|Bf:15,128";
    }
    report += "|FS:0,0";
    if (reportsToOffset_-- == 0) {
        reportsToOffset_ = ReportsBetweenOffsets;
        report += "|WCO:" + Triple(workOffset_);
    }
    Answer(report + ">", now);
}

void GrblController::TellSettings(Time now) {
    for (const auto& [number, value] : settings_) {
        Answer("$" + std::to_string(number) + "=" + Fixed(value, number < 100 ? 0 : 3), now);
    }
    Answer("ok", now);
}

void GrblController::Jog(const std::string& line, Time now) {
    const std::optional<double> feed = WordOf(line, 'F');
    Millimetres to = motion_.Target();
    for (std::size_t axis = 0; axis < to.size(); ++axis) {
        to[axis] = WordOf(line, "XYZ"[axis]).value_or(to[axis]);
        const double travel = settings_[130 + static_cast<int>(axis)];
        if (settings_[20] != 0 && (to[axis] > 0 || to[axis] < -travel)) {
            Answer("error:15", now);
            return;
        }
    }
    if (!feed || *feed <= 0) {
        Answer("error:22", now);
        return;
    }
    motion_.Push(to, *feed / 60, now + Thinking);
    Answer("ok", now);
}

void GrblController::TakeCommand(const std::string& line, Time now) {
    if (line.size() > LongestCommand) {
        Answer("error:11", now);
    } else if (line == "$$" || line == "$H") {
        if (motion_.IsMoving(now)) {
            Answer("error:8", now);
        } else if (line == "$$") {
            TellSettings(now);
        } else {
            ForgetPosition(motion_.At(now), now);
            motion_.Place({}, now);
            state_.clear();
            Answer("ok", now, HomingTime);
        }
    } else if (line == "$I") {
        Answer("[VER:1.1h.20190830:]", now);
        Answer("[OPT:V,15,128]", now);
        Answer("ok", now);
    } else if (line == "$X") {
        state_ = state_ == "Alarm" ? "" : state_;
        Answer("[MSG:Caution: Unlocked]", now);
        Answer("ok", now);
    } else if (!state_.empty()) {
        Answer("error:9", now);
    } else if (line.starts_with("$J=") && line.find("G53") != std::string::npos &&
               line.find("G21") != std::string::npos && line.find("G90") != std::string::npos) {
        Jog(line, now);
    } else {
        Answer(line.front() == '$' ? "error:3" : "error:20", now);
    }
}

}  // namespace gcode
