// Whatever comes: a position is only what a whole answer of M114 says in a plain form.
#include <cmath>
#include <regex>

#include "GcodeLines.h"
#include "drivers/gcode/MarlinReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using gcode::MarlinLine;
    static const std::regex answer(
        R"([ \t]*X:[ \t]*-?[0-9.]+[ \t]+Y:[ \t]*-?[0-9.]+[ \t]+Z:[ \t]*-?[0-9.]+([ \t]+E:[ \t]*-?[0-9.]+)?([ \t]*Count[ \t]*X:[ \t]*-?[0-9]+[ \t]+Y:[ \t]*-?[0-9]+[ \t]+Z:[ \t]*-?[0-9]+([ \t]+E:[ \t]*-?[0-9]+)?)?[ \t]*)");
    return gcode::fuzz::EachLine(data, size, [](const std::string& line) {
        const MarlinLine read = gcode::ReadMarlin(line);
        gcode::WordTriple(line);
        if (read.kind != MarlinLine::Kind::Position) {
            return;
        }
        gcode::fuzz::Demand(std::regex_match(line, answer), "an answer of another form", line);
        for (const double value : read.position.projected) {
            gcode::fuzz::Demand(std::isfinite(value), "no finite position", line);
        }
        for (const double value : read.position.steps.value_or(gcode::Millimetres{})) {
            gcode::fuzz::Demand(value == std::floor(value), "steps that are no whole number", line);
        }
    });
}
