#include <algorithm>
#include <filesystem>
#include <iostream>
#include <vector>

#include "drivers/gcode/Dialect.h"
#include "drivers/gcode/tool/Commands.h"

namespace gcode {

namespace {

constexpr Time AskLimit = std::chrono::milliseconds(1500);

// The names that stay with a device, and those that a device has got otherwise.
std::vector<std::string> PortNames() {
    std::vector<std::string> names;
    std::vector<std::string> known;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator("/dev/serial/by-id", ignored)) {
        names.push_back(entry.path().string());
        known.push_back(std::filesystem::canonical(entry.path(), ignored).string());
    }
    for (const auto& entry : std::filesystem::directory_iterator("/dev", ignored)) {
        const std::string name = entry.path().string();
        const bool isSerial = name.starts_with("/dev/ttyUSB") || name.starts_with("/dev/ttyACM");
        if (isSerial && std::find(known.begin(), known.end(), name) == known.end()) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

// What answers in that dialect; empty where nothing does. `why` is set where the port cannot be had.
std::string Answer(Desk& desk, const NeedleSettings& settings, std::string& why) {
    const std::unique_ptr<Needle> needle = desk.Make(settings);
    if (!needle->Open(desk.PortsOfThis())) {
        why = needle->Reason();
        return {};
    }
    const Time limit = needle->Now() + AskLimit;
    const Outcome outcome = needle->Greet(limit, limit + AskLimit);
    return outcome.IsGood() ? std::string(Name(settings.dialect)) + ", " + needle->Known().firmware + ", " +
                                  needle->Known().state
                            : std::string();
}

std::string AskAll(Desk& desk, const std::string& port) {
    std::string why;
    for (const DialectName dialect : {DialectName::Grbl, DialectName::Marlin, DialectName::Omm}) {
        NeedleSettings settings;
        settings.port = port;
        settings.dialect = dialect;
        settings.baud = UsualBaud(dialect);
        if (const std::string answer = Answer(desk, settings, why); !answer.empty() || !why.empty()) {
            return answer.empty() ? why : answer;
        }
    }
    return "nothing that we know answers";
}

}  // namespace

int List(Desk& desk, bool asksOthers) {
    std::vector<std::string> names = PortNames();
    for (const auto& settings : desk.Read().needles) {
        if (settings && std::find(names.begin(), names.end(), settings->port) == names.end()) {
            names.push_back(settings->port);
        }
    }
    for (const std::string& name : names) {
        const auto& needles = desk.Read().needles;
        const auto own = std::find_if(needles.begin(), needles.end(),
                                      [&](const auto& needle) { return needle && needle->port == name; });
        std::cout << name << "\n    ";
        if (own != needles.end()) {
            std::string why;
            const std::string answer = Answer(desk, **own, why);
            std::cout << "needle " << (*own)->number << ": "
                      << (!answer.empty() ? answer
                          : !why.empty()  ? why
                                          : "no answer")
                      << "\n";
        } else {
            std::cout << (asksOthers ? AskAll(desk, name) : "not asked: list --ask asks it") << "\n";
        }
    }
    if (names.empty()) {
        std::cout << "no serial port\n";
    }
    return names.empty() ? 1 : 0;
}

}  // namespace gcode
