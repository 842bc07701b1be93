#include "drivers/check/CheckedLibrary.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <sstream>

namespace check {

std::vector<std::string> Result::Clauses(const std::string& verdict) const {
    std::vector<std::string> names;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string name;
        std::string second;
        std::string third;
        words >> name >> second >> third;
        if (second == verdict || second + ' ' + third == verdict) {
            names.push_back(name);
        }
    }
    return names;
}

std::string Result::Row(const std::string& clause) const {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind(clause + ' ', 0) == 0) {
            return line;
        }
    }
    return {};
}

Result RunCheck(const std::string& arguments) {
    Result result;
    FILE* program = popen((std::string(DRIVER_CHECK) + " " + arguments + " 2>&1").c_str(), "r");
    std::array<char, 1024> piece{};
    while (const std::size_t count = fread(piece.data(), 1, piece.size(), program)) {
        result.text.append(piece.data(), count);
    }
    const int status = pclose(program);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

std::string Planted(const std::string& fault) { return std::string(PLANTED_FOLDER "/") + fault + ".so"; }

}  // namespace check
