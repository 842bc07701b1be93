#include "workbench/world/World.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

constexpr Vector StartCounts = {HomeCount - StartRetreat, HomeCount, HomeCount};

}  // namespace

Mount HomedMount(double heading, double yaw, double tilt) {
    Mount mount{heading, yaw, tilt, {}};
    const Vector home = {HomeCount, HomeCount, HomeCount};
    mount.offset = -1.0 * (Rotation(mount) * home);
    return mount;
}

Mount DefaultMount(std::int32_t needle) {
    return HomedMount(45.0 + 90.0 * static_cast<double>(travo::Bounded(needle, travo::NeedleCount)));
}

World::World()
    : needles_{Needle(DefaultMount(0), StartCounts), Needle(DefaultMount(1), StartCounts),
               Needle(DefaultMount(2), StartCounts), Needle(DefaultMount(3), StartCounts)} {}

void World::Advance(Time now) {
    if (now <= time_) {
        return;
    }
    // Between two turns every end of every shaft runs evenly along a straight line.
    std::vector<Time> turns;
    for (const Needle& needle : needles_) {
        needle.AddTurns(time_, now, turns);
    }
    std::sort(turns.begin(), turns.end());
    turns.push_back(now);
    for (const Time turn : turns) {
        if (turn > time_) {
            ObserveAll(time_, turn);
            time_ = turn;
        }
    }
    TakeArrivals();
}

void World::MoveNeedle(std::int32_t needle, const travo::PositionXYZ& counts, Time now, MovedBy by) {
    for (const std::int32_t count : counts) {
        if (count < LowestCount || count > HighestCount) {
            throw travo::BoundsFailure("a manipulator reaches counts 0 to 25000");
        }
    }
    Advance(now);
    NeedleAt(needle).SetOut(Exact(counts), time_);
    sentByDriver_[static_cast<std::size_t>(needle)] = by == MovedBy::Driver;
}

void World::JogNeedle(std::int32_t needle, const travo::PositionXYZ& distance, Time now) {
    travo::PositionXYZ target = CountsNow(needle, now);
    for (std::size_t axis = 0; axis < target.size(); ++axis) {
        const std::int64_t wanted = std::int64_t{target[axis]} + distance[axis];
        target[axis] = static_cast<std::int32_t>(std::clamp<std::int64_t>(wanted, LowestCount, HighestCount));
    }
    MoveNeedle(needle, target, now);
}

void World::MountNeedle(std::int32_t needle, const Mount& mount, Time now) {
    Advance(now);
    NeedleAt(needle).PutOn(mount);
    ObserveAll(time_, time_);
}

const Mount& World::MountOf(std::int32_t needle) const { return NeedleAt(needle).MountOf(); }

void World::SpoilNeedle(std::int32_t needle, const Imperfections& imperfections, Time now) {
    Advance(now);
    NeedleAt(needle).Spoil(imperfections, time_);
    ObserveAll(time_, time_);
}

const Imperfections& World::ImperfectionsOf(std::int32_t needle) const { return NeedleAt(needle).Spoilt(); }

travo::PositionXYZ World::CountsNow(std::int32_t needle, Time now) const {
    return Whole(NeedleAt(needle).CountsAt(now));
}

bool World::NeedleMoves(std::int32_t needle, Time now) const { return NeedleAt(needle).MovesAt(now); }

Vector World::TipNow(std::int32_t needle, Time now) const { return NeedleAt(needle).TipAt(now); }

Time World::TimeToGo(std::int32_t needle, Time now) const {
    return std::max(NeedleAt(needle).Arrival() - now, Time(0));
}

Vector World::TipAtRest(std::int32_t needle) const { return NeedleAt(needle).TipAtRest(time_); }

Shaft World::ShaftNow(std::int32_t needle, Time now) const { return NeedleAt(needle).ShaftAt(now); }

void World::ConnectNeedles(std::int32_t count, Time now) {
    travo::Bounded(count, travo::NeedleCount + 1);
    Advance(now);
    connected_ = count;
    ObserveAll(time_, time_);
}

void World::ForgetCrossings() {
    crossings_.clear();
    crossingsInAll_ = 0;
}

std::int32_t World::PairsCrossed() const {
    std::ptrdiff_t pairs = 0;
    for (const auto& row : crossed_) {
        pairs += std::count(row.begin(), row.end(), true);
    }
    return static_cast<std::int32_t>(pairs);
}

const Needle& World::NeedleAt(std::int32_t needle) const {
    return needles_[travo::Bounded(needle, needles_.size())];
}

Needle& World::NeedleAt(std::int32_t needle) { return needles_[travo::Bounded(needle, needles_.size())]; }

MovingShaft World::MovingShaftOf(std::size_t needle, Time from, Time to) const {
    return {needles_[needle].ShaftAt(from), needles_[needle].ShaftAt(to)};
}

void World::ObservePair(std::size_t a, std::size_t b, Time from, Time to) {
    bool& crossed = crossed_[a][b];
    if (b >= static_cast<std::size_t>(connected_)) {
        crossed = false;
        return;
    }
    const bool standsStill = needles_[a].StandsStillFrom(from) && needles_[b].StandsStillFrom(from);
    if (standsStill && from != to) {
        return;
    }
    const std::vector<Meeting> meetings = MeetingsOf(MovingShaftOf(a, from, to), MovingShaftOf(b, from, to));
    for (const Meeting& meeting : meetings) {
        // A pair that was crossed when the stretch began is no news.
        if (!(crossed && meeting.from == 0.0)) {
            const double begin = meeting.from * static_cast<double>((to - from).count());
            const Time time = from + Time(std::llround(begin));
            crossings_.push_back(
                {static_cast<std::int32_t>(a), static_cast<std::int32_t>(b), time, meeting.place});
            ++crossingsInAll_;
            if (listener_ != nullptr) {
                listener_->Crossed(crossings_.back());
            }
        }
    }
    crossed = !meetings.empty() && meetings.back().to == 1.0;
}

void World::ObserveAll(Time from, Time to) {
    for (std::size_t a = 0; a < needles_.size(); ++a) {
        for (std::size_t b = a + 1; b < needles_.size(); ++b) {
            ObservePair(a, b, from, to);
        }
    }
    while (crossings_.size() > KeptCrossings) {
        crossings_.pop_front();
    }
}

void World::TakeArrivals() {
    for (std::size_t place = 0; place < needles_.size(); ++place) {
        const Needle& needle = needles_[place];
        if (!sentByDriver_[place] || needle.Arrival() > time_) {
            continue;
        }
        sentByDriver_[place] = false;
        // What the view showed when the needle came to rest, however late anybody looks.
        const Time arrival = needle.Arrival();
        const PlanPoint view = optics_.ViewNow(arrival);
        const auto index = static_cast<std::int32_t>(place);
        const auto landing =
            LandingOf(index, needle.TipAt(arrival), {view[0], view[1], optics_.FocusNow(arrival)}, arrival);
        if (landing) {
            landings_.Take(*landing);
        }
        if (listener_ != nullptr) {
            listener_->Arrived(index, arrival, landing);
        }
    }
}

}  // namespace workbench
