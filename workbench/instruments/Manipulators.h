// The needle manipulators as their driver shows them: calls in, status and values out.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <random>

#include "workbench/world/World.h"

namespace workbench {

// What a driver call answers; negative for failure.
enum class DriverStatus : std::int32_t {
    Done = 0,
    Failed = -1,        // made to fail by hand
    NotConnected = -2,  // the selected manipulator is not, or no longer, connected
    OutOfRange = -3,    // a target outside 0 to 25000
};

enum class DriverOperation { GetPosition, MoveTo, Select, GetCount, Reconnect };
inline constexpr std::size_t DriverOperationCount = 5;

// The ways in which the manipulators misbehave.
enum class FailureMode {
    CallsFail,           // the next calls answer DriverStatus::Failed and do nothing
    Hangs,               // no call is answered for a time
    CountChanges,        // another number of manipulators is connected
    PositionOutOfRange,  // the reported X of one manipulator leaves the range
    SelectedAtHardware,  // another manipulator is selected, without a call
};

// Manipulator numbers are 1-based, as the driver counts them. Positions are counts of the
// manipulator frame, 0 to 25000 on each axis. Every call lets the world's time pass first.
class Manipulators {
public:
    // The answer to a selection that was made.
    static constexpr std::int32_t SelectionAnswer = 1;
    // The X that a manipulator out of range reports.
    static constexpr std::int32_t StrayCount = 30000;
    // As a number of calls: until it is cleared.
    static constexpr std::int32_t Always = -1;

    struct Position {
        std::int32_t number = 0;
        travo::PositionXYZ xyz{};
    };

    // Manipulator 1 is selected.
    explicit Manipulators(World& world) : world_(world) {}

    // Number and present counts of the selected manipulator, also while it moves. Counts that it
    // passes are rounded to whole ones.
    DriverStatus GetPosition(Time now, Position& position);
    // Starts the selected manipulator; a move under way is turned to the new target.
    DriverStatus MoveTo(Time now, const travo::PositionXYZ& counts);
    // A number that is not connected answers Done and 0, and changes nothing.
    DriverStatus Select(Time now, std::int32_t number, std::int32_t& answer);
    DriverStatus GetCount(Time now, std::int32_t& count);
    // Finds the manipulators anew: where the selected one is gone, the first is selected.
    DriverStatus Reconnect(Time now);

    // The next so many calls fail, or Always; of one operation, or of any. Replaces the last such fault;
    // 0 ends it.
    void FailCalls(std::int32_t calls, std::optional<DriverOperation> operation = std::nullopt);
    // No call is answered until then. A time that has passed ends it.
    void HangUntil(Time end) { hangEnd_ = end; }
    // Whether a call made now must wait. It is for the transport to keep it waiting.
    bool HangsAt(Time now) const { return now < hangEnd_; }
    Time HangEnd() const { return hangEnd_; }
    // 0 to 4 are connected; travo::BoundsFailure beyond.
    void ChangeCount(Time now, std::int32_t count);
    // One manipulator reports StrayCount as its X, or none does. The needle itself stays where it is.
    // travo::BoundsFailure for a number outside 1 to 4.
    void StrayPosition(std::optional<std::int32_t> number);
    // Readings of GetPosition differ from the counts, on each axis by chance: normal, with this standard
    // deviation in counts, to whole ones. 0 ends it. The chance is the same in every run and begins anew.
    // travo::BoundsFailure for a number outside 1 to 4.
    void MakeNoisy(std::int32_t number, double deviation);
    double NoiseOf(std::int32_t number) const;
    // As if its key were pressed at the hardware; travo::BoundsFailure for one that is not connected.
    void SelectAtHardware(std::int32_t number);
    // Ends every fault: four are connected again, needles are perfect; the selection stays.
    void ClearFaults(Time now);
    // Whether a fault of this kind is on now. SelectedAtHardware is over as soon as it has happened.
    bool Misbehaves(FailureMode mode, Time now) const;

    std::int32_t Selected() const { return selected_; }
    // Calls that are still to fail, or Always.
    std::int32_t FailingCalls() const { return failingCalls_; }

    // Calls received, whatever their answer.
    std::int64_t Received(DriverOperation operation) const;
    // Calls among them whose status was negative.
    std::int64_t Refused() const { return refused_; }
    void ForgetCounters();

private:
    // Counts the call, lets time pass, and says whether a fault or a missing manipulator ends it.
    DriverStatus Enter(Time now, DriverOperation operation);
    DriverStatus Refuse(DriverStatus status);
    // The counts as they are read.
    travo::PositionXYZ Reading(std::int32_t number, Time now);
    bool Connected(std::int32_t number) const { return number >= 1 && number <= world_.ConnectedNeedles(); }

    World& world_;
    std::int32_t selected_ = 1;
    std::int32_t failingCalls_ = 0;
    std::optional<DriverOperation> failingOperation_;
    Time hangEnd_{0};
    std::optional<std::int32_t> stray_;
    struct Noise {
        double deviation = 0.0;
        std::mt19937 chance;
    };
    std::array<Noise, travo::NeedleCount> noise_;
    std::array<std::int64_t, DriverOperationCount> received_{};
    std::int64_t refused_ = 0;
};

}  // namespace workbench
