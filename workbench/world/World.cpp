#include "workbench/world/World.h"

#include <algorithm>
#include <cmath>

#include "core/ground/Arithmetic.h"

namespace workbench {

Mount HomedMount(double heading, double yaw, double tilt) {
    Mount mount{heading, yaw, tilt, {}};
    const Vector home = {HomeCount, HomeCount, HomeCount};
    mount.offset = -1.0 * (Rotation(mount) * home);
    return mount;
}

Mount DefaultMount(std::int32_t needle) {
    return HomedMount(45.0 + 90.0 * static_cast<double>(travo::Bounded(needle, travo::NeedleCount)));
}

Vector Cell::Place() const {
    const PlanPoint plan = ViewCentreOf(mirrorX, mirrorY);
    return {plan[0], plan[1], z};
}

World::World()
    : needles_{Needle{DefaultMount(0), Travel({HomeCount - StartRetreat, HomeCount, HomeCount})},
               Needle{DefaultMount(1), Travel({HomeCount - StartRetreat, HomeCount, HomeCount})},
               Needle{DefaultMount(2), Travel({HomeCount - StartRetreat, HomeCount, HomeCount})},
               Needle{DefaultMount(3), Travel({HomeCount - StartRetreat, HomeCount, HomeCount})}} {}

const std::array<Cell, 6>& World::Cells() {
    // No two of them, and none with the origin, lie along a default shaft.
    static constexpr std::array<Cell, 6> cells = {{{-84, 45, 0.0, 14.0},
                                                   {56, 73, 0.0, 12.0},
                                                   {-40, -66, 0.0, 15.0},
                                                   {94, -38, 0.0, 13.0},
                                                   {12, 20, 30.0, 11.0},
                                                   {-130, -96, -30.0, 16.0}}};
    return cells;
}

void World::Advance(Time now) {
    if (now <= time_) {
        return;
    }
    // Between two arrivals every end of every shaft runs evenly along a straight line.
    std::array<Time, travo::NeedleCount> arrivals;
    std::transform(needles_.begin(), needles_.end(), arrivals.begin(),
                   [](const Needle& needle) { return needle.travel.Arrival(); });
    std::sort(arrivals.begin(), arrivals.end());
    for (const Time arrival : arrivals) {
        if (arrival > time_ && arrival < now) {
            ObserveAll(time_, arrival);
            time_ = arrival;
        }
    }
    ObserveAll(time_, now);
    time_ = now;
}

void World::MoveNeedle(std::int32_t needle, const travo::PositionXYZ& counts, Time now) {
    for (const std::int32_t count : counts) {
        if (count < LowestCount || count > HighestCount) {
            throw travo::BoundsFailure("a manipulator reaches counts 0 to 25000");
        }
    }
    Advance(now);
    NeedleAt(needle).travel.SetOut(Exact(counts), NeedleCountsPerMillisecond, time_);
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
    NeedleAt(needle).mount = mount;
    ObserveAll(time_, time_);
}

const Mount& World::MountOf(std::int32_t needle) const { return NeedleAt(needle).mount; }

travo::PositionXYZ World::CountsNow(std::int32_t needle, Time now) const {
    return Whole(NeedleAt(needle).travel.At(now));
}

bool World::NeedleMoves(std::int32_t needle, Time now) const { return NeedleAt(needle).travel.MovesAt(now); }

Vector World::TipNow(std::int32_t needle, Time now) const {
    const Needle& one = NeedleAt(needle);
    return TipOf(one.mount, one.travel.At(now));
}

Vector World::TipAtRest(std::int32_t needle) const {
    const Needle& one = NeedleAt(needle);
    return TipOf(one.mount, one.travel.Target());
}

Shaft World::ShaftNow(std::int32_t needle, Time now) const {
    const Needle& one = NeedleAt(needle);
    return ShaftOf(one.mount, one.travel.At(now));
}

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

const World::Needle& World::NeedleAt(std::int32_t needle) const {
    return needles_[travo::Bounded(needle, needles_.size())];
}

World::Needle& World::NeedleAt(std::int32_t needle) {
    return needles_[travo::Bounded(needle, needles_.size())];
}

MovingShaft World::MovingShaftOf(std::size_t needle, Time from, Time to) const {
    const Needle& one = needles_[needle];
    return {ShaftOf(one.mount, one.travel.At(from)), ShaftOf(one.mount, one.travel.At(to))};
}

void World::ObservePair(std::size_t a, std::size_t b, Time from, Time to) {
    bool& crossed = crossed_[a][b];
    if (b >= static_cast<std::size_t>(connected_)) {
        crossed = false;
        return;
    }
    const bool standsStill = !needles_[a].travel.MovesAt(from) && !needles_[b].travel.MovesAt(from);
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

}  // namespace workbench
