// Whatever comes: a position is only what a whole report says in a plain form.
#include <cmath>
#include <regex>

#include "GcodeLines.h"
#include "drivers/gcode/GrblReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using gcode::GrblLine;
    static const std::regex report(
        R"(<[A-Za-z]+(:[0-9]+)?\|[MW]Pos:(-?[0-9]+\.[0-9]+,){2,5}-?[0-9]+\.[0-9]+(\|[A-Za-z]+(:[^<>|]*)?)*>)");
    return gcode::fuzz::EachLine(data, size, [](const std::string& line) {
        const GrblLine read = gcode::ReadGrbl(line);
        if (read.kind != GrblLine::Kind::Status) {
            gcode::fuzz::Demand(!read.status.machine && !read.status.work, "a position of no report", line);
            return;
        }
        gcode::fuzz::Demand(std::regex_match(line, report), "a report of another form", line);
        gcode::fuzz::Demand(read.status.machine.has_value() != read.status.work.has_value(),
                            "not one position", line);
        for (const double value : read.status.machine ? *read.status.machine : *read.status.work) {
            gcode::fuzz::Demand(std::isfinite(value), "no finite position", line);
        }
    });
}
