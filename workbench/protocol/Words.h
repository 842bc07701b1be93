// Words of a command line.
#pragma once

#include <string_view>
#include <vector>

namespace workbench {

using Words = std::vector<std::string_view>;

// Split at blanks and tabs; a CR at the end counts as a blank.
Words SplitWords(std::string_view line);

}  // namespace workbench
