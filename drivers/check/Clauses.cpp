#include "drivers/check/Clauses.h"

namespace check {

const std::array<ClauseText, 27> ClauseTexts{{
    {"loads", "loads with all its symbols resolved"},
    {"functions", "has the five functions"},
    {"settling", "states a settling time of 0 to 300 ms, or none"},
    {"lives", "no call ends the process"},
    {"times", "a call returns within 2000 ms, one that connects within 10000 ms"},
    {"reading-time", "a reading takes no longer than 50 ms (advice)"},
    {"values", "writes its values and nothing beside them"},
    {"count", "counts 0 to 4 manipulators"},
    {"select", "selects each that is connected, with an answer other than 0"},
    {"numbers", "readings succeed and name the selected one, from 1"},
    {"range", "readings lie within 0 to 25000"},
    {"not-connected", "a number that is not connected leaves the selection as it is"},
    {"reconnect", "after connecting anew all work as before"},
    {"still", "nothing moves but by a move"},
    {"taken", "moves within the range are taken, also to where it stands"},
    {"returns", "a move returns before it arrives"},
    {"true-place", "readings in a move say where it is, not where it shall be"},
    {"straight", "the way is a straight line"},
    {"arrival", "stands at the place 0.25 ms a count and the settling time later"},
    {"refusal", "a place out of range is refused, and nothing moves"},
    {"stop", "a stop ends the motion and keeps the position"},
    {"surroundings", "leaves signals, locale, folder and environment alone"},
    {"output", "writes nothing to the standard streams"},
    {"unload", "unloads, and the process ends as it should"},
    {"threads", "leaves no thread behind"},
    {"descriptors", "closes what it opened"},
    {"children", "leaves no process behind"},
}};

}  // namespace check
