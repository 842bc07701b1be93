// One needle: a controller on its port, and what keeps its tip safe.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "drivers/gcode/Dialect.h"
#include "drivers/gcode/Log.h"
#include "drivers/gcode/NeedleSettings.h"
#include "drivers/gcode/Trust.h"
#include "drivers/gcode/Wire.h"

namespace gcode {

// The statuses that the driver answers with.
enum class Status : std::int32_t {
    Done = 0,
    Failed = -1,        // a fault of the driver itself: memory, a file
    NotConnected = -2,  // no such needle, or one that was lost and not reconnected
    OutOfRange = -3,    // a target outside 0 to 25000, or outside the machine's limits
    NotReady = -4,      // a state in which nothing may move and no position counts
    Silent = -5,        // no answer in time, or the port is gone
    Refused = -6,       // the controller has understood and not done it
    StillMoving = -7,   // the move before has not ended
};

// Connected from Connect on, until something happens that only a new Connect can mend: silence, a vanished
// port, a state in which nothing may move, a restart. Then the port is closed, so that travo-gcode can have
// it, the reason is in the log once, and every call fails at once.
class Needle {
public:
    // How long the end of the move before is awaited before the next is sent. The way of a move is known to
    // the caller only from a standstill.
    static constexpr Time StandstillLimit = std::chrono::milliseconds(700);

    // Of a move and of a stop, whatever the controller does; a reading has Dialect::AnswerLimit.
    static constexpr Time CallLimit = std::chrono::milliseconds(1900);

    Needle(NeedleSettings settings, Trust& trust, const Log& log);
    ~Needle();

    // Opens the port. False where it cannot be had.
    bool Open(Ports& ports);
    // Learns what answers there; waits for its first answer until then at most, and for the rest until the
    // limit.
    Status Connect(Time firstAnswer, Time limit);
    // Lets the port go.
    void Close();
    bool IsConnected() const { return isConnected_; }

    // Where it is now, in the nearest whole counts.
    Status Position(Counts& counts);
    // One straight line; done when the controller has taken it.
    Status MoveTo(const Counts& counts);
    Status Stop();

    // For travo-gcode. Learns what answers, in whatever state it is: trusts and refuses nothing, connects
    // nothing.
    Outcome Greet(Time firstAnswer, Time limit);
    // Both need an open port, and end with a needle that is closed.
    Outcome Home();
    Outcome Unlock();

    const NeedleSettings& Wanted() const { return settings_; }
    const Facts& Known() const { return facts_; }
    // Speeds and accelerations as the settings bound them; none where they are not known.
    std::optional<MachineLimits> Limits() const;
    // Why it is not connected, or why the last call failed.
    const std::string& Reason() const { return reason_; }
    Dialect& Language() { return *dialect_; }
    // The place in machine coordinates, with the doubts of Position.
    Status MachinePlace(Place& place);
    Time Now() const { return wire_ ? wire_->Now() : Time(0); }

private:
    struct Seen {
        Millimetres machine{};
        Time when{0};  // it was asked for; it is no older
    };

    Status Suits();
    // Ends the connection where the trouble asks for it, and writes the log.
    Status Fail(const Outcome& outcome);
    Status Say(Status status, const std::string& reason);
    bool CouldHaveGone(const Seen& from, const Millimetres& to, Time now) const;
    Status AwaitStandstill(Place& place);
    std::string BeyondLimits(const Millimetres& machine) const;

    NeedleSettings settings_;
    Trust& trust_;
    const Log& log_;
    std::unique_ptr<Wire> wire_;
    std::unique_ptr<Line> line_;
    std::unique_ptr<Dialect> dialect_;
    Facts facts_;
    std::optional<Seen> last_;
    bool isConnected_ = false;
    std::string reason_;
};

}  // namespace gcode
