// The optics of the simulated workstation: tilting mirror, magnification, focus drive and gauge, as they
// truly stand. Without a clock of its own.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "workbench/world/Geometry.h"
#include "workbench/world/Travel.h"

namespace workbench {

// The mirror tilts by whole counts to both sides of 0, and each axis runs at its own time.
inline constexpr std::int32_t MirrorRange = 180;
inline constexpr double MirrorCountsPerMillisecond = 0.4;
// The focus drive: counts of its motor to one unit of Z, its speed, and its ends to both sides of where
// it starts. The way from end to end, 80000 units, is what a gauge of five digits can show.
inline constexpr std::int32_t FocusCountsPerUnit = 100;
inline constexpr double FocusCountsPerMillisecond = 40.0;
inline constexpr std::int32_t FocusRange = 4'000'000;
// Objectives: 1 is 0.35x, 2 is 2x, 3 is 4x; 0 stands between two of them and shows nothing.
inline constexpr std::int32_t HighestMagnification = 3;

// Width and height of the view at a magnification index, in common units; travo::BoundsFailure beyond 0
// to HighestMagnification.
std::array<double, 2> FieldOfView(std::int32_t magnification);

enum class MirrorMove {
    Started,
    AtLimit,    // asked to go beyond its range: it goes to the end of it, and raises the limit flag
    MotorsOff,  // refused
};

// Axis 0 is X, 1 is Y (travo::BoundsFailure beyond). Starts with the mirror at (0, 0), its motors on, 2x,
// the focus and the gauge at 0.
class Microscope {
public:
    static constexpr std::int32_t AxisX = 0;
    static constexpr std::int32_t AxisY = 1;

    MirrorMove MoveMirror(std::int32_t axis, std::int64_t target, Time now);
    // Counts, between whole ones while it moves.
    double MirrorNow(std::int32_t axis, Time now) const;
    double MirrorAtRest(std::int32_t axis) const;
    // The same as the controller reports it.
    std::int32_t MirrorCount(std::int32_t axis, Time now) const;
    bool MirrorMoves(Time now) const;
    // Raised by a move beyond the range, until the next one within it.
    bool AtLimit(std::int32_t axis) const;

    // Switched off, the mirror stops on the count that it passes.
    void SwitchMirrorMotors(bool on, Time now);
    bool MirrorMotorsOn() const { return mirrorMotorsOn_; }

    // travo::BoundsFailure beyond 0 to HighestMagnification.
    void SetMagnification(std::int32_t index);
    std::int32_t Magnification() const { return magnification_; }

    // False, and nothing moves, beyond FocusRange to either side.
    bool MoveFocus(std::int64_t target, Time now);
    // Stops on the count that it passes.
    void HaltFocus(Time now);
    std::int32_t FocusCount(Time now) const;
    std::int32_t FocusCountAtRest() const;
    bool FocusMoves(Time now) const { return focus_.MovesAt(now); }
    Time FocusArrival() const { return focus_.Arrival(); }
    // Z of the focal plane in the common frame, in Z units.
    double FocusNow(Time now) const;
    double FocusAtRest() const;

    // The gauge's own reading, in Z units.
    double GaugeReading(Time now) const { return FocusNow(now) - gaugeZero_; }
    void ZeroGauge(Time now) { gaugeZero_ = FocusNow(now); }
    // The Z at which the gauge shows 0.
    double GaugeZero() const { return gaugeZero_; }

    PlanPoint ViewNow(Time now) const;
    PlanPoint ViewAtRest() const;

private:
    struct MirrorAxis {
        Travel travel{Vector{}};
        bool atLimit = false;
    };

    const MirrorAxis& AxisAt(std::int32_t axis) const;

    std::array<MirrorAxis, 2> mirror_;
    bool mirrorMotorsOn_ = true;
    std::int32_t magnification_ = 2;
    Travel focus_{Vector{}};
    double gaugeZero_ = 0.0;
};

}  // namespace workbench
