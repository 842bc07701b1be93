#include "workbench/world/Needle.h"

#include <cmath>

namespace workbench {

namespace {

constexpr double MicrosecondsOfAMinute = 60e6;

}  // namespace

void Needle::SetOut(const Vector& counts, Time now) {
    const Vector here = CountsAt(now);
    playTakenUp_ = PlayAt(here);
    playFrom_ = here;
    travel_.SetOut(counts, NeedleCountsPerMillisecond, now);
}

void Needle::Spoil(const Imperfections& imperfections, Time now) {
    if (imperfections.backlash != imperfections_.backlash) {
        playFrom_ = CountsAt(now);
        playTakenUp_ = {};
    }
    if (imperfections.drift != imperfections_.drift) {
        driftFrom_ = now;
    }
    imperfections_ = imperfections;
}

Shaft Needle::ShaftAt(Time now) const {
    Shaft shaft = ShaftOf(mount_, CarriageAt(now));
    shaft.tip = {shaft.tip[0] + imperfections_.bend[0], shaft.tip[1] + imperfections_.bend[1]};
    return shaft;
}

bool Needle::StandsStillFrom(Time now) const { return !MovesAt(now) && imperfections_.drift == Vector{}; }

void Needle::AddTurns(Time from, Time to, std::vector<Time>& turns) const {
    const auto add = [&](Time turn) {
        if (turn > from && turn < to) {
            turns.push_back(turn);
        }
    };
    add(travel_.Arrival());
    const auto duration = static_cast<double>((travel_.Arrival() - travel_.Start()).count());
    for (std::size_t axis = 0; axis < 3 && MovesAt(from); ++axis) {
        const double way = travel_.Target()[axis] - travel_.Origin()[axis];
        const double none = playFrom_[axis] - playTakenUp_[axis];
        for (const double counts : {none, none + imperfections_.backlash[axis]}) {
            const double share = (counts - travel_.Origin()[axis]) / way;
            if (imperfections_.backlash[axis] > 0 && share > 0.0 && share < 1.0) {
                add(travel_.Start() + Time(std::llround(share * duration)));
            }
        }
    }
}

// How much of the play is taken up at these counts, if the drive went there straight from where it was noted.
Vector Needle::PlayAt(const Vector& counts) const {
    Vector play{};
    for (std::size_t axis = 0; axis < play.size(); ++axis) {
        const double taken = playTakenUp_[axis] + counts[axis] - playFrom_[axis];
        play[axis] = std::clamp(taken, 0.0, static_cast<double>(imperfections_.backlash[axis]));
    }
    return play;
}

Vector Needle::CarriageAt(Time now) const {
    const Vector counts = CountsAt(now);
    const double minutes =
        static_cast<double>(std::max(now - driftFrom_, Time(0)).count()) / MicrosecondsOfAMinute;
    return counts - PlayAt(counts) + minutes * imperfections_.drift;
}

}  // namespace workbench
