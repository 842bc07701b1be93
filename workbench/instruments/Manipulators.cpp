#include "workbench/instruments/Manipulators.h"

#include <cmath>

#include "core/ground/Arithmetic.h"

namespace workbench {

DriverStatus Manipulators::GetPosition(Time now, Position& position) {
    const DriverStatus status = Enter(now, DriverOperation::GetPosition);
    if (status != DriverStatus::Done) {
        return status;
    }
    if (!Connected(selected_)) {
        return Refuse(DriverStatus::NotConnected);
    }
    position = {selected_, Reading(selected_, now)};
    if (stray_ == selected_) {
        position.xyz[0] = StrayCount;
    }
    return DriverStatus::Done;
}

DriverStatus Manipulators::MoveTo(Time now, const travo::PositionXYZ& counts) {
    const DriverStatus status = Enter(now, DriverOperation::MoveTo);
    if (status != DriverStatus::Done) {
        return status;
    }
    if (!Connected(selected_)) {
        return Refuse(DriverStatus::NotConnected);
    }
    try {
        world_.MoveNeedle(selected_ - 1, counts, now, MovedBy::Driver);
    } catch (const travo::BoundsFailure&) {
        return Refuse(DriverStatus::OutOfRange);
    }
    return DriverStatus::Done;
}

DriverStatus Manipulators::Select(Time now, std::int32_t number, std::int32_t& answer) {
    const DriverStatus status = Enter(now, DriverOperation::Select);
    if (status != DriverStatus::Done) {
        return status;
    }
    answer = 0;
    if (Connected(number)) {
        selected_ = number;
        answer = SelectionAnswer;
    }
    return DriverStatus::Done;
}

DriverStatus Manipulators::GetCount(Time now, std::int32_t& count) {
    const DriverStatus status = Enter(now, DriverOperation::GetCount);
    if (status == DriverStatus::Done) {
        count = world_.ConnectedNeedles();
    }
    return status;
}

DriverStatus Manipulators::Reconnect(Time now) {
    const DriverStatus status = Enter(now, DriverOperation::Reconnect);
    if (status == DriverStatus::Done && !Connected(selected_)) {
        selected_ = 1;
    }
    return status;
}

void Manipulators::FailCalls(std::int32_t calls, std::optional<DriverOperation> operation) {
    failingCalls_ = calls;
    failingOperation_ = operation;
}

void Manipulators::ChangeCount(Time now, std::int32_t count) { world_.ConnectNeedles(count, now); }

void Manipulators::StrayPosition(std::optional<std::int32_t> number) {
    if (number) {
        travo::Bounded(travo::Difference(*number, 1), travo::NeedleCount);
    }
    stray_ = number;
}

void Manipulators::MakeNoisy(std::int32_t number, double deviation) {
    const std::size_t place = travo::Bounded(travo::Difference(number, 1), noise_.size());
    noise_[place] = {deviation, std::mt19937(static_cast<std::mt19937::result_type>(number))};
}

double Manipulators::NoiseOf(std::int32_t number) const {
    return noise_[travo::Bounded(travo::Difference(number, 1), noise_.size())].deviation;
}

void Manipulators::SelectAtHardware(std::int32_t number) {
    if (!Connected(number)) {
        throw travo::BoundsFailure("this manipulator is not connected");
    }
    selected_ = number;
}

void Manipulators::ClearFaults(Time now) {
    FailCalls(0);
    HangUntil(Time(0));
    StrayPosition(std::nullopt);
    ChangeCount(now, travo::NeedleCount);
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        MakeNoisy(needle + 1, 0.0);
        world_.SpoilNeedle(needle, {}, now);
    }
}

bool Manipulators::Misbehaves(FailureMode mode, Time now) const {
    switch (mode) {
        case FailureMode::CallsFail:
            return failingCalls_ != 0;
        case FailureMode::Hangs:
            return HangsAt(now);
        case FailureMode::CountChanges:
            return world_.ConnectedNeedles() != travo::NeedleCount;
        case FailureMode::PositionOutOfRange:
            return stray_.has_value();
        case FailureMode::SelectedAtHardware:
            return false;
    }
    return false;
}

std::int64_t Manipulators::Received(DriverOperation operation) const {
    return received_[static_cast<std::size_t>(operation)];
}

void Manipulators::ForgetCounters() {
    received_.fill(0);
    refused_ = 0;
}

DriverStatus Manipulators::Enter(Time now, DriverOperation operation) {
    world_.Advance(now);
    ++received_[static_cast<std::size_t>(operation)];
    const bool concerned = !failingOperation_ || *failingOperation_ == operation;
    if (failingCalls_ == 0 || !concerned) {
        return DriverStatus::Done;
    }
    if (failingCalls_ > 0) {
        --failingCalls_;
    }
    return Refuse(DriverStatus::Failed);
}

travo::PositionXYZ Manipulators::Reading(std::int32_t number, Time now) {
    travo::PositionXYZ counts = world_.CountsNow(number - 1, now);
    Noise& noise = noise_[static_cast<std::size_t>(number - 1)];
    if (noise.deviation > 0.0) {
        std::normal_distribution<double> error(0.0, noise.deviation);
        for (std::int32_t& count : counts) {
            count += static_cast<std::int32_t>(std::lround(error(noise.chance)));
        }
    }
    return counts;
}

DriverStatus Manipulators::Refuse(DriverStatus status) {
    ++refused_;
    return status;
}

}  // namespace workbench
