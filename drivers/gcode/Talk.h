// What the exchanges of all dialects have in common.
#pragma once

#include <string>

#include "drivers/gcode/Dialect.h"
#include "drivers/gcode/Line.h"

namespace gcode {

inline Outcome Good() { return {}; }
// No line came: the port is gone, or the controller is silent. `what` says what it did not answer.
Outcome NoAnswer(const Line& line, const std::string& what);

// Takes all that waits on the line, each line once: what was not asked for is no answer to what will be. Ends
// after a while on a wire that never pauses.
template <typename Taker>
void TakeWaiting(Line& line, Taker&& take) {
    constexpr int Most = 1000;
    for (int lines = 0; lines < Most; ++lines) {
        const std::optional<std::string> waiting = line.Next(line.Now());
        if (!waiting) {
            return;
        }
        take(*waiting);
    }
}

}  // namespace gcode
