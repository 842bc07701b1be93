#include "drivers/check/StandingChecks.h"

#include "drivers/TravoDriver.h"

namespace check {

namespace {

constexpr int ReadingsOfEach = 3;

std::string Failed(Wish wish, std::int32_t status) {
    return std::string(NameOf(wish)) + " fails with " + std::to_string(status);
}

std::string OfNeedle(std::int32_t number) { return " for number " + std::to_string(number); }

// False where the library cannot be called.
bool CheckLoading(Session& session, Report& report, Standing& standing) {
    const auto answer = session.Load();
    if (!answer || answer->status < 0) {
        return false;
    }
    std::string missing;
    for (std::size_t place = 0; place < FunctionNames.size(); ++place) {
        if ((answer->missingFunctions >> place & 1U) != 0) {
            missing += (missing.empty() ? "lacks " : ", ") + std::string(FunctionNames[place]);
        }
    }
    standing.hasStop = answer->hasStop;
    standing.settling = answer->settling;
    const std::string settling = std::to_string(answer->settling) + " ms";
    if (answer->settling < 0 || answer->settling > TRAVO_DRIVER_MOST_SETTLING_MS) {
        report.Break(Clause::Settling, settling);
    } else {
        report.Keep(Clause::Settling,
                    answer->hasSettling ? settling + ": TRAVO reads that much early" : "none");
    }
    if (!missing.empty()) {
        report.Break(Clause::Functions, missing);
        return false;
    }
    report.Keep(Clause::Functions, answer->hasStop ? "and DriverStop" : "without DriverStop");
    return true;
}

// How many are connected; nothing where the answer is none.
std::optional<std::int32_t> CheckCount(Session& session, Report& report) {
    const auto answer = session.GetCount();
    if (!answer) {
        return std::nullopt;
    }
    const std::int32_t count = answer->values[0];
    if (answer->status < 0) {
        report.Break(Clause::Count, Failed(Wish::GetCount, answer->status));
        return std::nullopt;
    }
    if (count < 0 || count > TRAVO_DRIVER_MOST_MANIPULATORS) {
        report.Break(Clause::Count, std::to_string(count));
        return std::nullopt;
    }
    report.Keep(Clause::Count, std::to_string(count));
    return count;
}

bool CheckSelect(std::int32_t number, Session& session, Report& report) {
    const auto answer = session.Select(number);
    if (!answer) {
        return false;
    }
    if (answer->status < 0) {
        report.Break(Clause::Select, Failed(Wish::Select, answer->status) + OfNeedle(number));
    } else if (answer->values[0] == 0) {
        report.Break(Clause::Select, "the answer 0" + OfNeedle(number));
    } else {
        report.Keep(Clause::Select);
    }
    return answer->status >= 0;
}

std::optional<Reading> CheckReading(std::int32_t number, Session& session, Report& report) {
    const auto answer = session.GetPosition();
    if (!answer) {
        return std::nullopt;
    }
    if (answer->status < 0) {
        report.Break(Clause::Numbers, Failed(Wish::GetPosition, answer->status) + OfNeedle(number));
        return std::nullopt;
    }
    const Reading reading{answer->values[0],
                          {answer->values[1], answer->values[2], answer->values[3]},
                          answer->begun,
                          answer->ended};
    if (reading.number != number) {
        report.Break(Clause::Numbers, "says " + std::to_string(reading.number) + " where " +
                                          std::to_string(number) + " is selected");
    } else {
        report.Keep(Clause::Numbers);
    }
    for (const std::int32_t count : reading.place) {
        if (count < TRAVO_DRIVER_LOWEST_COUNT || count > TRAVO_DRIVER_HIGHEST_COUNT) {
            report.Break(Clause::Range,
                         InBrackets(reading.place) + OfNeedle(number) + ": TRAVO takes it for no position");
            return reading;
        }
    }
    report.Keep(Clause::Range);
    return reading;
}

// Selects each and reads it. False where one of them cannot be had.
bool CheckEach(std::int32_t count, Session& session, Report& report, std::vector<StandingNeedle>& needles) {
    for (std::int32_t number = 1; number <= count; ++number) {
        if (!CheckSelect(number, session, report)) {
            return false;
        }
        std::optional<Reading> reading;
        for (int time = 0; time < ReadingsOfEach; ++time) {
            reading = CheckReading(number, session, report);
            if (!reading) {
                return false;
            }
        }
        needles.push_back({number, reading->number, reading->place});
    }
    return true;
}

// The selected one is the last that is connected.
void CheckNotConnected(const Standing& standing, Session& session, Report& report) {
    const auto count = static_cast<std::int32_t>(standing.needles.size());
    std::vector<std::int32_t> numbers{-1, 0, TRAVO_DRIVER_MOST_MANIPULATORS + 1};
    for (std::int32_t number = count + 1; number <= TRAVO_DRIVER_MOST_MANIPULATORS; ++number) {
        numbers.push_back(number);
    }
    for (const std::int32_t number : numbers) {
        const auto answer = session.Select(number);
        const auto reading = count > 0 ? session.Read() : std::nullopt;
        if (!answer || session.IsGone()) {
            return;
        }
        if (answer->status >= 0 && answer->values[0] != 0) {
            report.Break(Clause::NotConnected, "DriverSelect takes " + std::to_string(number));
        } else if (count > 0 && (!reading || reading->number != standing.needles.back().said)) {
            report.Break(Clause::NotConnected, "the selection is another behind " + std::to_string(number));
        } else {
            report.Keep(Clause::NotConnected);
        }
    }
}

void CheckReconnect(const Standing& standing, Session& session, Report& report) {
    const auto answer = session.Reconnect();
    const auto count = session.GetCount();
    if (!answer || !count) {
        return;
    }
    if (answer->status < 0) {
        report.Break(Clause::Reconnect, Failed(Wish::Reconnect, answer->status));
    } else if (count->status < 0 || count->values[0] != static_cast<std::int32_t>(standing.needles.size())) {
        report.Break(Clause::Reconnect, std::to_string(count->values[0]) + " are connected, it was " +
                                            std::to_string(standing.needles.size()));
    }
    for (const StandingNeedle& needle : standing.needles) {
        const auto selected = session.Select(needle.number);
        const auto reading = session.Read();
        if (session.IsGone()) {
            return;
        }
        if (!selected || selected->status < 0 || !reading || reading->number != needle.said) {
            report.Break(Clause::Reconnect, "number " + std::to_string(needle.number) + " cannot be read");
        }
    }
    report.Keep(Clause::Reconnect);
}

}  // namespace

Standing CheckStanding(Session& session, Report& report) {
    Standing standing;
    if (!CheckLoading(session, report, standing)) {
        report.MissTheRest("the library cannot be called");
        return standing;
    }
    const auto count = CheckCount(session, report);
    const auto first = session.Read();
    standing.selectedAtFirst = first ? first->number : 0;
    if (!count || !CheckEach(*count, session, report, standing.needles)) {
        standing.needles.clear();
        report.MissTheRest("the manipulators cannot be had");
        return standing;
    }
    CheckNotConnected(standing, session, report);
    CheckReconnect(standing, session, report);
    CheckThatAllStand(standing, session, report);
    if (*count == 0) {
        report.MissTheRest("no manipulator is connected");
    }
    return standing;
}

void CheckThatAllStand(const Standing& standing, Session& session, Report& report) {
    for (const StandingNeedle& needle : standing.needles) {
        const auto selected = session.Select(needle.number);
        const auto reading = session.Read();
        if (!selected || selected->status < 0 || !reading || reading->number != needle.said) {
            return;  // told where it first failed
        }
        if (Near(reading->place, needle.place)) {
            report.Keep(Clause::Still);
        } else {
            report.Break(Clause::Still, "number " + std::to_string(needle.number) + " stood at " +
                                            InBrackets(needle.place) + " and is at " +
                                            InBrackets(reading->place));
        }
    }
    if (standing.selectedAtFirst >= 1) {
        session.Select(standing.selectedAtFirst);
    }
}

}  // namespace check
