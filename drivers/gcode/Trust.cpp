#include "drivers/gcode/Trust.h"

#include <string_view>

#include "drivers/gcode/Files.h"
#include "drivers/gcode/Numbers.h"

namespace gcode {

namespace {

constexpr std::string_view Head = "needle ";
constexpr std::string_view Homed = " homed";
constexpr std::string_view Lost = " lost: ";

}  // namespace

void Trust::Load() {
    std::array<Entry, MostNeedles> read;
    const std::string text = ReadWholeFile(file_).value_or("");
    for (const std::string_view line : Split(text, '\n')) {
        const std::optional<std::int32_t> number =
            line.starts_with(Head) ? Natural(line.substr(Head.size(), 1)) : std::nullopt;
        if (!number || *number < 1 || *number > MostNeedles) {
            continue;
        }
        const std::string_view rest = line.substr(Head.size() + 1);
        Entry& entry = read[static_cast<std::size_t>(*number - 1)];
        entry.isHomed = rest == Homed;
        entry.lost = rest.starts_with(Lost) ? rest.substr(Lost.size()) : std::string_view();
    }
    for (std::size_t needle = 0; needle < entries_.size(); ++needle) {
        if (!entries_[needle].isUnwritten) {
            entries_[needle] = read[needle];
        }
    }
}

bool Trust::Lose(int needle, const std::string& why) {
    At(needle) = {false, false, why};
    At(needle).isUnwritten = !Save();
    return !At(needle).isUnwritten;
}

bool Trust::TakeAsHomed(int needle) {
    At(needle) = {true, false, {}};
    return Save();
}

bool Trust::Save() {
    std::string text;
    for (int needle = 1; needle <= MostNeedles; ++needle) {
        if (IsHomed(needle) || !LostBecause(needle).empty()) {
            text += std::string(Head) + std::to_string(needle) +
                    (IsHomed(needle) ? std::string(Homed) : std::string(Lost) + LostBecause(needle)) + "\n";
        }
    }
    return WriteWholeFile(file_, text);
}

}  // namespace gcode
