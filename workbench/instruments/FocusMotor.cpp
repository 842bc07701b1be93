#include "workbench/instruments/FocusMotor.h"

#include <algorithm>
#include <array>

#include "core/ground/Arithmetic.h"

namespace workbench {

void FocusMotor::Receive(std::string_view bytes, Time now) {
    world_.Advance(now);
    received_.Append(bytes);
    while (const auto line = received_.Next()) {
        // What has arrived meanwhile is told before the next command is looked at.
        Advance(now);
        if (line->overflow) {
            Count("unknown");
            Refuse();
        } else {
            Obey(line->text, now);
        }
    }
    Advance(now);
}

void FocusMotor::Advance(Time now) {
    if (moveUnanswered_ && !world_.Optics().FocusMoves(now)) {
        moveUnanswered_ = false;
        Answer();
    }
}

std::string FocusMotor::FloodLine(std::int32_t n, Time) const { return "A" + std::to_string(n) + "\r"; }

const FocusMotor::Command* FocusMotor::CommandOf(std::string_view line) {
    static constexpr std::array<Command, 12> commands = {{{"RELMOVEZ", Operation::MoveBy, true},
                                                          {"RZ", Operation::MoveBy, true},
                                                          {"MOVEZ", Operation::MoveTo, true},
                                                          {"MZ", Operation::MoveTo, true},
                                                          {"RESET", Operation::Reset, false},
                                                          {"RE", Operation::Reset, false},
                                                          {"WHEREZ", Operation::Where, false},
                                                          {"WZ", Operation::Where, false},
                                                          {"ZERO", Operation::Zero, false},
                                                          {"ZE", Operation::Zero, false},
                                                          {"HALT", Operation::Halt, false},
                                                          {"WHO", Operation::Who, false}}};
    const auto* found = std::find_if(commands.begin(), commands.end(), [line](const Command& command) {
        return command.takesNumber ? line.starts_with(command.name) : line == command.name;
    });
    return found == commands.end() ? nullptr : found;
}

void FocusMotor::Obey(std::string_view line, Time now) {
    const Command* command = CommandOf(line);
    Count(command == nullptr ? "unknown" : command->name);
    if (refusals_ != 0) {
        refusals_ -= refusals_ > 0 ? 1 : 0;
        Refuse();
        return;
    }
    if (command == nullptr) {
        Refuse();
        return;
    }
    try {
        const std::int64_t number =
            command->takesNumber ? travo::ReadInteger32(line.substr(command->name.size())) : 0;
        CarryOut(command->operation, number, now);
    } catch (const travo::Failure&) {
        Refuse();
    }
}

void FocusMotor::CarryOut(Operation operation, std::int64_t number, Time now) {
    switch (operation) {
        case Operation::MoveBy:
            Move(world_.Optics().FocusCount(now) + number, now);
            return;
        case Operation::MoveTo:
            Move(zero_ + number, now);
            return;
        case Operation::Reset:
        case Operation::Halt:
            world_.Optics().HaltFocus(now);
            EndMove();
            Answer();
            return;
        case Operation::Where:
            Answer(std::to_string(Position(now)));
            return;
        case Operation::Zero:
            zero_ = world_.Optics().FocusCount(now);
            Answer();
            return;
        case Operation::Who:
            Answer("Remote Drive Accessory");
            return;
    }
}

void FocusMotor::Move(std::int64_t target, Time now) {
    if (!world_.Optics().MoveFocus(target, now)) {
        Refuse();
        return;
    }
    EndMove();
    moveUnanswered_ = true;
}

void FocusMotor::EndMove() {
    if (moveUnanswered_) {
        moveUnanswered_ = false;
        Answer();
    }
}

void FocusMotor::Answer(std::string_view value) { Say(std::string("A").append(value).append("\r")); }

void FocusMotor::Refuse() { Say("N\r"); }

std::int64_t FocusMotor::Position(Time now) const { return world_.Optics().FocusCount(now) - zero_; }

}  // namespace workbench
