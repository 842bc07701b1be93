// A driver library that behaves as the word says that stands in the file named by TRAVO_TEST_DRIVER at each
// read: "throw", "fail", "hang"; well with any other and with none.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

std::int32_t selected = 1;

std::int32_t Behave() {
    const char* const file = std::getenv("TRAVO_TEST_DRIVER");
    std::string word;
    if (file != nullptr) {
        std::ifstream(file) >> word;
    }
    if (word == "throw") {
        // Not an object of the language's own family of failures: just a number.
        throw 42;
    }
    while (word == "hang") {
        pause();
    }
    return word == "fail" ? -7 : 0;
}

}  // namespace

extern "C" {

std::int32_t DriverGetPosition(std::int32_t* number, std::int32_t* x, std::int32_t* y, std::int32_t* z) {
    *number = selected;
    *x = 100;
    *y = 200;
    *z = 300;
    return Behave();
}

std::int32_t DriverMoveTo(std::int32_t, std::int32_t, std::int32_t) { return 0; }

std::int32_t DriverSelect(std::int32_t number, std::int32_t* answer) {
    selected = number;
    *answer = 1;
    return 0;
}

std::int32_t DriverGetCount(std::int32_t* count) {
    *count = 1;
    return 0;
}

std::int32_t DriverReconnect() { return 0; }
}
