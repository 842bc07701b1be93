// grbl 1.1, after its documents "Grbl Interface Basics", "Grbl v1.1 Commands" and "Grbl v1.1 Jogging".
#pragma once

#include <map>

#include "drivers/gcode/Dialect.h"
#include "drivers/gcode/GrblReader.h"

namespace gcode {

// Moves are jogs ("$J="): they leave the parser's modes alone, a target beyond the soft limits is answered
// with an error and no alarm, and a jog cancel ends them with a ramp, empties the planner and keeps the
// position, without the reset that a held G1 would need.
class GrblDialect : public Dialect {
public:
    Outcome Greet(Line& line, Time firstAnswer, Facts& facts) override;
    Outcome Where(Line& line, Place& place) override;
    Outcome Move(Line& line, const Millimetres& to, double feed) override;
    Outcome Stop(Line& line, bool& hadNoRamp) override;
    Outcome Home(Line& line) override;
    Outcome Unlock(Line& line) override;
    std::string HomeMoves() const override;
    std::string UnlockMeans() const override;

private:
    // Asks for reports until one is whole, and, where it tells the work position, its offset is known.
    Outcome AskStatus(Line& line, Time until, GrblStatus& status);
    Outcome Command(Line& line, const std::string& command, Time until,
                    std::map<int, double>* settings = nullptr, std::string* version = nullptr);
    // Ends whatever is held by a soft reset, which keeps the position of a machine at rest, and waits for the
    // start.
    Outcome Reset(Line& line);
    // What waits on the line: an alarm or a start told there holds.
    Outcome Waiting(Line& line);
    void Learn(const std::map<int, double>& settings, bool originForced, Facts& facts) const;

    std::optional<Millimetres> workOffset_;
};

}  // namespace gcode
