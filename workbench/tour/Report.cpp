#include "workbench/tour/Report.h"

#include <array>
#include <cstdio>

namespace workbench::tour {

void PrintHeading(const std::string& text) {
    std::printf("\n%s\n", text.c_str());
    std::fflush(stdout);
}

void PrintLine(const std::string& text) {
    std::printf("  %s\n", text.c_str());
    std::fflush(stdout);
}

std::string PlaceText(double x, double y, double z) {
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "(%.1f, %.1f, %.1f)", x, y, z);
    return text.data();
}

}  // namespace workbench::tour
