// What the driver asks of a controller, whatever language it speaks.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "drivers/gcode/Feed.h"
#include "drivers/gcode/Line.h"
#include "drivers/gcode/NeedleSettings.h"

namespace gcode {

// How an exchange with a controller ended.
enum class Trouble {
    None,
    Silent,    // no answer within its time
    PortGone,  // the device has vanished
    NotReady,  // a state in which nothing may move and no position counts: Alarm, Hold, Door, Sleep, unhomed…
    Restarted,  // the controller has started anew: its position is no longer trusted
    Refused,    // understood and not done
    Unsuited,   // not the controller that the settings say, or one that cannot serve
};

struct Outcome {
    Trouble trouble = Trouble::None;
    std::string reason;  // for the log; empty where there is no trouble
    bool IsGood() const { return trouble == Trouble::None; }
};

// What a controller tells about itself when it is connected.
struct Facts {
    std::string firmware;
    std::string state;                    // in its own words
    std::optional<MachineLimits> limits;  // where it tells both speeds and accelerations
    std::optional<Millimetres> min, max;  // its soft limits, where it has them and they are on
    std::optional<bool> homingEnabled;    // where it tells
    std::optional<bool> isHomed;          // where it tells
    bool hasStarted = false;              // it said that it has just started
};

struct Place {
    Millimetres machine{};
    bool isMoving = false;
};

// One controller's language. Every call is one exchange or a few and ends within AnswerLimit, Greet within
// three of them from its first answer. None of them homes, unlocks, resets or changes a setting, but Home and
// Unlock, which only travo-gcode calls.
class Dialect {
public:
    // A controller that has not answered for so long does not answer.
    static constexpr Time AnswerLimit = std::chrono::seconds(1);
    // Homing both ends of a long axis.
    static constexpr Time HomingLimit = std::chrono::minutes(3);

    virtual ~Dialect() = default;

    // The first exchange on an open line. A board that restarts when its port is opened is given until then.
    virtual Outcome Greet(Line& line, Time firstAnswer, Facts& facts) = 0;
    // Where it is now.
    virtual Outcome Where(Line& line, Place& place) = 0;
    // One straight move to a machine position, in mm, fed along the vector in mm/s. Good when it was taken.
    virtual Outcome Move(Line& line, const Millimetres& to, double feed) = 0;
    // Ends the motion, forgets what is queued, keeps the position. Good when it stands still; `hadNoRamp`
    // becomes true where it was moving and was ended so hard that steps may be lost.
    virtual Outcome Stop(Line& line, bool& hadNoRamp) = 0;

    // What moves, and what then ends the state in which nothing may move.
    virtual Outcome Home(Line& line) = 0;
    virtual Outcome Unlock(Line& line) = 0;
    // One sentence each for the operator who is asked.
    virtual std::string HomeMoves() const = 0;
    virtual std::string UnlockMeans() const = 0;
};

std::unique_ptr<Dialect> MakeDialect(const NeedleSettings& needle);

}  // namespace gcode
