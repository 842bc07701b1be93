#include "drivers/gcode/GrblReader.h"

#include <array>
#include <utility>

#include "drivers/gcode/Numbers.h"

namespace gcode {

namespace {

constexpr std::array<std::pair<std::string_view, GrblState>, 9> States{{
    {"Idle", GrblState::Idle},
    {"Run", GrblState::Run},
    {"Jog", GrblState::Jog},
    {"Hold", GrblState::Hold},
    {"Home", GrblState::Home},
    {"Door", GrblState::Door},
    {"Alarm", GrblState::Alarm},
    {"Check", GrblState::Check},
    {"Sleep", GrblState::Sleep},
}};

// "Data values are given as codes or as numbers": a field that we do not read must look like one all the
// same.
bool IsField(std::string_view field) {
    const std::string_view name = field.substr(0, field.find(':'));
    return !name.empty() && name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz") ==
                                std::string_view::npos;
}

// All axes are written with one number of decimals, at least one: a triple that has lost a digit behind a
// point gives itself away.
std::optional<Millimetres> Axes(std::string_view text) {
    std::size_t decimals = 0;
    for (const std::string_view part : Split(text, ',')) {
        const std::size_t point = part.find('.');
        const std::size_t own = point == std::string_view::npos ? 0 : part.size() - point - 1;
        if (own == 0 || (decimals != 0 && own != decimals)) {
            return std::nullopt;
        }
        decimals = own;
    }
    return DecimalTriple(text);
}

bool TakeState(GrblStatus& status, std::string_view field) {
    const std::size_t colon = field.find(':');
    if (colon != std::string_view::npos && !Natural(field.substr(colon + 1))) {
        return false;
    }
    status.stateText = field;
    for (const auto& [name, state] : States) {
        if (field.substr(0, colon) == name) {
            status.state = state;
        }
    }
    return IsField(field);
}

bool TakeAxes(std::optional<Millimetres>& target, std::string_view field) {
    const bool isFirst = !target;
    target = Axes(field.substr(field.find(':') + 1));
    return isFirst && target;
}

// "The first (Machine State) and second (Current Position) data fields are always included"; the others may
// be there or not, in any order.
std::optional<GrblStatus> Status(std::string_view report) {
    GrblStatus status;
    const std::vector<std::string_view> fields = Split(report, '|');
    if (fields.size() < 2 || report.find_first_of("<>") != std::string_view::npos ||
        !TakeState(status, fields[0])) {
        return std::nullopt;
    }
    const bool isMachine = fields[1].starts_with("MPos:");
    if ((!isMachine && !fields[1].starts_with("WPos:")) ||
        !TakeAxes(isMachine ? status.machine : status.work, fields[1])) {
        return std::nullopt;
    }
    for (std::size_t index = 2; index < fields.size(); ++index) {
        const std::string_view field = fields[index];
        if (!IsField(field) || field.starts_with("MPos:") || field.starts_with("WPos:") ||
            (field.starts_with("WCO:") && !TakeAxes(status.workOffset, field))) {
            return std::nullopt;
        }
    }
    return status;
}

std::optional<int> NumberBehind(std::string_view line, std::string_view head) {
    return line.starts_with(head) ? Natural(line.substr(head.size())) : std::nullopt;
}

GrblLine Setting(std::string_view line) {
    const std::size_t sign = line.find('=');
    const std::optional<int> number =
        sign == std::string_view::npos ? std::nullopt : Natural(line.substr(1, sign - 1));
    const std::optional<double> value = number ? Decimal(line.substr(sign + 1)) : std::nullopt;
    return value ? GrblLine{GrblLine::Kind::Setting, *number, *value, {}, {}} : GrblLine{};
}

}  // namespace

GrblLine ReadGrbl(std::string_view line) {
    using Kind = GrblLine::Kind;
    if (line.empty()) {
        return {};
    }
    if (line == "ok") {
        return {Kind::Ok, 0, 0, {}, {}};
    }
    if (const std::optional<int> number = NumberBehind(line, "error:")) {
        return {Kind::Error, *number, 0, {}, {}};
    }
    if (const std::optional<int> number = NumberBehind(line, "ALARM:")) {
        return {Kind::Alarm, *number, 0, {}, {}};
    }
    if (line.find('<') != std::string_view::npos || line.find('|') != std::string_view::npos) {
        std::optional<GrblStatus> status;
        if (line.size() > 2 && line.front() == '<' && line.back() == '>') {
            status = Status(line.substr(1, line.size() - 2));
        }
        return status ? GrblLine{Kind::Status, 0, 0, {}, *std::move(status)}
                      : GrblLine{Kind::Broken, 0, 0, std::string(line), {}};
    }
    // "Grbl X.Xx ['$' for help]"; kin have their own name in front of the same words. A start-up text that
    // has lost a byte is still one: nothing else that a controller says begins so.
    if (line.starts_with("Grbl ") || line.starts_with("GrblHAL ") ||
        line.find("for help]") != std::string_view::npos) {
        return {Kind::Banner, 0, 0, std::string(line), {}};
    }
    if (line.front() == '[' && line.back() == ']') {
        return {Kind::Message, 0, 0, std::string(line.substr(1, line.size() - 2)), {}};
    }
    if (line.front() == '>') {
        return {Kind::Startup, 0, 0, std::string(line), {}};
    }
    if (line.front() == '$') {
        return Setting(line);
    }
    return {Kind::Other, 0, 0, std::string(line), {}};
}

std::string_view GrblAlarmText(int number) {
    static constexpr std::array<std::string_view, 10> Texts{
        "",
        "a limit switch was hit; the position is probably lost",
        "a target beyond the machine's travel; the position is kept",
        "reset while in motion; the position is probably lost",
        "the probe was not in its expected state",
        "the probe did not touch",
        "homing failed: reset",
        "homing failed: the door was opened",
        "homing failed: the limit switch did not clear",
        "homing failed: no limit switch found",
    };
    return number > 0 && static_cast<std::size_t>(number) < Texts.size()
               ? Texts[static_cast<std::size_t>(number)]
               : std::string_view();
}

}  // namespace gcode
