// Programs that are asked about themselves alone.
#pragma once

#include <array>
#include <string_view>

namespace workbench {

// The program is asked for its help or its version: it opens no window then, and needs no display.
inline bool IsAskedAboutItself(int argumentCount, const char* const* arguments) {
    constexpr std::array<std::string_view, 5> Wishes{"-h", "--help", "--help-all", "-v", "--version"};
    for (int place = 1; place < argumentCount; ++place) {
        for (const std::string_view wish : Wishes) {
            if (arguments[place] == wish) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace workbench
