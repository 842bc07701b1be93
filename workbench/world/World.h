// The simulated workstation: what is truly where. Pure physics, without a clock of its own.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <optional>

#include "core/ground/Positions.h"
#include "workbench/world/Cell.h"
#include "workbench/world/Geometry.h"
#include "workbench/world/Landing.h"
#include "workbench/world/Microscope.h"
#include "workbench/world/Needle.h"
#include "workbench/world/ShaftContact.h"
#include "workbench/world/Travel.h"

namespace workbench {

// Counts that a manipulator can reach, on every axis.
inline constexpr std::int32_t LowestCount = 0;
inline constexpr std::int32_t HighestCount = 25000;
// The counts, on all three axes, at which a needle of the default mounts has its tip on the centre of
// the view while the mirror is at (0, 0) and the focus at 0. Mid-range: 900 common units to each side
// ask for 1273 counts at most, and Z reaches 12500 units up and down.
inline constexpr std::int32_t HomeCount = 12500;
// How far the needles are pulled back at first, in X counts from HomeCount: outside every view and
// far from each other.
inline constexpr std::int32_t StartRetreat = 3000;

// A mount with an offset T such that HomeCount on all axes puts the tip on the common origin.
Mount HomedMount(double heading, double yaw = 0.0, double tilt = 0.0);
// Headings 45, 135, 225 and 315 degrees for needles 0 to 3.
Mount DefaultMount(std::int32_t needle);

// Two shafts that met in plan view. Needles are 0-based, needleA below needleB.
struct Crossing {
    std::int32_t needleA = 0;
    std::int32_t needleB = 0;
    Time time{0};       // when they met
    PlanPoint place{};  // where, in common units
};

// Who sends a needle somewhere.
enum class MovedBy { Hand, Driver };

// Needle indices are 0 to 3 everywhere (travo::BoundsFailure beyond). Times never run back: an
// earlier time than one already told counts as that one where something is changed.
class World {
public:
    // Who wants to know what happens, as soon as the world's time has passed over it.
    class Listener {
    public:
        virtual ~Listener() = default;
        virtual void Crossed(const Crossing& crossing) = 0;
        // A needle that the driver sent has come to rest, and perhaps landed.
        virtual void Arrived(std::int32_t needle, Time time, const std::optional<Landing>& landing) = 0;
    };

    // All four needles connected, on their default mounts, at rest and pulled back.
    World();

    static const std::array<Cell, 6>& Cells() { return CellsInTheDish; }

    // One listener, or none; it must outlive the world or be taken back.
    void Listen(Listener* listener) { listener_ = listener; }

    // Lets time pass: what the shafts do until then is taken into the list of crossings, and who has come to
    // rest into the landings.
    void Advance(Time now);

    // What the needles are seen through. It knows nothing of them.
    Microscope& Optics() { return optics_; }
    const Microscope& Optics() const { return optics_; }

    // Starts a needle towards whole counts. travo::BoundsFailure, and nothing moves, where a count
    // lies outside LowestCount to HighestCount. What the driver sends may land; a hand takes it from the
    // driver.
    void MoveNeedle(std::int32_t needle, const travo::PositionXYZ& counts, Time now,
                    MovedBy by = MovedBy::Hand);
    // The same by a distance from the present counts; the needle stops at the ends of its range.
    void JogNeedle(std::int32_t needle, const travo::PositionXYZ& distance, Time now);
    // Puts a needle's manipulator on another mount; its counts stay.
    void MountNeedle(std::int32_t needle, const Mount& mount, Time now);
    const Mount& MountOf(std::int32_t needle) const;
    // Makes a needle differ from what its counts say, or perfect again.
    void SpoilNeedle(std::int32_t needle, const Imperfections& imperfections, Time now);
    const Imperfections& ImperfectionsOf(std::int32_t needle) const;

    // The counts of its drive, which tell where the tip is only if the needle is perfect.
    travo::PositionXYZ CountsNow(std::int32_t needle, Time now) const;
    bool NeedleMoves(std::int32_t needle, Time now) const;
    Vector TipNow(std::int32_t needle, Time now) const;
    // The way that the drive still has to go.
    Time TimeToGo(std::int32_t needle, Time now) const;
    // Where the tip is going: where it is, for a needle at rest. A drift is counted up to then.
    Vector TipAtRest(std::int32_t needle) const;
    Shaft ShaftNow(std::int32_t needle, Time now) const;

    // The first so many needles are connected, 0 to 4 (BoundsFailure beyond). The others are not
    // there: they cross nothing.
    void ConnectNeedles(std::int32_t count, Time now);
    std::int32_t ConnectedNeedles() const { return connected_; }

    // The crossings up to the last time told, oldest first: the last KeptCrossings of them, and how
    // many there were in all. A pair that parts and meets again is a new crossing.
    static constexpr std::size_t KeptCrossings = 200;
    const std::deque<Crossing>& Crossings() const { return crossings_; }
    std::int64_t CrossingsInAll() const { return crossingsInAll_; }
    void ForgetCrossings();
    // How many pairs are crossed at the last time told.
    std::int32_t PairsCrossed() const;

    const Landings& NeedleLandings() const { return landings_; }
    void ForgetLandings() { landings_.Forget(); }

private:
    const Needle& NeedleAt(std::int32_t needle) const;
    Needle& NeedleAt(std::int32_t needle);
    MovingShaft MovingShaftOf(std::size_t needle, Time from, Time to) const;
    void ObservePair(std::size_t a, std::size_t b, Time from, Time to);
    void ObserveAll(Time from, Time to);
    void TakeArrivals();

    Microscope optics_;
    std::array<Needle, travo::NeedleCount> needles_;
    std::int32_t connected_ = travo::NeedleCount;
    Time time_{0};
    std::array<std::array<bool, travo::NeedleCount>, travo::NeedleCount> crossed_{};
    std::deque<Crossing> crossings_;
    std::int64_t crossingsInAll_ = 0;
    std::array<bool, travo::NeedleCount> sentByDriver_{};
    Landings landings_;
    Listener* listener_ = nullptr;
};

}  // namespace workbench
