// travo-driver-check: says of a library which clauses of the contract of a driver it keeps.
#include <getopt.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>

#include "drivers/TravoDriver.h"
#include "drivers/check/Farewell.h"
#include "drivers/check/MoveChecks.h"

namespace {

constexpr int Clean = 0;
constexpr int Breached = 1;
constexpr int WrongUse = 2;
// The jog of TRAVO's connection panel goes as far.
constexpr std::int32_t UsualReach = 50;

constexpr const char* Help =
    "Usage: travo-driver-check [--move [--reach COUNTS]] LIBRARY\n"
    "Loads a driver library in a process of its own and says which clauses of the contract of a driver it\n"
    "keeps, as far as they can be seen. The contract is drivers/TravoDriver.h, the clauses are in\n"
    "docs/driver-kit.md.\n"
    "\n"
    "Without --move nothing is set in motion: manipulators are selected, read and connected anew.\n"
    "\n"
    "  --move           also move each connected needle, and bring it back to where it stood\n"
    "  --reach COUNTS   how far from where it stands a needle may be moved on each axis, 1 to 25000;\n"
    "                   50 where nothing is said, 400 and more show every clause\n"
    "  -h, --help       show this\n"
    "  -v, --version    show the version\n"
    "\n"
    "Exit code: 0 no breach found, 1 a breach, 2 wrong use or no such library.\n"
    "\n"
    "Examples:\n"
    "  travo-driver-check ./libManipulatorDriver.so\n"
    "  travo-driver-check --move --reach 400 ./libManipulatorDriver.so\n";

struct Options {
    std::string library;
    bool move = false;
    std::int32_t reach = UsualReach;
};

// Nothing where the text is no number from 1 to the whole range.
std::optional<std::int32_t> ReachOf(const char* text) {
    char* end = nullptr;
    const long reach = std::strtol(text, &end, 10);
    if (end == text || *end != 0 || reach < 1 || reach > TRAVO_DRIVER_HIGHEST_COUNT) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(reach);
}

int Misuse(const std::string& what) {
    std::fprintf(stderr, "travo-driver-check: %s\nTry --help.\n", what.c_str());
    return WrongUse;
}

// An exit code where there is nothing to check.
std::optional<int> ReadOptions(int count, char** arguments, Options& options) {
    const option known[] = {{"move", no_argument, nullptr, 'm'},
                            {"reach", required_argument, nullptr, 'r'},
                            {"help", no_argument, nullptr, 'h'},
                            {"version", no_argument, nullptr, 'v'},
                            {}};
    bool hasReach = false;
    for (int letter = 0; (letter = getopt_long(count, arguments, "hv", known, nullptr)) != -1;) {
        if (letter == 'h') {
            std::fputs(Help, stdout);
            return Clean;
        }
        if (letter == 'v') {
            std::puts("travo-driver-check " TRAVO_VERSION);
            return Clean;
        }
        if (letter == 'm') {
            options.move = true;
            continue;
        }
        const auto reach = letter == 'r' ? ReachOf(optarg) : std::nullopt;
        if (!reach) {
            return letter == 'r' ? Misuse(std::string("--reach is 1 to 25000, not ") + optarg) : WrongUse;
        }
        options.reach = *reach;
        hasReach = true;
    }
    if (hasReach && !options.move) {
        return Misuse("--reach goes with --move");
    }
    if (optind + 1 != count) {
        return Misuse("one library is wanted");
    }
    std::error_code error;
    options.library = std::filesystem::canonical(arguments[optind], error).string();
    if (error) {
        return Misuse(std::string(arguments[optind]) + ": " + error.message());
    }
    return std::nullopt;
}

int Check(const Options& options) {
    check::Trial trial(options.library);
    check::Report report;
    check::Session session(trial, report);
    const check::Standing standing = check::CheckStanding(session, report);
    if (options.move && !session.IsGone()) {
        check::CheckMoves(standing, options.reach, session, report);
    } else {
        for (const auto clause :
             {check::Clause::Taken, check::Clause::Returns, check::Clause::TruePlace, check::Clause::Straight,
              check::Clause::Arrival, check::Clause::Refusal, check::Clause::Stop}) {
            report.Miss(clause, "only --move shows it");
        }
    }
    session.ReportTimes();
    check::CheckFarewell(trial, session, report);
    std::printf("%s\n%s", options.library.c_str(), report.Table().c_str());
    return report.Breaches() > 0 ? Breached : Clean;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        Options options;
        const auto ending = ReadOptions(count, arguments, options);
        return ending ? *ending : Check(options);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "travo-driver-check: %s\n", failure.what());
        return WrongUse;
    }
}
