#include "drivers/check/MoveChecks.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "drivers/TravoDriver.h"
#include "drivers/check/Journey.h"

namespace check {

namespace {

constexpr std::size_t Axes = 3;
// Time in which a needle that ought to stand is seen to go, in ms.
constexpr std::chrono::milliseconds LookForMotion(100);
// Parts of the time of a way: when the stop is sent, and until when a stop that is over must have caught the
// needle on it.
constexpr double StopPart = 0.25;
constexpr double CaughtPart = 0.5;

// Towards the side with more room, and never beyond the range.
std::int32_t Aside(std::int32_t from, std::int32_t way) {
    const std::int32_t up = TRAVO_DRIVER_HIGHEST_COUNT - from;
    const std::int32_t down = from - TRAVO_DRIVER_LOWEST_COUNT;
    return up >= down ? from + std::min(way, up) : from - std::min(way, down);
}

// The longest way on this axis, a half and a quarter of it on the others.
Counts Target(const Counts& from, std::int32_t reach, std::size_t longest) {
    Counts to = from;
    for (std::size_t step = 0; step < Axes; ++step) {
        const std::size_t axis = (longest + step) % Axes;
        to[axis] = Aside(from[axis], reach >> step);
    }
    return to;
}

// The place out of range that is nearest; nothing where it lies beyond the reach.
std::optional<Counts> OutOfRange(const Counts& from, std::int32_t reach) {
    for (std::size_t axis = 0; axis < Axes; ++axis) {
        for (const std::int32_t end : {TRAVO_DRIVER_LOWEST_COUNT - 1, TRAVO_DRIVER_HIGHEST_COUNT + 1}) {
            if (std::abs(end - from[axis]) <= reach) {
                Counts to = from;
                to[axis] = end;
                return to;
            }
        }
    }
    return std::nullopt;
}

void CheckRefusal(const Journey& home, std::int32_t reach, Session& session, Report& report) {
    const auto beyond = OutOfRange(home.to, reach);
    if (!beyond) {
        report.Miss(Clause::Refusal, "no needle stands within --reach of an end of its range");
        return;
    }
    const auto answer = session.MoveTo(*beyond);
    std::this_thread::sleep_for(LookForMotion);
    const auto reading = session.Read();
    if (!answer || session.IsGone()) {
        return;
    }
    const bool stands = reading && Near(reading->place, home.to);
    if (answer->status >= 0) {
        report.Break(Clause::Refusal, "DriverMoveTo takes " + InBrackets(*beyond));
    } else if (!stands) {
        report.Break(Clause::Refusal, "refused, but the needle has moved");
    } else {
        report.Keep(Clause::Refusal);
    }
    if (answer->status >= 0 || !stands) {
        AwaitArrival({home.to, *beyond, home.settling}, answer->ended, session);
        session.MoveTo(home.to);
    }
}

// Whether it stands behind a stop, and on its way; where, goes to place.
bool Stands(const Journey& journey, Session& session, Report& report, Counts& place) {
    std::this_thread::sleep_for(std::chrono::milliseconds(journey.settling));
    const auto first = session.Read();
    std::this_thread::sleep_for(LookForMotion);
    const auto second = session.Read();
    if (!first || !second) {
        if (!session.IsGone()) {
            report.Break(Clause::Stop, "no position behind a stop");
        }
        return false;
    }
    place = second->place;
    if (!Near(first->place, second->place)) {
        report.Break(Clause::Stop, "goes on from " + InBrackets(first->place) + " to " + InBrackets(place));
        return false;
    }
    return true;
}

// Stops it on its way, and says what came of it.
void CheckStopOnTheWay(std::int32_t number, const Journey& journey, Session& session, Report& report) {
    const auto move = session.MoveTo(journey.to);
    std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(StopPart * journey.Allowed()));
    const auto before = session.Read();
    const auto stop = session.Stop(number);
    if (!move || !stop || !before) {
        return;
    }
    Counts place = journey.to;
    if (stop->status < 0) {
        report.Break(Clause::Stop, "DriverStop fails with " + std::to_string(stop->status));
    } else if (Stands(journey, session, report, place) && !Near(before->place, journey.to)) {
        const double over = static_cast<double>(stop->ended - move->ended) / 1e6;
        if (!Near(place, journey.to)) {
            report.Keep(Clause::Stop, "stands at " + InBrackets(place) + " of a way from " +
                                          InBrackets(journey.from) + " to " + InBrackets(journey.to));
        } else if (over <= CaughtPart * journey.Allowed()) {
            report.Break(Clause::Stop, "the needle goes to the end of its way");
        }
    }
    if (report.IsBroken(Clause::Stop)) {
        AwaitArrival(journey, move->ended, session);
    }
}

void CheckStopOf(std::int32_t number, const Journey& journey, Session& session, Report& report) {
    CheckStopOnTheWay(number, journey, session, report);
    if (const auto again = session.Stop(number); again && again->status < 0) {
        report.Break(Clause::Stop,
                     "DriverStop of one that stands fails with " + std::to_string(again->status));
    }
    const auto standing = session.Read();
    if (!standing) {
        return;
    }
    const Journey back{standing->place, journey.from, journey.settling};
    if (back.Longest() > 0 && !CheckJourney(back, session, report)) {
        report.Break(Clause::Stop, "the next move is not made");
    }
}

// There and back with the longest way on each axis in turn. False where the needle was left on its way.
bool CheckWays(const Journey& home, std::int32_t reach, Session& session, Report& report) {
    for (std::size_t axis = 0; axis < Axes; ++axis) {
        const Counts to = Target(home.to, reach, axis);
        if (!CheckJourney({home.to, to, home.settling}, session, report) ||
            !CheckJourney({to, home.to, home.settling}, session, report)) {
            return false;
        }
    }
    const auto where = session.MoveTo(home.to);
    if (where && where->status < 0) {
        report.Break(Clause::Taken, "a move to where it stands fails with " + std::to_string(where->status));
    }
    return !session.IsGone();
}

bool IsInRange(const Counts& place) {
    return std::all_of(place.begin(), place.end(), [](std::int32_t count) {
        return count >= TRAVO_DRIVER_LOWEST_COUNT && count <= TRAVO_DRIVER_HIGHEST_COUNT;
    });
}

}  // namespace

