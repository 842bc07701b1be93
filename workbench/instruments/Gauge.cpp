#include "workbench/instruments/Gauge.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace workbench {

namespace {

constexpr long HighestReading = 99999;
constexpr std::string_view LineEnd = "\r\n";

}  // namespace

void Gauge::Receive(std::string_view bytes, Time now) {
    received_.Append(bytes);
    while (const auto line = received_.Next()) {
        Obey(line->overflow ? std::string_view() : std::string_view(line->text), now);
    }
}

std::string Gauge::FloodLine(std::int32_t, Time now) const { return Reading(now); }

bool Gauge::PressZeroKey(Time now) {
    if (keysEnabled_) {
        world_.Optics().ZeroGauge(now);
    }
    return keysEnabled_;
}

void Gauge::Obey(std::string_view command, Time now) {
    constexpr std::array<std::string_view, 4> known = {"Ar", "ARES", "KEYOFF", "KEYON"};
    Count(std::find(known.begin(), known.end(), command) == known.end() ? "unknown" : command);
    if (command == "Ar") {
        Say(garbage_ ? Garbage() : Reading(now));
    } else if (command == "ARES") {
        world_.Optics().ZeroGauge(now);
    } else if (command == "KEYOFF") {
        keysEnabled_ = false;
    } else if (command == "KEYON") {
        keysEnabled_ = true;
    }
}

std::string Gauge::Reading(Time now) const {
    const long units =
        std::clamp(std::lround(world_.Optics().GaugeReading(now)), -HighestReading, HighestReading);
    const long size = std::abs(units);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "A%c%02ld.%03ld\r\n", units < 0 ? '-' : '+', size / 1000,
                  size % 1000);
    return text.data();
}

std::string Gauge::Garbage() {
    constexpr std::string_view letters = "?#*%=/EL";
    std::string text = "A";
    std::uniform_int_distribution<std::size_t> any(0, letters.size() - 1);
    for (int place = 0; place < 7; ++place) {
        text += letters[any(chance_)];
    }
    return text.append(LineEnd);
}

}  // namespace workbench
