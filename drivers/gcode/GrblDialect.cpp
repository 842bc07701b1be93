#include "drivers/gcode/GrblDialect.h"

#include <cmath>

#include "drivers/gcode/Numbers.h"
#include "drivers/gcode/Talk.h"

namespace gcode {

namespace {

using Kind = GrblLine::Kind;

// "Grbl will generate and transmit a report within ~5-20 milliseconds", and may ignore a question.
constexpr Time ReportLimit = std::chrono::milliseconds(60);
constexpr char Question = '?';
constexpr char JogCancel = '\x85';
constexpr char FeedHold = '!';
constexpr char SoftReset = '\x18';

constexpr int InchesSetting = 13;
constexpr int SoftLimitsSetting = 20;
constexpr int HomingSetting = 22;
constexpr int HomingDirectionSetting = 23;
constexpr int SpeedSetting = 110;         // and 111, 112: mm/min
constexpr int AccelerationSetting = 120;  // mm/s²
constexpr int TravelSetting = 130;        // mm
constexpr double SecondsOfAMinute = 60;
constexpr int Decimals = 5;
constexpr int FeedDecimals = 3;

Outcome Alarmed(int number) {
    const std::string_view text = GrblAlarmText(number);
    return {Trouble::NotReady,
            "ALARM:" + std::to_string(number) + (text.empty() ? "" : ", " + std::string(text))};
}

Outcome HasStarted() { return {Trouble::Restarted, "the controller has started anew"}; }

Outcome InState(const std::string& state) {
    return {Trouble::NotReady, "the controller is in state " + state};
}

bool MayMove(GrblState state) {
    return state == GrblState::Idle || state == GrblState::Run || state == GrblState::Jog;
}

}  // namespace

Outcome GrblDialect::Waiting(Line& line) {
    Outcome outcome = Good();
    TakeWaiting(line, [&](const std::string& text) {
        const GrblLine read = ReadGrbl(text);
        if (read.kind == Kind::Alarm) {
            outcome = Alarmed(read.number);
        } else if (read.kind == Kind::Banner) {
            outcome = HasStarted();
        } else if (read.kind == Kind::Broken) {
            workOffset_.reset();
        } else if (read.kind == Kind::Status && read.status.workOffset) {
            workOffset_ = read.status.workOffset;
        }
    });
    return outcome;
}

Outcome GrblDialect::AskStatus(Line& line, Time until, GrblStatus& status) {
    // A word that the document does not have: one that has lost a letter, unless it stays.
    std::string unknown;
    while (line.Now() < until) {
        if (!line.Send({&Question, 1})) {
            return NoAnswer(line, "?");
        }
        const Time again = std::min(until, line.Now() + ReportLimit);
        while (const std::optional<std::string> text = line.Next(again)) {
            GrblLine read = ReadGrbl(*text);
            if (read.kind == Kind::Alarm) {
                return Alarmed(read.number);
            }
            if (read.kind == Kind::Banner) {
                return HasStarted();
            }
            if (read.kind == Kind::Broken) {
                // It may have been the one that told a new offset.
                workOffset_.reset();
                break;
            }
            if (read.kind == Kind::Status && read.status.state == GrblState::Unknown) {
                unknown = read.status.stateText;
                break;
            }
            if (read.kind == Kind::Status) {
                workOffset_ = read.status.workOffset ? read.status.workOffset : workOffset_;
                status = std::move(read.status);
                if (status.machine || workOffset_) {
                    return Good();
                }
                break;  // "WCO: in every 10 or 30 status reports"
            }
        }
        if (line.IsGone()) {
            break;
        }
    }
    return unknown.empty() ? NoAnswer(line, "?") : InState(unknown);
}

Outcome GrblDialect::Command(Line& line, const std::string& command, Time until,
                             std::map<int, double>* settings, std::string* version) {
    if (!line.Send(command + "\n")) {
        return NoAnswer(line, command);
    }
    while (const std::optional<std::string> text = line.Next(until)) {
        const GrblLine read = ReadGrbl(*text);
        switch (read.kind) {
            case Kind::Ok:
                return Good();
            case Kind::Error:
                return {Trouble::Refused,
                        command + " was answered with error:" + std::to_string(read.number)};
            case Kind::Alarm:
                return Alarmed(read.number);
            case Kind::Banner:
                return HasStarted();
            case Kind::Setting:
                if (settings != nullptr) {
                    (*settings)[read.number] = read.value;
                }
                break;
            case Kind::Message:
                if (version != nullptr) {
                    *version += (version->empty() ? "" : " ") + read.text;
                }
                break;
            default:
                break;
        }
    }
    return NoAnswer(line, command);
}

Outcome GrblDialect::Greet(Line& line, Time firstAnswer, Facts& facts) {
    GrblStatus status;
    workOffset_.reset();
    Outcome outcome = AskStatus(line, firstAnswer, status);
    // A board that restarts when it is opened says so first.
    if (outcome.trouble == Trouble::Restarted) {
        facts.hasStarted = true;
        outcome = AskStatus(line, line.Within(AnswerLimit), status);
    }
    if (!outcome.IsGood()) {
        return outcome;
    }
    facts.state = status.stateText;
    std::map<int, double> settings;
    if (outcome = Command(line, "$$", line.Within(AnswerLimit), &settings); !outcome.IsGood()) {
        return outcome;
    }
    if (outcome = Command(line, "$I", line.Within(AnswerLimit), nullptr, &facts.firmware);
        !outcome.IsGood()) {
        return outcome;
    }
    if (settings[InchesSetting] != 0) {
        return {Trouble::Unsuited, "the controller reports in inches: set $13=0 there"};
    }
    const std::size_t options = facts.firmware.find("OPT:");
    Learn(settings, options != std::string::npos && facts.firmware.find('Z', options) != std::string::npos,
          facts);
    return Good();
}

// The travel lies on the negative side of home; a build with a forced origin ("Z") has it on the other side
// on the axes that home there.
void GrblDialect::Learn(const std::map<int, double>& settings, bool originForced, Facts& facts) const {
    const auto value = [&](int number) {
        const auto found = settings.find(number);
        return found == settings.end() ? 0.0 : found->second;
    };
    facts.homingEnabled = value(HomingSetting) != 0;
    MachineLimits limits;
    bool isWhole = true;
    Millimetres min{};
    Millimetres max{};
    for (int axis = 0; axis < 3; ++axis) {
        const auto index = static_cast<std::size_t>(axis);
        limits.speed[index] = value(SpeedSetting + axis) / SecondsOfAMinute;
        limits.acceleration[index] = value(AccelerationSetting + axis);
        isWhole = isWhole && limits.speed[index] > 0 && limits.acceleration[index] > 0;
        const double travel = std::abs(value(TravelSetting + axis));
        const auto mask = static_cast<unsigned>(value(HomingDirectionSetting));
        const bool isPositive = originForced && (mask >> index & 1U) != 0;
        (isPositive ? max : min)[index] = isPositive ? travel : -travel;
    }
    if (isWhole) {
        facts.limits = limits;
    }
    if (value(SoftLimitsSetting) != 0) {
        facts.min = min;
        facts.max = max;
    }
}

Outcome GrblDialect::Where(Line& line, Place& place) {
    if (const Outcome waiting = Waiting(line); !waiting.IsGood()) {
        return waiting;
    }
    GrblStatus status;
    if (const Outcome outcome = AskStatus(line, line.Within(AnswerLimit), status); !outcome.IsGood()) {
        return outcome;
    }
    if (!MayMove(status.state)) {
        return InState(status.stateText);
    }
    if (status.machine) {
        place.machine = *status.machine;
    } else {
        for (std::size_t axis = 0; axis < place.machine.size(); ++axis) {  // "WPos = MPos - WCO"
            place.machine[axis] = (*status.work)[axis] + (*workOffset_)[axis];
        }
    }
    place.isMoving = status.state != GrblState::Idle;
    return Good();
}

Outcome GrblDialect::Move(Line& line, const Millimetres& to, double feed) {
    if (const Outcome waiting = Waiting(line); !waiting.IsGood()) {
        return waiting;
    }
    // Rounded up: rounded down it would be late.
    const double scale = std::pow(10, FeedDecimals);
    const double perMinute = std::ceil(feed * SecondsOfAMinute * scale) / scale;
    const std::string command = "$J=G53G21G90X" + Fixed(to[0], Decimals) + "Y" + Fixed(to[1], Decimals) +
                                "Z" + Fixed(to[2], Decimals) + "F" + Fixed(perMinute, FeedDecimals);
    return Command(line, command, line.Within(AnswerLimit));
}

Outcome GrblDialect::Stop(Line& line, bool&) {
    const Time until = line.Within(AnswerLimit);
    GrblStatus status;
    bool isHeld = false;
    if (!line.Send({&JogCancel, 1})) {
        return NoAnswer(line, "a jog cancel");
    }
    while (line.Now() < until) {
        if (const Outcome outcome = AskStatus(line, until, status); !outcome.IsGood()) {
            return outcome;
        }
        if (status.state != GrblState::Jog && status.state != GrblState::Run &&
            status.stateText != "Hold:1") {
            return Good();
        }
        // No jog, so none of ours: held as well, and left to whoever resumes it.
        if (status.state == GrblState::Run && !isHeld) {
            isHeld = line.Send({&FeedHold, 1});
        }
    }
    return {Trouble::Silent, "it has not come to a stand"};
}

Outcome GrblDialect::Home(Line& line) { return Command(line, "$H", line.Within(HomingLimit)); }

Outcome GrblDialect::Reset(Line& line) {
    const Time until = line.Within(AnswerLimit);
    if (!line.Send({&SoftReset, 1})) {
        return NoAnswer(line, "a reset");
    }
    while (const std::optional<std::string> text = line.Next(until)) {
        if (ReadGrbl(*text).kind == Kind::Banner) {
            return Good();
        }
    }
    return NoAnswer(line, "a reset");
}

// "$X" ends an alarm. A limit alarm answers nothing before a reset; Hold, Door, Sleep and Check end with one
// as well, where a resume would go on with what was held.
Outcome GrblDialect::Unlock(Line& line) {
    GrblStatus status;
    Outcome outcome = AskStatus(line, line.Within(AnswerLimit), status);
    if (outcome.IsGood() && status.state == GrblState::Idle) {
        return outcome;
    }
    if (outcome.IsGood() &&
        (MayMove(status.state) || status.state == GrblState::Home || status.stateText == "Hold:1")) {
        return {Trouble::Refused, "it is moving"};
    }
    if (!outcome.IsGood() || status.state != GrblState::Alarm) {
        if (outcome = Reset(line); !outcome.IsGood()) {
            return outcome;
        }
    }
    return Command(line, "$X", line.Within(AnswerLimit));
}

std::string GrblDialect::HomeMoves() const {
    return "all axes move to their limit switches, Z first, and a little back ($H)";
}

std::string GrblDialect::UnlockMeans() const {
    return "nothing moves; what is held is forgotten (reset), an alarm is ended ($X), and the position that "
           "the "
           "controller has is taken for true";
}

}  // namespace gcode
