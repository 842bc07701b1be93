// A manipulator driver library for tests. What it lacks and what it answers is chosen by definitions
// when it is built; it starts anew each time it is loaded.
#include <cstdint>

#ifdef THROWS
// No object of the language's own family of failures: just a number.
#define STATUS throw 42
#define ANSWER STATUS
#else
#ifndef STATUS
#define STATUS 0
#endif
#define ANSWER return STATUS
#endif
#ifndef NUMBER
#define NUMBER 1
#endif
#ifndef X
#define X 100
#endif
#ifndef Z
#define Z 300
#endif

namespace {
std::int32_t selected = NUMBER;
std::int32_t place[3] = {X, 200, Z};
std::int32_t reconnected = 0;
}  // namespace

#ifdef NEEDS_WHAT_NOBODY_HAS
extern "C" std::int32_t NobodyHasThis(std::int32_t);
#endif

extern "C" {

#ifndef LACKS_GET_POSITION
std::int32_t DriverGetPosition(std::int32_t* number, std::int32_t* x, std::int32_t* y, std::int32_t* z) {
    *number = selected;
    *x = place[0];
    *y = place[1];
    *z = place[2];
    ANSWER;
}
#endif

#ifndef LACKS_MOVE_TO
std::int32_t DriverMoveTo(std::int32_t x, std::int32_t y, std::int32_t z) {
    place[0] = x;
    place[1] = y;
    place[2] = z;
    ANSWER;
}
#endif

#ifndef LACKS_SELECT
std::int32_t DriverSelect(std::int32_t number, std::int32_t* answer) {
    selected = number;
    *answer = number * 1000;
    ANSWER;
}
#endif

#ifndef LACKS_GET_COUNT
std::int32_t DriverGetCount(std::int32_t* count) {
    *count = 4 + reconnected;
    ANSWER;
}
#endif

#ifndef LACKS_RECONNECT
std::int32_t DriverReconnect() {
    ++reconnected;
#ifdef NEEDS_WHAT_NOBODY_HAS
    return NobodyHasThis(STATUS);
#else
    ANSWER;
#endif
}
#endif
}
