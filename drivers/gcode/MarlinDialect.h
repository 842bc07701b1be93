// Marlin and its kin, after the G-code pages of the Marlin documentation.
#pragma once

#include <functional>

#include "drivers/gcode/Dialect.h"
#include "drivers/gcode/MarlinReader.h"

namespace gcode {

// M114 tells the place to which it was sent last; where the needle is stands behind "Count", in steps. So the
// place is Count divided by the steps of a millimetre (M92), which holds for machines whose axes are driven
// one by one, without bed levelling and without an offset of their coordinates: others are refused when they
// are connected.
class MarlinDialect : public Dialect {
public:
    Outcome Greet(Line& line, Time firstAnswer, Facts& facts) override;
    Outcome Where(Line& line, Place& place) override;
    Outcome Move(Line& line, const Millimetres& to, double feed) override;
    // M410: "there will be no deceleration, steppers are expected to be out of position".
    Outcome Stop(Line& line, bool& hadNoRamp) override;
    Outcome Home(Line& line) override;
    Outcome Unlock(Line& line) override;
    std::string HomeMoves() const override;
    std::string UnlockMeans() const override;

private:
    using Taker = std::function<void(const MarlinLine&)>;
    Outcome Ask(Line& line, const std::string& command, Time until, const Taker& take = {});
    Outcome Learn(Line& line, Facts& facts);
    Outcome CompareCoordinates(Line& line);

    Millimetres stepsPerMm_{};
};

}  // namespace gcode
