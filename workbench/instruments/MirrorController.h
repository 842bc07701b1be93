// The mirror controller on its wire: tilts the mirror, changes the magnification, reports unasked, and
// passes the lines of the Ergo unit on.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "workbench/instruments/Instrument.h"
#include "workbench/instruments/LineSplitter.h"
#include "workbench/world/World.h"

namespace workbench {

// Commands end with CR, what it says with CR LF, the lines of the Ergo unit with CR alone. A move is
// acknowledged twice: "q" when it is taken, "o" when the mirror has arrived; all other orders once, "o". The
// world must outlive the controller.
class MirrorController : public Instrument {
public:
    // The numbers of an error reply.
    enum class Error : std::int32_t {
        Command = 1,            // no such command
        Parameter = 2,          // no number, or one out of the command's range
        ReceptionOverflow = 4,  // a command longer than the buffer
        Prohibited = 7,         // a move with the motors off
    };

    // Status lines come on every change, but no closer than this, and when nothing changes at the period.
    static constexpr Time StatusPause = std::chrono::milliseconds(100);
    static constexpr Time StatusPeriod = std::chrono::milliseconds(1000);
    static constexpr std::int32_t StatusFields = 8;
    // As a number of lines or commands: until it is ended.
    static constexpr std::int32_t Always = -1;

    // Motors as in the world, status lines off, Ergo unit locked out of nothing.
    explicit MirrorController(World& world) : world_(world) {}

    void Receive(std::string_view bytes, Time now) override;
    void Advance(Time now) override;
    std::string FloodLine(std::int32_t n, Time now) const override;

    // A line of the Ergo unit, without its CR. It stands apart from all others, or, if together, in one
    // piece with a status line behind it. travo::NumberFailure for one that does not begin with "RZ", "MZ",
    // "RE", "WZ" or "ZE".
    void PassErgoLine(std::string_view line, bool together, Time now);

    // The next commands are not carried out but answered with this error; 0 commands end it.
    void RefuseCommands(std::int32_t error, std::int32_t commands);
    // The next status lines have so many fields; 0 lines end it.
    void MisformStatus(std::int32_t fields, std::int32_t lines);
    // Reports the axis at its limit, wherever it stands.
    void HoldAtLimit(std::int32_t axis, bool held) { heldAtLimit_.at(static_cast<std::size_t>(axis)) = held; }
    void ClearFaults();
    bool Refuses() const { return refusals_ != 0; }
    bool MisformsStatus() const { return misformedLines_ != 0; }
    bool HoldsAtLimit() const { return heldAtLimit_[0] || heldAtLimit_[1]; }
    // Commands, or lines, that are left of a fault; Always.
    std::int32_t RefusalsLeft() const { return refusals_; }
    std::int32_t MisformedLeft() const { return misformedLines_; }
    bool HoldsAtLimit(std::int32_t axis) const { return heldAtLimit_.at(static_cast<std::size_t>(axis)); }

private:
    void Obey(std::string_view command, Time now);
    void Move(std::string_view name, std::int32_t axis, std::int32_t target, Time now);
    void Refuse(std::string_view command, std::int32_t error);
    void AnswerRequest(std::string_view name, Time now);
    void CarryOut(std::string_view name, std::int32_t value, Time now);
    void ReportArrival(std::int32_t axis, std::string_view name, Time now);
    void ReportStatus(Time now);
    std::string StatusLine(Time now, std::int32_t fieldTwo, std::int32_t fields) const;

    World& world_;
    LineSplitter received_{"\r"};
    bool statusOn_ = false;
    std::int32_t ergoLock_ = 0;
    std::int32_t ergoZ_ = 1;
    std::array<bool, 2> underWay_{};
    bool statusDue_ = false;
    Time lastStatusTime_{0};
    std::string lastStatus_;
    std::int32_t refusal_ = 0;
    std::int32_t refusals_ = 0;
    std::int32_t misformedFields_ = StatusFields;
    std::int32_t misformedLines_ = 0;
    std::array<bool, 2> heldAtLimit_{};
};

}  // namespace workbench
