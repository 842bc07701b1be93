// Whatever comes: a pose is only its letters in their order with a plain decimal each.
#include <cmath>
#include <regex>

#include "GcodeLines.h"
#include "drivers/gcode/OmmReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::regex pose(
        R"([ \t,]*X([:=] *)?-?[0-9]+\.[0-9]+[ \t,]+Y([:=] *)?-?[0-9]+\.[0-9]+[ \t,]+Z([:=] *)?-?[0-9]+\.[0-9]+([ \t,]+[ABC]([:=] *)?-?[0-9]+\.[0-9]+)*[ \t,]*)");
    return gcode::fuzz::EachLine(data, size, [](const std::string& line) {
        const gcode::OmmLine read = gcode::ReadOmm(line);
        gcode::OmmFinished(read.text);
        gcode::OmmHomed(read.text);
        const std::optional<gcode::Millimetres> place = gcode::OmmPose(read.text);
        if (!place) {
            return;
        }
        gcode::fuzz::Demand(std::regex_match(read.text, pose), "a pose of another form", line);
        for (const double value : *place) {
            gcode::fuzz::Demand(std::isfinite(value), "no finite pose", line);
        }
    });
}
