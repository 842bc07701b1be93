// The Open Micro-Manipulator, after the section "G-Code Interface" of its README.
#pragma once

#include <functional>

#include "drivers/gcode/Dialect.h"
#include "drivers/gcode/OmmReader.h"

namespace gcode {

// "The client must wait for an acknowledgment from the previous command before sending the next one": after
// an answer that stayed away nothing is sent until the line is opened anew.
class OmmDialect : public Dialect {
public:
    Outcome Greet(Line& line, Time firstAnswer, Facts& facts) override;
    Outcome Where(Line& line, Place& place) override;
    Outcome Move(Line& line, const Millimetres& to, double feed) override;
    // Its manual has no command that ends a motion: good where it stands still, refused where it moves.
    Outcome Stop(Line& line, bool& hadNoRamp) override;
    Outcome Home(Line& line) override;
    Outcome Unlock(Line& line) override;
    std::string HomeMoves() const override;
    std::string UnlockMeans() const override;

private:
    using Taker = std::function<void(const std::string&)>;
    Outcome Ask(Line& line, const std::string& command, Time until, const Taker& take = {});
    Outcome AskFinished(Line& line, Time until, bool& isFinished);
};

}  // namespace gcode
