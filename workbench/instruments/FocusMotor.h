// The focus motor unit, the "Remote Drive Accessory", on its wire.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "workbench/instruments/Instrument.h"
#include "workbench/instruments/LineSplitter.h"
#include "workbench/world/World.h"

namespace workbench {

// Commands and answers end with CR. Every command has one answer: "A" and a value where there is one, or
// "N" for a refusal. A move is answered when it is over: at its end, or at once when another move, "HALT" or
// "RESET" ends it. The Ergo unit's short forms RZ, MZ, RE, WZ and ZE are known as well. Positions are counts
// from the unit's own zero. The world must outlive the unit.
class FocusMotor : public Instrument {
public:
    explicit FocusMotor(World& world) : world_(world) {}

    void Receive(std::string_view bytes, Time now) override;
    void Advance(Time now) override;
    std::string FloodLine(std::int32_t n, Time now) const override;

    // The next commands are refused and not carried out; negative: all, 0: none.
    void RefuseCommands(std::int32_t commands) { refusals_ = commands; }
    bool Refuses() const { return refusals_ != 0; }
    // Commands that are still to be refused; negative: all.
    std::int32_t RefusalsLeft() const { return refusals_; }

private:
    enum class Operation { MoveBy, MoveTo, Reset, Where, Zero, Halt, Who };
    struct Command {
        std::string_view name;
        Operation operation;
        bool takesNumber;
    };
    static const Command* CommandOf(std::string_view line);

    void Obey(std::string_view line, Time now);
    void CarryOut(Operation operation, std::int64_t number, Time now);
    void Move(std::int64_t target, Time now);
    // The answer of a move that something else has ended.
    void EndMove();
    void Answer(std::string_view value = {});
    void Refuse();
    std::int64_t Position(Time now) const;

    World& world_;
    LineSplitter received_{"\r"};
    std::int64_t zero_ = 0;
    bool moveUnanswered_ = false;
    std::int32_t refusals_ = 0;
};

}  // namespace workbench
