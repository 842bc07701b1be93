// How every part of the window speaks to the bench.
#pragma once

#include <functional>
#include <string>

namespace workbench {

// Takes a command line without its LF and gives the answer: "ok" and values, or "error" and a sentence.
using Ask = std::function<std::string(const std::string& line)>;

}  // namespace workbench
