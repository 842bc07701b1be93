// What every fuzz target does with its bytes.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "devices/links/LinkComparison.h"

namespace travo::fuzz {

// Ends the process where a link and its reference let out different things.
template <typename Compare>
int Compared(const std::uint8_t* data, std::size_t size, Compare&& compare) {
    const test::LinkComparison result = compare(std::string_view(reinterpret_cast<const char*>(data), size));
    if (result.link != result.reference) {
        for (const auto& [name, events] : {std::pair("link", result.link), {"reference", result.reference}}) {
            for (const std::string& event : events) {
                std::fprintf(stderr, "%s: %s\n", name, event.c_str());
            }
        }
        std::abort();
    }
    return 0;
}

}  // namespace travo::fuzz
