#include "drivers/gcode/tool/Wish.h"

#include <cstdlib>

#include "drivers/gcode/NeedleSettings.h"
#include "drivers/gcode/Numbers.h"
#include "drivers/gcode/tool/Commands.h"

namespace gcode {

const char* const HelpText =
    R"(Usage: travo-gcode [--folder FOLDER] COMMAND

Needles on motion controllers that speak G-code: what the driver of TRAVO does not do by itself.
TRAVO must not have the ports meanwhile: end it, or let it lose the needle first.

  list [--ask]        serial ports, with what answers there; with --ask also those of no needle
  check               settings, controllers, states, limits, and whether each axis is fast enough
  where [N]           positions in counts and in machine coordinates
  jog N AXIS COUNTS   move needle N along x, y or z by up to 1000 counts, forward or back
  home N              home needle N; says what will move, and asks
  unlock N            end the state in which needle N may not move; says what that means, and asks
  watch [SECONDS]     positions twice a second, until it is ended

  --folder FOLDER     where manipulators.ini lies; else beside this program, or in ~/.local/share/travo
  --help, --version

Exit code: 0 all is well, 1 something is not (a line on the standard error says what), 2 wrong command line.

Examples:
  travo-gcode check
  travo-gcode jog 1 x 100
  travo-gcode jog 1 z -50
  travo-gcode home 2
  travo-gcode --folder /opt/bench watch 10
)";

namespace {

using Command = Wish::Command;
using Words = std::vector<std::string>;

bool TakeNeedle(Wish& wish, const std::string& word, std::string& why) {
    const std::optional<std::int32_t> number = Natural(word);
    if (!number || *number < 1 || *number > MostNeedles) {
        why = "a needle is 1 to 4, not " + word;
        return false;
    }
    wish.needle = *number;
    return true;
}

bool TakeJog(Wish& wish, const Words& words, std::string& why) {
    const std::size_t axis =
        words[2].size() == 1 ? std::string_view("xyz").find(words[2]) : std::string_view::npos;
    const bool isBack = words[3].starts_with('-');
    const std::optional<std::int32_t> counts = Natural(std::string_view(words[3]).substr(isBack ? 1 : 0));
    if (axis == std::string_view::npos) {
        why = "an axis is x, y or z, not " + words[2];
    } else if (!counts || *counts == 0 || *counts > MostJogCounts) {
        why = "counts are 1 to 1000, or -1 to -1000, not " + words[3];
    } else {
        wish.axis = axis;
        wish.counts = isBack ? -*counts : *counts;
        return TakeNeedle(wish, words[1], why);
    }
    return false;
}

bool TakeSeconds(Wish& wish, const std::string& word, std::string& why) {
    wish.seconds = Natural(word).value_or(0);
    if (wish.seconds == 0) {
        why = "seconds are a whole number above 0, not " + word;
    }
    return wish.seconds > 0;
}

bool TakeCommand(Wish& wish, const Words& words, std::string& why) {
    const std::string command = words.empty() ? "" : words[0];
    const std::size_t count = words.size();
    const auto is = [&](const char* name, std::size_t least, std::size_t most, Command meant) {
        wish.command = meant;
        return command == name && count >= least && count <= most;
    };
    why = command.empty() ? "a command is missing" : "no such command: " + command;
    for (const char* name : {"list", "check", "where", "jog", "home", "unlock", "watch"}) {
        why = command == name ? "wrong words behind " + command : why;
    }
    if (is("list", 1, 2, Command::List)) {
        wish.asksOthers = count == 2;
        return count == 1 || words[1] == "--ask";
    }
    if (is("check", 1, 1, Command::Check)) {
        return true;
    }
    if (is("where", 1, 2, Command::Where)) {
        return count == 1 || TakeNeedle(wish, words[1], why);
    }
    if (is("jog", 4, 4, Command::Jog)) {
        return TakeJog(wish, words, why);
    }
    if (is("home", 2, 2, Command::Home) || is("unlock", 2, 2, Command::Unlock)) {
        return TakeNeedle(wish, words[1], why);
    }
    return is("watch", 1, 2, Command::Watch) && (count == 1 || TakeSeconds(wish, words[1], why));
}

}  // namespace

std::optional<Wish> ReadWish(const std::vector<std::string>& words, std::string& why) {
    Wish wish;
    Words rest;
    for (std::size_t index = 0; index < words.size(); ++index) {
        if (words[index] == "--help" || words[index] == "--version") {
            wish.command = words[index] == "--help" ? Command::Help : Command::Version;
            return wish;
        }
        if (words[index] == "--folder") {
            if (++index == words.size() || words[index].empty()) {
                why = "--folder needs a folder";
                return std::nullopt;
            }
            wish.folder = words[index];
        } else {
            rest.push_back(words[index]);
        }
    }
    return TakeCommand(wish, rest, why) ? std::optional(wish) : std::nullopt;
}

}  // namespace gcode
