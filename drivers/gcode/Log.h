// manipulators.log beside the settings: what a person can do something about.
#pragma once

#include <string>
#include <string_view>

namespace gcode {

// Lines with date and time. Beyond 1 MB the file becomes manipulators.log.1, in the place of the one before,
// and a new one begins. A log that cannot be written is no failure of anything.
class Log {
public:
    static constexpr long MostBytes = 1024 * 1024;

    // None is written with an empty name.
    explicit Log(std::string file) : file_(std::move(file)) {}

    void Write(std::string_view text) const;

private:
    std::string file_;
};

}  // namespace gcode
