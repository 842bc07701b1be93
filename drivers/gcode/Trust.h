// Which needles' positions count: manipulators.state beside the settings, which outlives driver and
// travo-gcode.
#pragma once

#include <array>
#include <string>

#include "drivers/gcode/NeedleSettings.h"

namespace gcode {

// One line for each needle of which something is known: "needle 2 homed", or "needle 2 lost: " and why. A
// file that cannot be read says nothing; what cannot be written holds for this object all the same.
class Trust {
public:
    explicit Trust(std::string file) : file_(std::move(file)) {}

    // Reads the file anew; a loss that could not be written stays.
    void Load();
    // Why the position of a needle (1 to 4) does not count; empty where nothing is known against it.
    const std::string& LostBecause(int needle) const { return At(needle).lost; }
    bool IsHomed(int needle) const { return At(needle).isHomed; }

    // Both write the file, and say whether they could.
    bool Lose(int needle, const std::string& why);
    bool TakeAsHomed(int needle);

private:
    struct Entry {
        bool isHomed = false;
        bool isUnwritten = false;
        std::string lost;
    };
    const Entry& At(int needle) const { return entries_[static_cast<std::size_t>(needle - 1)]; }
    Entry& At(int needle) { return entries_[static_cast<std::size_t>(needle - 1)]; }
    bool Save();

    std::string file_;
    std::array<Entry, MostNeedles> entries_;
};

}  // namespace gcode
