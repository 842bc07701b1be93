// A driver library with four needles that ends the process at the first tick after the load: the load
// reads each needle once.
#include <unistd.h>

#include <cstdint>

namespace {
std::int32_t selected = 1;
std::int32_t reads = 0;
}  // namespace

extern "C" {

std::int32_t DriverGetPosition(std::int32_t* number, std::int32_t* x, std::int32_t* y, std::int32_t* z) {
    constexpr std::int32_t ReadsOfTheLoad = 4;
    if (++reads > ReadsOfTheLoad) {
        _exit(0);
    }
    *number = selected;
    *x = *y = *z = 12500;
    return 0;
}

std::int32_t DriverMoveTo(std::int32_t, std::int32_t, std::int32_t) { return 0; }

std::int32_t DriverSelect(std::int32_t number, std::int32_t* answer) {
    selected = number;
    *answer = 1;
    return 0;
}

std::int32_t DriverGetCount(std::int32_t* count) {
    *count = 4;
    return 0;
}

std::int32_t DriverReconnect() { return 0; }
}
