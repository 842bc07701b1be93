// travo-driver-check, run on a library.
#pragma once

#include <string>
#include <vector>

namespace check {

struct Result {
    int exitCode = -1;  // -1 where it has not ended by itself
    std::string text;   // both streams

    // Names of the clauses with this verdict, as in the table.
    std::vector<std::string> Clauses(const std::string& verdict) const;
    // What the table says of one clause.
    std::string Row(const std::string& clause) const;
};

// Runs it with these arguments, in the words of a shell.
Result RunCheck(const std::string& arguments);
// The path of the library with this fault.
std::string Planted(const std::string& fault);

}  // namespace check
