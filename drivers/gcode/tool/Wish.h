// What the command line of travo-gcode asks for.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace gcode {

struct Wish {
    enum class Command { Help, Version, List, Check, Where, Jog, Home, Unlock, Watch };
    Command command = Command::Help;
    std::string folder;    // empty for the usual one
    int needle = 0;        // 1 to 4; 0 for all
    std::size_t axis = 0;  // of jog
    int counts = 0;        // of jog
    int seconds = 0;       // of watch; 0 without end
    bool asksOthers = false;
};

// The words behind the program's name. None where they make no command: `why` then says what is wrong.
std::optional<Wish> ReadWish(const std::vector<std::string>& words, std::string& why);

// What --help prints.
extern const char* const HelpText;

}  // namespace gcode
