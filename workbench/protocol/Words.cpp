#include "workbench/protocol/Words.h"

#include <algorithm>

namespace workbench {

Words SplitWords(std::string_view line) {
    constexpr std::string_view blanks = " \t\r";
    Words words;
    std::size_t begin = line.find_first_not_of(blanks);
    while (begin != std::string_view::npos) {
        const std::size_t end = std::min(line.find_first_of(blanks, begin), line.size());
        words.push_back(line.substr(begin, end - begin));
        begin = line.find_first_not_of(blanks, end);
    }
    return words;
}

}  // namespace workbench
