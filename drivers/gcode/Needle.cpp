#include "drivers/gcode/Needle.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "drivers/TravoDriver.h"
#include "drivers/gcode/Axes.h"
#include "drivers/gcode/Numbers.h"

namespace gcode {

namespace {

// What a reading may differ by from where the last one and the speed put it: two roundings of a report, in
// mm.
constexpr double ReadingSlack = 0.005;
constexpr double SpeedSlack = 1.25;
// Of readings that contradict each other.
constexpr int MostReadings = 4;
constexpr double SecondsForACount = 0.001 / TRAVO_DRIVER_COUNTS_PER_MS;
// Limits that a target may miss by the rounding of counts, in mm.
constexpr double LimitSlack = 1e-6;

double Seconds(Time time) { return std::chrono::duration<double>(time).count(); }

}  // namespace

Needle::Needle(NeedleSettings settings, Trust& trust, const Log& log)
    : settings_(std::move(settings)), trust_(trust), log_(log), dialect_(MakeDialect(settings_)) {}

Needle::~Needle() = default;

bool Needle::Open(Ports& ports) {
    Close();
    reason_.clear();
    wire_ = ports.Open(settings_, reason_);
    if (!wire_) {
        Say(Status::NotConnected, reason_);
        return false;
    }
    line_ = std::make_unique<Line>(*wire_);
    return true;
}

void Needle::Close() {
    isConnected_ = false;
    last_.reset();
    line_.reset();
    wire_.reset();
}

Outcome Needle::Greet(Time firstAnswer, Time limit) {
    if (!line_) {
        return {Trouble::PortGone, reason_};
    }
    line_->LimitWaits(limit);
    facts_ = {};
    return dialect_->Greet(*line_, firstAnswer, facts_);
}

Status Needle::Connect(Time firstAnswer, Time limit) {
    if (!line_) {
        return Status::NotConnected;
    }
    if (const Outcome outcome = Greet(firstAnswer, limit); !outcome.IsGood()) {
        const Status status = Fail(outcome);
        Close();
        return status;
    }
    isConnected_ = true;
    if (const Status suits = Suits(); suits != Status::Done) {
        return suits;
    }
    Place place;
    if (const Status status = MachinePlace(place); status != Status::Done) {
        return status;
    }
    line_->LiftLimit();
    log_.Write("needle " + std::to_string(settings_.number) + ": connected, " + facts_.firmware);
    reason_.clear();
    return Status::Done;
}

// Whether what answers may be trusted with a tip.
Status Needle::Suits() {
    if (facts_.hasStarted && (!settings_.homingRequired || trust_.IsHomed(settings_.number))) {
        trust_.Lose(settings_.number, "the controller has started anew");
    }
    if (const std::string& lost = trust_.LostBecause(settings_.number); !lost.empty()) {
        return Fail({Trouble::NotReady, lost + ": home it, or unlock it, with travo-gcode"});
    }
    const bool isRequired = settings_.homingRequired;
    if (isRequired && facts_.homingEnabled == false) {
        return Fail(
            {Trouble::Unsuited, "homing is off at the controller; say homing = none where that is meant"});
    }
    const bool knowsItself = facts_.homingEnabled.has_value();
    if (isRequired &&
        (facts_.isHomed == false || (!knowsItself && !facts_.isHomed && !trust_.IsHomed(settings_.number)))) {
        return Fail({Trouble::NotReady, "it is not homed: home it with travo-gcode"});
    }
    if (!Limits()) {
        return Fail({Trouble::Unsuited,
                     "the controller does not tell speed and acceleration: give speed-limit and "
                     "acceleration"});
    }
    return Status::Done;
}

std::optional<MachineLimits> Needle::Limits() const {
    std::optional<MachineLimits> limits = facts_.limits;
    if (!limits && settings_.speedLimit && settings_.acceleration) {
        const double infinite = std::numeric_limits<double>::infinity();
        limits = MachineLimits{{infinite, infinite, infinite}, {infinite, infinite, infinite}};
    }
    for (std::size_t axis = 0; limits && axis < 3; ++axis) {
        double& speed = limits->speed[axis];
        double& acceleration = limits->acceleration[axis];
        speed = std::min(speed, settings_.speedLimit.value_or(speed));
        acceleration = std::min(acceleration, settings_.acceleration.value_or(acceleration));
    }
    return limits;
}

Status Needle::Say(Status status, const std::string& reason) {
    reason_ = reason;
    log_.Write("needle " + std::to_string(settings_.number) + ": " + reason);
    return status;
}

Status Needle::Fail(const Outcome& outcome) {
    switch (outcome.trouble) {
        case Trouble::None:
            return Status::Done;
        case Trouble::Refused:
            return Say(Status::Refused, outcome.reason);
        case Trouble::Restarted:
            trust_.Lose(settings_.number, outcome.reason);
            Close();
            return Say(Status::NotReady, outcome.reason + "; its position is no longer trusted");
        case Trouble::NotReady:
            Close();
            return Say(Status::NotReady, outcome.reason);
        case Trouble::Unsuited:
            Close();
            return Say(Status::NotConnected, outcome.reason);
        case Trouble::Silent:
        case Trouble::PortGone:
            break;
    }
    Close();
    return Say(Status::Silent, outcome.reason);
}

bool Needle::CouldHaveGone(const Seen& from, const Millimetres& to, Time now) const {
    const std::optional<MachineLimits> limits = Limits();
    const double time = Seconds(now - from.when);
    for (std::size_t axis = 0; limits && axis < to.size(); ++axis) {
        const double reach = limits->speed[axis] * time * SpeedSlack + ReadingSlack;
        if (std::abs(to[axis] - from.machine[axis]) > reach) {
            return false;
        }
    }
    return limits.has_value();
}

// A number that has lost or changed a digit on the wire still looks like a number. So a reading counts at
// once only where it is that of last time, to the last digit; any other must be borne out by the next one, to
// within what the needle can travel in between. Where two agree on a place that it cannot have reached since
// the last one, the controller itself has jumped: it was restarted, or told another position.
Status Needle::MachinePlace(Place& place) {
    if (!isConnected_) {
        return Status::NotConnected;
    }
    std::optional<Seen> doubtful;
    for (int reading = 0; reading < MostReadings; ++reading) {
        // A report is as old as its question at most: so no answer that came late makes a way look too long.
        const Time asked = line_->Now();
        if (const Outcome outcome = dialect_->Where(*line_, place); !outcome.IsGood()) {
            return Fail(outcome);
        }
        const Time now = line_->Now();
        const bool isUnchanged = last_ && last_->machine == place.machine;
        if (isUnchanged || (doubtful && CouldHaveGone(*doubtful, place.machine, now))) {
            if (last_ && !CouldHaveGone(*last_, place.machine, now)) {
                return Fail({Trouble::Restarted, "its position has jumped without a motion"});
            }
            last_ = Seen{place.machine, asked};
            return Status::Done;
        }
        doubtful = Seen{place.machine, asked};
    }
    return Fail({Trouble::Silent, "its positions contradict each other: noise on the line?"});
}

Status Needle::Position(Counts& counts) {
    if (!isConnected_) {
        return Status::NotConnected;
    }
    line_->LimitWaits(line_->Now() + Dialect::AnswerLimit);
    Place place;
    if (const Status status = MachinePlace(place); status != Status::Done) {
        return status;
    }
    const std::optional<Counts> nearest = NearestCounts(settings_, place.machine);
    if (!nearest) {
        return Say(Status::OutOfRange, "its position does not fit the counts");
    }
    counts = *nearest;
    return Status::Done;
}

std::string Needle::BeyondLimits(const Millimetres& machine) const {
    static constexpr std::string_view Axes = "XYZ";
    for (std::size_t axis = 0; axis < machine.size(); ++axis) {
        for (const auto* min : {&facts_.min, &settings_.min}) {
            if (*min && machine[axis] < (**min)[axis] - LimitSlack) {
                return std::string{Axes[axis]} + Fixed(machine[axis], 3) + " lies below " +
                       Fixed((**min)[axis], 3);
            }
        }
        for (const auto* max : {&facts_.max, &settings_.max}) {
            if (*max && machine[axis] > (**max)[axis] + LimitSlack) {
                return std::string{Axes[axis]} + Fixed(machine[axis], 3) + " lies above " +
                       Fixed((**max)[axis], 3);
            }
        }
    }
    return {};
}

Status Needle::AwaitStandstill(Place& place) {
    const Time until = line_->Now() + StandstillLimit;
    while (true) {
        if (const Status status = MachinePlace(place); status != Status::Done || !place.isMoving) {
            return status;
        }
        if (line_->Now() >= until) {
            return Say(Status::StillMoving, "a move was refused: the one before has not ended");
        }
    }
}

Status Needle::MoveTo(const Counts& counts) {
    if (!isConnected_) {
        return Status::NotConnected;
    }
    for (const std::int32_t count : counts) {
        if (count < TRAVO_DRIVER_LOWEST_COUNT || count > TRAVO_DRIVER_HIGHEST_COUNT) {
            return Say(Status::OutOfRange, "a target out of range was refused: " + std::to_string(count));
        }
    }
    const Millimetres to = MachinePosition(settings_, counts);
    if (const std::string beyond = BeyondLimits(to); !beyond.empty()) {
        return Say(Status::OutOfRange, "a target beyond the machine's limits was refused: " + beyond);
    }
    line_->LimitWaits(line_->Now() + CallLimit);
    Place place;
    if (const Status status = AwaitStandstill(place); status != Status::Done) {
        return status;
    }
    double longest = 0;
    for (std::size_t axis = 0; axis < to.size(); ++axis) {
        longest = std::max(longest, std::abs(to[axis] - place.machine[axis]) * settings_.countsPerMm);
    }
    // To where it stands, but for less than half a count: nothing to send.
    if (longest < 0.5) {
        return Status::Done;
    }
    const FedMove move = Feed(place.machine, to, std::max(1.0, longest) * SecondsForACount, *Limits());
    return Fail(dialect_->Move(*line_, to, move.feed));
}

Status Needle::Stop() {
    if (!isConnected_) {
        return Status::NotConnected;
    }
    line_->LimitWaits(line_->Now() + CallLimit);
    bool hadNoRamp = false;
    if (const Outcome outcome = dialect_->Stop(*line_, hadNoRamp); !outcome.IsGood()) {
        return Fail(outcome);
    }
    // It stands still; whether it stands where its steps say is another matter.
    if (hadNoRamp && !settings_.quickStopKeepsPosition) {
        Fail({Trouble::Restarted, "stopped without a ramp"});
    }
    return Status::Done;
}

Outcome Needle::Home() {
    if (!line_) {
        return {Trouble::PortGone, reason_};
    }
    line_->LiftLimit();
    Outcome outcome = dialect_->Home(*line_);
    Close();
    if (outcome.IsGood() && !trust_.TakeAsHomed(settings_.number)) {
        return {Trouble::Refused, "homed, but manipulators.state cannot be written"};
    }
    return outcome;
}

Outcome Needle::Unlock() {
    if (!line_) {
        return {Trouble::PortGone, reason_};
    }
    line_->LiftLimit();
    Outcome outcome = dialect_->Unlock(*line_);
    Close();
    if (outcome.IsGood() && !trust_.TakeAsHomed(settings_.number)) {
        return {Trouble::Refused, "unlocked, but manipulators.state cannot be written"};
    }
    return outcome;
}

}  // namespace gcode
