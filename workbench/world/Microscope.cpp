#include "workbench/world/Microscope.h"

#include <algorithm>
#include <cmath>

#include "core/ground/Arithmetic.h"

namespace workbench {

namespace {

std::int32_t Rounded(double count) { return static_cast<std::int32_t>(std::lround(count)); }

// A travel along one axis stands in the first coordinate.
double Along(const Vector& place) { return place[0]; }

void Stop(Travel& travel, double speed, Time now) {
    if (travel.MovesAt(now)) {
        travel.SetOut({static_cast<double>(Rounded(Along(travel.At(now)))), 0.0, 0.0}, speed, now);
    }
}

}  // namespace

std::array<double, 2> FieldOfView(std::int32_t magnification) {
    static constexpr std::array<std::array<double, 2>, HighestMagnification + 1> fields = {
        {{0.0, 0.0}, {1524.0, 1143.0}, {242.9, 181.0}, {121.4, 90.5}}};
    return fields[travo::Bounded(magnification, fields.size())];
}

MirrorMove Microscope::MoveMirror(std::int32_t axis, std::int64_t target, Time now) {
    MirrorAxis& one = mirror_[travo::Bounded(axis, mirror_.size())];
    if (!mirrorMotorsOn_) {
        return MirrorMove::MotorsOff;
    }
    const std::int64_t reached = std::clamp<std::int64_t>(target, -MirrorRange, MirrorRange);
    one.atLimit = reached != target;
    one.travel.SetOut({static_cast<double>(reached), 0.0, 0.0}, MirrorCountsPerMillisecond, now);
    return one.atLimit ? MirrorMove::AtLimit : MirrorMove::Started;
}

double Microscope::MirrorNow(std::int32_t axis, Time now) const { return Along(AxisAt(axis).travel.At(now)); }

double Microscope::MirrorAtRest(std::int32_t axis) const { return Along(AxisAt(axis).travel.Target()); }

std::int32_t Microscope::MirrorCount(std::int32_t axis, Time now) const {
    return Rounded(MirrorNow(axis, now));
}

bool Microscope::MirrorMoves(Time now) const {
    return std::any_of(mirror_.begin(), mirror_.end(),
                       [now](const MirrorAxis& axis) { return axis.travel.MovesAt(now); });
}

bool Microscope::AtLimit(std::int32_t axis) const { return AxisAt(axis).atLimit; }

void Microscope::SwitchMirrorMotors(bool on, Time now) {
    mirrorMotorsOn_ = on;
    if (!on) {
        for (MirrorAxis& axis : mirror_) {
            Stop(axis.travel, MirrorCountsPerMillisecond, now);
        }
    }
}

void Microscope::SetMagnification(std::int32_t index) {
    magnification_ = static_cast<std::int32_t>(travo::Bounded(index, HighestMagnification + 1));
}

bool Microscope::MoveFocus(std::int64_t target, Time now) {
    if (target < -FocusRange || target > FocusRange) {
        return false;
    }
    focus_.SetOut({static_cast<double>(target), 0.0, 0.0}, FocusCountsPerMillisecond, now);
    return true;
}

void Microscope::HaltFocus(Time now) { Stop(focus_, FocusCountsPerMillisecond, now); }

std::int32_t Microscope::FocusCount(Time now) const { return Rounded(Along(focus_.At(now))); }

std::int32_t Microscope::FocusCountAtRest() const { return Rounded(Along(focus_.Target())); }

double Microscope::FocusNow(Time now) const { return Along(focus_.At(now)) / FocusCountsPerUnit; }

double Microscope::FocusAtRest() const { return Along(focus_.Target()) / FocusCountsPerUnit; }

PlanPoint Microscope::ViewNow(Time now) const {
    return ViewCentreOf(MirrorNow(AxisX, now), MirrorNow(AxisY, now));
}

PlanPoint Microscope::ViewAtRest() const { return ViewCentreOf(MirrorAtRest(AxisX), MirrorAtRest(AxisY)); }

const Microscope::MirrorAxis& Microscope::AxisAt(std::int32_t axis) const {
    return mirror_[travo::Bounded(axis, mirror_.size())];
}

}  // namespace workbench
