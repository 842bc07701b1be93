#include "devices/links/clsManipulator.h"

#include <QLatin1String>
#include <algorithm>
#include <cstddef>
#include <optional>

#include "core/ground/Arithmetic.h"
#include "devices/links/ManipulatorRecord.h"

namespace travo {

namespace {

constexpr std::int16_t Free = -1;
constexpr std::int16_t Taken = 0;

// The travel of a manipulator in driver counts, on every axis.
constexpr std::int32_t LowestCount = 0;
constexpr std::int32_t HighestCount = 25000;

// A manipulator's speed: the driver returns before it has arrived.
constexpr double MillisecondsPerCount = 0.25;

constexpr std::int32_t TestDistance = 50;
constexpr std::int64_t TestMilliseconds = 501;

constexpr QLatin1String OutsideRange("Manipulator : Outside the movement range");
constexpr QLatin1String CommunicationFailed("Manipulator : Communication failed");
constexpr QLatin1String ChangeFailed("Error : Manipulator : Communication failed");

bool InRange(std::int32_t count) { return count >= LowestCount && count <= HighestCount; }

// The hourglass stands for as long as the object lives: a failed move must not leave it behind.
class Hourglass {
public:
    explicit Hourglass(platform::Pointer& pointer) : pointer_(pointer) {
        pointer_.MainWindow(platform::PointerShape::Hourglass);
    }
    ~Hourglass() { pointer_.MainWindow(platform::PointerShape::Default); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    platform::Pointer& pointer_;
};

}  // namespace

clsManipulator::clsManipulator(const Machine& machine, FailureHandler& failures)
    : machine_(machine), failures_(failures), ManipulatorDriver_(machine.driverLibrary.Create()) {}

// A call that meets the guard taken clears it on its way out: so the guard recovers from a reading
// out of range, which leaves it taken.
template <typename Call>
void clsManipulator::UnderGuard(Call&& call) {
    if (ManipulatorFree_ == Free) {
        ManipulatorFree_ = Taken;
        call();
    }
    ManipulatorFree_ = Free;
}

// The guard is freed before the box comes up, since calls arrive while the box serves the event loop.
template <typename Body>
void clsManipulator::Handled(const QString& text, Body&& body) {
    failures_.Handle(text, [&] {
        try {
            body();
        } catch (...) {
            ManipulatorFree_ = Free;
            throw;
        }
    });
}

void clsManipulator::ReportFreed(const QString& text) {
    ManipulatorFree_ = Free;
    failures_.Report(text);
}

void clsManipulator::ConnectTest(std::int16_t& ManipulatorNumber) {
    if (!ManipulatorDriver_) {
        return;
    }
    Handled(CommunicationFailed, [&] {
        UnderGuard([&] { ManipulatorDriver_->DriverSelect(ManipulatorNumber); });
        const ManipulatorRecord record(RequestData());
        if (!record.HoldsPosition()) {
            ReportFreed(CommunicationFailed);
            return;
        }
        ManipulatorNumber = record.Index();
        Jog(record.Counts());
    });
}

void clsManipulator::Jog(const PositionXYZ& position) {
    const std::int32_t jogged = Sum(position[0], TestDistance);
    if (!InRange(jogged)) {
        ReportFreed(OutsideRange);
        return;
    }
    UnderGuard([&] { ManipulatorDriver_->DriverMoveTo(jogged, position[1], position[2]); });
    ServeEventsForTest();
    UnderGuard([&] { ManipulatorDriver_->DriverMoveTo(position[0], position[1], position[2]); });
}

void clsManipulator::ServeEventsForTest() {
    const std::int64_t start = machine_.clock.TickCount();
    for (std::int64_t gone = 0; gone < TestMilliseconds; gone = machine_.clock.TickCount() - start) {
        machine_.eventLoop.ServeUntilEventOr(TestMilliseconds - gone);
    }
}

std::int32_t clsManipulator::ConnectChange(std::int16_t ManipulatorNumber) {
    std::int32_t answer = -1;
    if (ManipulatorDriver_) {
        Handled(ChangeFailed,
                [&] { UnderGuard([&] { answer = ManipulatorDriver_->DriverSelect(ManipulatorNumber); }); });
    }
    return answer;
}

std::int16_t clsManipulator::SendData(std::int16_t /*ManipulatorNumber*/, const PositionXYZ& lngInXYZ,
                                      const PositionXYZ& lngNowXYZ, Presses presses) {
    if (!ManipulatorDriver_) {
        return 0;
    }
    std::int16_t moved = 0;
    Handled(CommunicationFailed, [&] {
        std::int32_t distance = 0;
        for (std::size_t axis = 0; axis < lngInXYZ.size(); ++axis) {
            if (!InRange(lngInXYZ[axis])) {
                machine_.pointer.Screen(platform::PointerShape::Default);
                ReportFreed(OutsideRange);
                return;
            }
            distance = std::max(distance, AbsoluteValue(Difference(lngInXYZ[axis], lngNowXYZ[axis])));
        }
        MoveAndWait(lngInXYZ, distance, presses);
        moved = 1;
    });
    return moved;
}

// The whole program stands still for the move, on purpose. The guard is taken without a look at it.
void clsManipulator::MoveAndWait(const PositionXYZ& target, std::int32_t distance, Presses presses) {
    ManipulatorFree_ = Taken;
    {
        std::optional<platform::StandStill> still;
        if (presses == Presses::Dropped) {
            still.emplace(machine_.eventLoop);
        }
        const Hourglass hourglass(machine_.pointer);
        ManipulatorDriver_->DriverMoveTo(target[0], target[1], target[2]);
        const double duration = MillisecondsPerCount * distance;
        const std::int64_t start = machine_.clock.TickCount();
        while (duration >= static_cast<double>(machine_.clock.TickCount() - start)) {
            machine_.clock.Sleep(1);
        }
    }
    ManipulatorFree_ = Free;
}

std::string clsManipulator::RequestData() {
    if (!ManipulatorDriver_) {
        return ManipulatorRecord::Nothing();
    }
    std::string reply = ManipulatorRecord::Nothing();
    Handled(CommunicationFailed, [&] {
        if (ManipulatorFree_ != Free) {
            ManipulatorFree_ = Free;
            reply.clear();
            return;
        }
        ManipulatorFree_ = Taken;
        const auto [number, xyz] = ManipulatorDriver_->DriverGetPosition();
        // A reading out of range leaves the guard taken; the next call that meets it clears it.
        if (std::all_of(xyz.begin(), xyz.end(), InRange)) {
            reply = ManipulatorRecord::Text(Difference(number, 1), xyz);
            ManipulatorFree_ = Free;
        }
    });
    return reply;
}

std::int16_t clsManipulator::ConnectedNumber() {
    return ManipulatorDriver_ ? ToInteger16(Difference(ManipulatorDriver_->DriverGetCount(), 1))
                              : std::int16_t{-1};
}

std::int16_t clsManipulator::ReConnect() {
    if (ManipulatorDriver_) {
        ManipulatorDriver_->DriverReconnect();
    }
    return 0;
}

void clsManipulator::NumberSetting(std::int16_t SettingManipulator, std::int16_t ManipulatorUSBNumber) {
    const std::int16_t givenAway = CheckNumberSetting(SettingManipulator);
    std::replace(NumberTable_.begin(), NumberTable_.end(), ManipulatorUSBNumber, givenAway);
    NumberTable_[Bounded(SettingManipulator, NumberTable_.size())] = ManipulatorUSBNumber;
}

std::int16_t clsManipulator::CheckNumberSetting(std::int16_t ManipulatorUSBNumber) const {
    const auto slot = std::find(NumberTable_.begin(), NumberTable_.end(), ManipulatorUSBNumber);
    return static_cast<std::int16_t>(slot - NumberTable_.begin());
}

}  // namespace travo
