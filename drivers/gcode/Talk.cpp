#include "drivers/gcode/Talk.h"

namespace gcode {

Outcome NoAnswer(const Line& line, const std::string& what) {
    if (line.IsGone()) {
        return {Trouble::PortGone, "the port has vanished"};
    }
    return {Trouble::Silent, "no answer to " + what};
}

}  // namespace gcode
