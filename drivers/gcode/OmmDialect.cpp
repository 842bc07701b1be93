#include "drivers/gcode/OmmDialect.h"

#include <cmath>

#include "drivers/gcode/Numbers.h"
#include "drivers/gcode/Talk.h"

namespace gcode {

namespace {

constexpr int Decimals = 5;
constexpr int FeedDecimals = 5;

}  // namespace

Outcome OmmDialect::Ask(Line& line, const std::string& command, Time until, const Taker& take) {
    TakeWaiting(line, [](const std::string&) {});
    if (!line.Send(command + "\n")) {
        return NoAnswer(line, command);
    }
    while (const std::optional<std::string> text = line.Next(until)) {
        const OmmLine read = ReadOmm(*text);
        switch (read.kind) {
            case OmmLine::Kind::Ok:
                return Good();
            case OmmLine::Kind::Error:
                return {Trouble::Refused, command + " was answered with: " + read.text};
            case OmmLine::Kind::Busy:
                return {Trouble::Refused, command + " was answered with: busy"};
            case OmmLine::Kind::Log:
                break;
            case OmmLine::Kind::Data:
                if (take) {
                    take(read.text);
                }
        }
    }
    return NoAnswer(line, command);
}

Outcome OmmDialect::Greet(Line& line, Time firstAnswer, Facts& facts) {
    Outcome outcome = Ask(line, "M58", firstAnswer, [&](const std::string& text) {
        facts.firmware += (facts.firmware.empty() ? "" : " ") + text;
    });
    if (!outcome.IsGood()) {
        return outcome;
    }
    facts.state = "ready";
    outcome = Ask(line, "M57", line.Within(AnswerLimit), [&](const std::string& text) {
        if (const std::optional<bool> homed = OmmHomed(text)) {
            facts.isHomed = facts.isHomed.value_or(true) && *homed;
        }
    });
    if (outcome.IsGood() && facts.isHomed) {
        facts.state = *facts.isHomed ? "homed" : "not homed";
    }
    return outcome;
}

Outcome OmmDialect::AskFinished(Line& line, Time until, bool& isFinished) {
    while (line.Now() < until) {
        std::optional<bool> finished;
        int answers = 0;
        const Outcome outcome = Ask(line, "M53", until, [&](const std::string& text) {
            ++answers;
            finished = OmmFinished(text);
        });
        if (!outcome.IsGood()) {
            return outcome;
        }
        if (finished && answers == 1) {
            isFinished = *finished;
            return Good();
        }
    }
    return NoAnswer(line, "M53");
}

Outcome OmmDialect::Where(Line& line, Place& place) {
    const Time until = line.Within(AnswerLimit);
    bool isFinished = false;
    if (const Outcome outcome = AskFinished(line, until, isFinished); !outcome.IsGood()) {
        return outcome;
    }
    place.isMoving = !isFinished;
    while (line.Now() < until) {
        std::optional<Millimetres> pose;
        int answers = 0;
        const Outcome outcome = Ask(line, "M50", until, [&](const std::string& text) {
            ++answers;
            pose = OmmPose(text);
        });
        if (!outcome.IsGood()) {
            return outcome;
        }
        if (pose && answers == 1) {
            place.machine = *pose;
            return Good();
        }
    }
    return NoAnswer(line, "M50");
}

Outcome OmmDialect::Move(Line& line, const Millimetres& to, double feed) {
    const double scale = std::pow(10, FeedDecimals);
    return Ask(line,
               "G0 X" + Fixed(to[0], Decimals) + " Y" + Fixed(to[1], Decimals) + " Z" +
                   Fixed(to[2], Decimals) + " F" + Fixed(std::ceil(feed * scale) / scale, FeedDecimals),
               line.Within(AnswerLimit));
}

Outcome OmmDialect::Stop(Line& line, bool&) {
    bool isFinished = false;
    if (const Outcome outcome = AskFinished(line, line.Within(AnswerLimit), isFinished); !outcome.IsGood()) {
        return outcome;
    }
    return isFinished ? Good()
                      : Outcome{Trouble::Refused, "this controller has no command that ends a motion"};
}

Outcome OmmDialect::Home(Line& line) { return Ask(line, "G28", line.Within(HomingLimit)); }

Outcome OmmDialect::Unlock(Line& line) { return Ask(line, "M50", line.Within(AnswerLimit)); }

std::string OmmDialect::HomeMoves() const {
    return "all joints move to their mechanical stops, the end effector towards the base (G28)";
}

std::string OmmDialect::UnlockMeans() const {
    return "nothing moves; the pose that the controller has is taken for true";
}

}  // namespace gcode
