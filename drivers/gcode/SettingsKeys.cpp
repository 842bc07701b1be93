#include "drivers/gcode/SettingsKeys.h"

#include <array>
#include <utility>

#include "drivers/gcode/Numbers.h"

namespace gcode {

namespace {

constexpr double MostCountsPerMm = 1000000;
constexpr double MostSpeed = 1000;           // mm/s
constexpr double MostAcceleration = 100000;  // mm/s²
constexpr int LeastBaud = 300;
constexpr int MostBaud = 4000000;

std::string TakePort(NeedleSettings& needle, std::string_view value) {
    if (value.front() != '/') {
        return "the port must be the whole path of a device, such as /dev/serial/by-id/usb-…";
    }
    needle.port = value;
    return {};
}

std::string TakeDialect(NeedleSettings& needle, std::string_view value) {
    for (const DialectName dialect : {DialectName::Grbl, DialectName::Marlin, DialectName::Omm}) {
        if (value == Name(dialect)) {
            needle.dialect = dialect;
            return {};
        }
    }
    return "the dialect must be grbl, marlin or omm";
}

std::string TakeBaud(NeedleSettings& needle, std::string_view value) {
    const std::optional<std::int32_t> baud = Natural(value);
    if (!baud || *baud < LeastBaud || *baud > MostBaud) {
        return "the baud rate must be a whole number from 300 to 4000000";
    }
    needle.baud = *baud;
    return {};
}

std::string TakePositive(double& target, std::string_view value, double most) {
    const std::optional<double> number = Decimal(value);
    if (!number || *number <= 0 || *number > most) {
        return "must be a number above 0, to " + Fixed(most, 0);
    }
    target = *number;
    return {};
}

std::string TakePositive(std::optional<double>& target, std::string_view value, double most) {
    double number = 0;
    std::string wrong = TakePositive(number, value, most);
    if (wrong.empty()) {
        target = number;
    }
    return wrong;
}

std::string TakeAxis(NeedleSettings& needle, std::size_t own, std::string_view value) {
    const std::size_t axis =
        value.size() == 2 ? std::string_view("XYZ").find(value[1]) : std::string_view::npos;
    if (axis == std::string_view::npos || (value[0] != '+' && value[0] != '-')) {
        return "must be a sign and an axis of the controller: +X, -X, +Y, -Y, +Z or -Z";
    }
    needle.axes[own] = {axis, value[0] == '-' ? -1 : 1};
    return {};
}

template <typename Target>
std::string TakeTriple(Target& target, std::string_view value) {
    const std::vector<std::string_view> parts = Split(value, ',');
    Millimetres triple{};
    for (std::size_t part = 0; parts.size() == triple.size() && part < triple.size(); ++part) {
        const std::optional<double> number = Decimal(Trimmed(parts[part]));
        if (!number) {
            return "must be three numbers between commas";
        }
        triple[part] = *number;
    }
    if (parts.size() != triple.size()) {
        return "must be three numbers between commas";
    }
    target = triple;
    return {};
}

std::string TakeWord(bool& target, std::string_view value, std::string_view yes, std::string_view no) {
    if (value != yes && value != no) {
        return "must be " + std::string(yes) + " or " + std::string(no);
    }
    target = value == yes;
    return {};
}

using Taker = std::string (*)(NeedleSettings&, std::string_view);

constexpr std::array<std::pair<std::string_view, Taker>, 14> Keys{{
    {"port", TakePort},
    {"dialect", TakeDialect},
    {"baud", TakeBaud},
    {"counts-per-mm",
     [](NeedleSettings& needle, std::string_view value) {
         return TakePositive(needle.countsPerMm, value, MostCountsPerMm);
     }},
    {"x", [](NeedleSettings& needle, std::string_view value) { return TakeAxis(needle, 0, value); }},
    {"y", [](NeedleSettings& needle, std::string_view value) { return TakeAxis(needle, 1, value); }},
    {"z", [](NeedleSettings& needle, std::string_view value) { return TakeAxis(needle, 2, value); }},
    {"zero", [](NeedleSettings& needle, std::string_view value) { return TakeTriple(needle.zero, value); }},
    {"speed-limit", [](NeedleSettings& needle,
                       std::string_view value) { return TakePositive(needle.speedLimit, value, MostSpeed); }},
    {"acceleration",
     [](NeedleSettings& needle, std::string_view value) {
         return TakePositive(needle.acceleration, value, MostAcceleration);
     }},
    {"min", [](NeedleSettings& needle, std::string_view value) { return TakeTriple(needle.min, value); }},
    {"max", [](NeedleSettings& needle, std::string_view value) { return TakeTriple(needle.max, value); }},
    {"homing",
     [](NeedleSettings& needle, std::string_view value) {
         return TakeWord(needle.homingRequired, value, "required", "none");
     }},
    {"quick-stop",
     [](NeedleSettings& needle, std::string_view value) {
         return TakeWord(needle.quickStopKeepsPosition, value, "keep", "distrust");
     }},
}};

}  // namespace

bool IsKey(std::string_view key) {
    for (const auto& [name, take] : Keys) {
        if (name == key) {
            return true;
        }
    }
    return false;
}

std::string TakeValue(NeedleSettings& needle, std::string_view key, std::string_view value) {
    if (value.empty()) {
        return "has no value";
    }
    for (const auto& [name, take] : Keys) {
        if (name == key) {
            return take(needle, value);
        }
    }
    return "is not a key";
}

std::string WrongTogether(const NeedleSettings& needle) {
    const auto& axes = needle.axes;
    if (axes[0].axis == axes[1].axis || axes[1].axis == axes[2].axis || axes[0].axis == axes[2].axis) {
        return "x, y and z must be three different axes of the controller";
    }
    for (std::size_t axis = 0; needle.min && needle.max && axis < axes.size(); ++axis) {
        if ((*needle.min)[axis] >= (*needle.max)[axis]) {
            return "min must lie below max on every axis";
        }
    }
    // Its manual has no command that tells them.
    if (needle.dialect == DialectName::Omm && (!needle.speedLimit || !needle.acceleration)) {
        return "speed-limit and acceleration are needed: a controller of the dialect omm does not tell them";
    }
    return {};
}

}  // namespace gcode
