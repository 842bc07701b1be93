// A needle on its manipulator: what the drive counts, and where the tip truly is.
#pragma once

#include <algorithm>
#include <vector>

#include "core/ground/Positions.h"
#include "workbench/world/Geometry.h"
#include "workbench/world/Travel.h"

namespace workbench {

// Speed of a manipulator on the axis with the longest way.
inline constexpr double NeedleCountsPerMillisecond = 4.0;

// In what a needle differs from what its counts say.
struct Imperfections {
    // The play of each axis, in counts, 0 and above. Going up, the carriage stays behind by it as soon as it
    // is taken up; going down, it stands where the counts say.
    travo::PositionXYZ backlash{};
    Vector drift{};  // of the carriage, counts a minute
    Vector bend{};   // of the tip in the common frame, common units
};

// At rest and perfect at first.
class Needle {
public:
    Needle(const Mount& mount, const Vector& counts) : mount_(mount), travel_(counts), playFrom_(counts) {}

    // The counts stay.
    void PutOn(const Mount& mount) { mount_ = mount; }
    const Mount& MountOf() const { return mount_; }

    void SetOut(const Vector& counts, Time now);
    // What is new begins now: play with none taken up, drift with none gone. The tip jumps by what was there
    // before.
    void Spoil(const Imperfections& imperfections, Time now);
    const Imperfections& Spoilt() const { return imperfections_; }

    // What the drive counts, between whole ones on the way.
    Vector CountsAt(Time now) const { return travel_.At(now); }
    bool MovesAt(Time now) const { return travel_.MovesAt(now); }
    Time Arrival() const { return travel_.Arrival(); }

    // The true tip, and the true shaft in plan.
    Vector TipAt(Time now) const { return TipOf(mount_, CarriageAt(now)) + imperfections_.bend; }
    // Where the tip will be when the drive rests: at its arrival, or at that time where it rests already.
    Vector TipAtRest(Time now) const { return TipAt(std::max(now, travel_.Arrival())); }
    Shaft ShaftAt(Time now) const;

    // Whether shaft and tip stand still from then on, as long as nothing is asked of the needle.
    bool StandsStillFrom(Time now) const;
    // Adds the times between the two at which the tip stops running evenly: the arrival, and where play is
    // taken up.
    void AddTurns(Time from, Time to, std::vector<Time>& turns) const;

private:
    Vector PlayAt(const Vector& counts) const;
    Vector CarriageAt(Time now) const;

    Mount mount_;
    Travel travel_;
    Imperfections imperfections_;
    Vector playFrom_;       // counts at which
    Vector playTakenUp_{};  // so much of the play was taken up
    Time driftFrom_{0};
};

}  // namespace workbench
