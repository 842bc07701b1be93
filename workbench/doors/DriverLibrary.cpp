// The driver library of the workbench: the five operations that a control program loads, each one
// exchange with travo-workbench. Every call blocks until the workbench has answered, at most
// ExchangeLimit; a negative status says failure. For one calling thread, as the real driver is.
#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <sstream>
#include <string>

#include "workbench/socket/Exchange.h"
#include "workbench/socket/SocketPath.h"

#define DRIVER_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

constexpr std::chrono::milliseconds ExchangeLimit{2000};

// Statuses of the library itself; the workbench's own are between -1 and -9.
enum LibraryStatus : std::int32_t {
    NoWorkbench = -10,
    TimedOut = -11,
    Garbled = -12,
    NoPlaceForAnswer = -13,
};

// The library lives in a program that knows nothing of it, behind functions that take no context: so
// it keeps its one connection itself, from the first call to the end of the program.
workbench::Exchange& Connection() {
    static workbench::Exchange connection(workbench::SocketPath());
    return connection;
}

using Arguments = std::initializer_list<std::int32_t>;
using Values = std::initializer_list<std::int32_t*>;

// Asks, and reads the status and then the values that the answer must hold if it is no failure.
std::int32_t Ask(const char* operation, Arguments arguments, Values values) {
    std::string question = std::string("driver ") + operation;
    for (const std::int32_t argument : arguments) {
        question.append(1, ' ').append(std::to_string(argument));
    }
    for (const std::int32_t* value : values) {
        if (value == nullptr) {
            return NoPlaceForAnswer;
        }
    }
    std::string answer;
    switch (Connection().Ask(question, ExchangeLimit, answer)) {
        case workbench::Exchange::Outcome::NoWorkbench:
        case workbench::Exchange::Outcome::Broken:
            return NoWorkbench;
        case workbench::Exchange::Outcome::TimedOut:
            return TimedOut;
        case workbench::Exchange::Outcome::Answered:
            break;
    }
    std::istringstream words(answer);
    std::string head;
    std::int32_t status = 0;
    if (!(words >> head >> status) || head != "status") {
        return Garbled;
    }
    for (auto value = values.begin(); status >= 0 && value != values.end(); ++value) {
        if (!(words >> **value)) {
            return Garbled;
        }
    }
    return status;
}

// No failure of the language may leave a function with C linkage: it would end the host program.
std::int32_t AskSafely(const char* operation, Arguments arguments, Values values) noexcept {
    try {
        return Ask(operation, arguments, values);
    } catch (...) {
        return Garbled;
    }
}

}  // namespace

DRIVER_EXPORT std::int32_t DriverGetPosition(std::int32_t* number, std::int32_t* x, std::int32_t* y,
                                             std::int32_t* z) {
    return AskSafely("getposition", {}, {number, x, y, z});
}

DRIVER_EXPORT std::int32_t DriverMoveTo(std::int32_t x, std::int32_t y, std::int32_t z) {
    return AskSafely("moveto", {x, y, z}, {});
}

DRIVER_EXPORT std::int32_t DriverSelect(std::int32_t number, std::int32_t* answer) {
    return AskSafely("select", {number}, {answer});
}

DRIVER_EXPORT std::int32_t DriverGetCount(std::int32_t* count) { return AskSafely("getcount", {}, {count}); }

DRIVER_EXPORT std::int32_t DriverReconnect(void) { return AskSafely("reconnect", {}, {}); }