void CheckMoves(const Standing& standing, std::int32_t reach, Session& session, Report& report) {
    for (const StandingNeedle& needle : standing.needles) {
        const auto selected = session.Select(needle.number);
        const auto reading = session.Read();
        // Nothing is moved whose number and place are not beyond doubt.
        if (!selected || selected->status < 0 || selected->values[0] == 0 || !reading ||
            reading->number != needle.number || !IsInRange(reading->place) ||
            !Near(reading->place, needle.place)) {
            report.MissTheRest("number " + std::to_string(needle.number) +
                               " is not moved: its place is in doubt");
            continue;
        }
        const Journey home{needle.place, needle.place, standing.settling};
        if (!CheckWays(home, reach, session, report)) {
            continue;
        }
        CheckRefusal(home, reach, session, report);
        if (standing.hasStop) {
            CheckStopOf(needle.number, {home.to, Target(home.to, reach, 0), standing.settling}, session,
                        report);
        }
    }
    report.Miss(Clause::Stop, standing.hasStop ? "--reach of " + std::to_string(CountsToLookAt) +
                                                     " counts or more would show it"
                                               : "there is no DriverStop");
    for (const Clause clause : {Clause::Returns, Clause::TruePlace, Clause::Straight}) {
        report.Miss(clause, "--reach of " + std::to_string(CountsToLookAt) + " counts or more would show it");
    }
    CheckThatAllStand(standing, session, report);
}

}  // namespace check
