#include "drivers/check/Journey.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <thread>

#include "drivers/TravoDriver.h"

namespace check {

namespace {

constexpr double NanosecondsInMillisecond = 1e6;
constexpr std::chrono::milliseconds ReadingInterval(2);
// How long a needle that is late is waited for, in ms.
constexpr double GiveUp = 3000;
// Parts of the time of the way: a reading so early finds nobody there, and a command that takes so long has
// waited for the end.
constexpr double EarlyPart = 0.1;
constexpr double WaitedPart = 0.5;
// How far a place may lie off the straight line: counts, and part of its length.
constexpr double OffLine = 3;
constexpr double OffLinePart = 0.02;
// Readings on the way of which one at least must lie between its ends.
constexpr int EnoughReadings = 10;

double Since(std::int64_t from, std::int64_t to) {
    return static_cast<double>(to - from) / NanosecondsInMillisecond;
}

// Distance of a place from the line of the way, in counts.
double OffTheLine(const Journey& journey, const Counts& place) {
    double along = 0;
    double length = 0;
    for (std::size_t axis = 0; axis < place.size(); ++axis) {
        const double way = journey.to[axis] - journey.from[axis];
        length += way * way;
        along += way * (place[axis] - journey.from[axis]);
    }
    double squares = 0;
    for (std::size_t axis = 0; axis < place.size(); ++axis) {
        const double way = journey.to[axis] - journey.from[axis];
        const double off = place[axis] - journey.from[axis] - along / length * way;
        squares += off * off;
    }
    return std::sqrt(squares);
}

// What the readings on the way have shown.
struct Watch {
    const Journey& journey;
    Report& report;
    std::int64_t returned = 0;  // of the command, in ns
    double commanded = 0;       // how long the command took, in ms
    int readings = 0;
    int onTheWay = 0;
    double proved = 0;  // ms: the last moment at which it was not there
    bool isLate = false;

    double Due() const { return journey.Allowed() + journey.settling; }
    bool IsLongEnough() const { return journey.Longest() >= CountsToLookAt; }

    void LookAtFirst(const Reading& reading, bool isThere) const;
    void LookAt(const Reading& reading, bool isThere);
    void Conclude() const;
};

void Watch::LookAtFirst(const Reading& reading, bool isThere) const {
    if (!IsLongEnough() || Since(returned, reading.begun) > EarlyPart * journey.Allowed()) {
        return;
    }
    if (isThere && commanded >= WaitedPart * journey.Allowed()) {
        report.Break(Clause::Returns,
                     "returned after " + InMilliseconds(commanded) + ", with the needle there");
        return;
    }
    report.Keep(Clause::Returns);
    if (isThere) {
        report.Break(Clause::TruePlace,
                     "there at once, a way of " + std::to_string(journey.Longest()) + " counts");
    }
}

void Watch::LookAt(const Reading& reading, bool isThere) {
    if (readings == 0) {
        LookAtFirst(reading, isThere);
    }
    ++readings;
    if (isThere) {
        return;
    }
    proved = Since(returned, reading.begun);
    isLate = isLate || proved > Due();
    onTheWay += Near(reading.place, journey.from) ? 0 : 1;
    const double length = journey.Longest();
    if (OffTheLine(journey, reading.place) > OffLine + OffLinePart * length) {
        report.Break(Clause::Straight, InBrackets(reading.place) + " between " + InBrackets(journey.from) +
                                           " and " + InBrackets(journey.to));
    } else if (IsLongEnough() && !Near(reading.place, journey.from)) {
        report.Keep(Clause::Straight);
    }
}

void Watch::Conclude() const {
    const std::string counts = std::to_string(journey.Longest()) + " counts";
    if (isLate) {
        report.Break(Clause::Arrival, counts + ": not there after " + InMilliseconds(proved) +
                                          ", due after " + InMilliseconds(journey.Allowed()) + " and " +
                                          std::to_string(journey.settling) + " ms");
    } else {
        report.Keep(Clause::Arrival, "last seen on its way " + InMilliseconds(proved) +
                                         " behind the return, " + counts + ", due " + InMilliseconds(Due()));
    }
    if (IsLongEnough() && readings >= EnoughReadings && onTheWay == 0 &&
        proved > EarlyPart * journey.Allowed()) {
        report.Break(Clause::TruePlace, "no reading lies between the ends of a way of " + counts);
    } else if (onTheWay > 0) {
        report.Keep(Clause::TruePlace);
    }
}

}  // namespace

std::int32_t Journey::Longest() const {
    std::int32_t longest = 0;
    for (std::size_t axis = 0; axis < from.size(); ++axis) {
        longest = std::max(longest, std::abs(to[axis] - from[axis]));
    }
    return longest;
}

double Journey::Allowed() const { return static_cast<double>(Longest()) / TRAVO_DRIVER_COUNTS_PER_MS; }

bool CheckJourney(const Journey& journey, Session& session, Report& report) {
    const auto move = session.MoveTo(journey.to);
    if (!move) {
        return false;
    }
    if (move->status < 0) {
        report.Break(Clause::Taken, InBrackets(journey.to) + " fails with " + std::to_string(move->status));
        return false;
    }
    report.Keep(Clause::Taken);
    Watch watch{journey, report, move->ended, Since(move->begun, move->ended)};
    for (;;) {
        const auto reading = session.Read();
        if (!reading) {
            if (!session.IsGone()) {
                report.Break(Clause::TruePlace, "a reading in a move fails");
            }
            return false;
        }
        const bool isThere = Near(reading->place, journey.to);
        watch.LookAt(*reading, isThere);
        const double since = Since(move->ended, reading->begun);
        if (isThere ? since >= watch.Due() : since >= watch.Due() + GiveUp) {
            watch.Conclude();
            return isThere;
        }
        std::this_thread::sleep_for(ReadingInterval);
    }
}

bool AwaitArrival(const Journey& journey, std::int64_t since, Session& session) {
    for (;;) {
        const auto reading = session.Read();
        if (!reading || Since(since, reading->begun) > journey.Allowed() + journey.settling + GiveUp) {
            return false;
        }
        if (Near(reading->place, journey.to)) {
            return true;
        }
        std::this_thread::sleep_for(ReadingInterval);
    }
}

}  // namespace check
