#include "drivers/gcode/MarlinDialect.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "drivers/gcode/Numbers.h"
#include "drivers/gcode/Talk.h"

namespace gcode {

namespace {

using Kind = MarlinLine::Kind;

constexpr double SecondsOfAMinute = 60;
constexpr int Decimals = 5;
constexpr int FeedDecimals = 3;
// M114 writes two decimals.
constexpr double ProjectedRounding = 0.0051;
constexpr Time GreetingLimit = std::chrono::milliseconds(600);
constexpr Time BetweenLooks = std::chrono::milliseconds(40);
constexpr int StepsCode = 92;
constexpr int AccelerationCode = 201;
constexpr int SpeedCode = 203;
constexpr int AccelerationsCode = 204;

Outcome HasStarted() { return {Trouble::Restarted, "the controller has started anew"}; }

void Pause(Line& line, Time duration) {
    const Time until = line.Within(duration);
    while (line.Now() < until && line.Next(until)) {
    }
}

}  // namespace

// One command, and what comes up to its "ok". Errors may come with an ok behind them or without.
Outcome MarlinDialect::Ask(Line& line, const std::string& command, Time until, const Taker& take) {
    Outcome outcome = Good();
    TakeWaiting(line, [&](const std::string& text) {
        outcome = ReadMarlin(text).kind == Kind::Start ? HasStarted() : outcome;
    });
    if (!outcome.IsGood()) {
        return outcome;
    }
    if (!line.Send(command + "\n")) {
        return NoAnswer(line, command);
    }
    while (const std::optional<std::string> text = line.Next(until)) {
        const MarlinLine read = ReadMarlin(*text);
        switch (read.kind) {
            case Kind::Ok:
                return outcome;
            case Kind::Start:
                return HasStarted();
            case Kind::Error:
            case Kind::Resend:
            case Kind::Unknown:
            case Kind::HomeFirst:
                outcome = {Trouble::Refused, command + " was answered with: " + read.text};
                break;
            default:
                if (take) {
                    take(read);
                }
        }
    }
    return outcome.IsGood() ? NoAnswer(line, command) : outcome;
}

Outcome MarlinDialect::Greet(Line& line, Time firstAnswer, Facts& facts) {
    const Taker takeFirmware = [&](const MarlinLine& read) {
        if (read.kind == Kind::Firmware) {
            facts.firmware = read.text;
        }
    };
    // A board that restarts when it is opened is deaf for a while, says so in several lines, and has lost the
    // question: it is asked again.
    Outcome outcome{Trouble::Silent, "no answer to M115"};
    while (!outcome.IsGood() && line.Now() < firstAnswer) {
        outcome = Ask(line, "M115", std::min(firstAnswer, line.Within(GreetingLimit)), takeFirmware);
        facts.hasStarted = facts.hasStarted || outcome.trouble == Trouble::Restarted;
        if (outcome.trouble != Trouble::Restarted && outcome.trouble != Trouble::Silent) {
            break;
        }
        Pause(line, BetweenLooks);
    }
    if (!outcome.IsGood()) {
        return outcome;
    }
    // Answers to questions that were asked again.
    Pause(line, BetweenLooks);
    facts.state = "ready";
    if (outcome = Learn(line, facts); !outcome.IsGood()) {
        return outcome;
    }
    return CompareCoordinates(line);
}

Outcome MarlinDialect::Learn(Line& line, Facts& facts) {
    std::map<int, std::string> settings;
    Outcome outcome = Ask(line, "M503", line.Within(AnswerLimit), [&](const MarlinLine& read) {
        if (read.kind == Kind::Setting) {
            settings.emplace(read.number, read.text);
        }
    });
    if (!outcome.IsGood()) {
        return outcome;
    }
    const std::optional<Millimetres> steps = WordTriple(settings[StepsCode]);
    if (!steps || *std::min_element(steps->begin(), steps->end()) <= 0) {
        return {Trouble::Unsuited, "M503 does not tell the steps of a millimetre (M92)"};
    }
    stepsPerMm_ = *steps;
    const std::optional<Millimetres> speed = WordTriple(settings[SpeedCode]);
    std::optional<Millimetres> acceleration = WordTriple(settings[AccelerationCode]);
    // T is that of travel, in older ones S that of all.
    std::optional<double> travel = Word(settings[AccelerationsCode], 'T');
    travel = travel ? travel : Word(settings[AccelerationsCode], 'S');
    if (speed && acceleration) {
        for (double& axis : *acceleration) {
            axis = travel ? std::min(axis, *travel) : axis;
        }
        facts.limits = MachineLimits{*speed, *acceleration};
    }
    outcome = Ask(line, "M211", line.Within(AnswerLimit), [&](const MarlinLine& read) {
        if (read.kind == Kind::SoftEndstops && read.min && read.max) {
            facts.min = read.min;
            facts.max = read.max;
        }
    });
    // A build without soft endstops need not know the command.
    return outcome.trouble == Trouble::Refused ? Good() : outcome;
}

Outcome MarlinDialect::CompareCoordinates(Line& line) {
    Place first;
    Place second;
    if (const Outcome outcome = Where(line, first); !outcome.IsGood() || !first.isMoving) {
        return outcome;
    }
    Pause(line, BetweenLooks);
    if (const Outcome outcome = Where(line, second); !outcome.IsGood()) {
        return outcome;
    }
    if (second.isMoving && first.machine == second.machine) {
        return {
            Trouble::Unsuited,
            "its coordinates are not those of its steps: an offset (G92, M206) or levelling is in effect"};
    }
    return Good();
}

Outcome MarlinDialect::Where(Line& line, Place& place) {
    const Time until = line.Within(AnswerLimit);
    // An answer that was no position is asked for again: it was acknowledged, so nothing of it is under way.
    while (line.Now() < until) {
        std::optional<MarlinPosition> position;
        int positions = 0;
        const Outcome outcome = Ask(line, "M114", until, [&](const MarlinLine& read) {
            positions += read.kind == Kind::Position || read.kind == Kind::Broken ? 1 : 0;
            position = read.kind == Kind::Position ? std::optional(read.position) : position;
        });
        if (!outcome.IsGood()) {
            return outcome;
        }
        if (!position || positions != 1) {
            continue;
        }
        if (!position->steps) {
            return {Trouble::Unsuited,
                    "M114 does not tell the steps (Count): the place while moving is not known"};
        }
        place.isMoving = false;
        for (std::size_t axis = 0; axis < place.machine.size(); ++axis) {
            place.machine[axis] = (*position->steps)[axis] / stepsPerMm_[axis];
            const double apart = std::abs(position->projected[axis] - place.machine[axis]);
            place.isMoving = place.isMoving || apart > ProjectedRounding + 1.5 / stepsPerMm_[axis];
        }
        return Good();
    }
    return NoAnswer(line, "M114");
}

Outcome MarlinDialect::Move(Line& line, const Millimetres& to, double feed) {
    const double scale = std::pow(10, FeedDecimals);
    const double perMinute = std::ceil(feed * SecondsOfAMinute * scale) / scale;
    const std::string move = "G1 X" + Fixed(to[0], Decimals) + " Y" + Fixed(to[1], Decimals) + " Z" +
                             Fixed(to[2], Decimals) + " F" + Fixed(perMinute, FeedDecimals);
    const Time until = line.Within(AnswerLimit);
    // Millimetres and absolute: the modes that it starts with, said anew since another host may have left
    // others.
    for (const std::string& command : {std::string("G21"), std::string("G90"), move}) {
        if (const Outcome outcome = Ask(line, command, until); !outcome.IsGood()) {
            return outcome;
        }
    }
    return Good();
}

Outcome MarlinDialect::Stop(Line& line, bool& hadNoRamp) {
    const Time until = line.Within(AnswerLimit);
    Place last;
    if (const Outcome outcome = Where(line, last); !outcome.IsGood() || !last.isMoving) {
        return outcome;
    }
    hadNoRamp = true;
    if (const Outcome outcome = Ask(line, "M410", until); !outcome.IsGood()) {
        return outcome;
    }
    if (const Outcome outcome = Where(line, last); !outcome.IsGood()) {
        return outcome;
    }
    while (line.Now() < until) {
        Pause(line, BetweenLooks);
        const Millimetres before = last.machine;
        if (const Outcome outcome = Where(line, last); !outcome.IsGood()) {
            return outcome;
        }
        if (last.machine == before) {
            return Good();
        }
    }
    return {Trouble::Silent, "it has not come to a stand"};
}

Outcome MarlinDialect::Home(Line& line) { return Ask(line, "G28", line.Within(HomingLimit)); }

Outcome MarlinDialect::Unlock(Line& line) { return Ask(line, "M114", line.Within(AnswerLimit)); }

std::string MarlinDialect::HomeMoves() const { return "all axes move to their end stops (G28)"; }

std::string MarlinDialect::UnlockMeans() const {
    return "nothing moves; the position that the controller has is taken for true";
}

}  // namespace gcode
