// What went over the wires, through the driver, and happened in the world: the latest of it, to be read on
// from any place.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "workbench/world/Travel.h"

namespace workbench {

// A record reads "ms/source/kind/bytes" and is one word: bytes as in a log, and a blank as \x20, a slash as
// \x2f.
class Traffic {
public:
    static constexpr std::size_t Kept = 4000;
    // So many are told at a time.
    static constexpr std::size_t Told = 40;

    void Take(Time time, std::string_view source, std::string_view kind, std::string_view bytes);

    // The serial to ask for next, how many records from the wanted one on are lost, and then up to Told
    // records from it on, with a blank before each word. The first record has the serial 0; beyond the newest
    // there is nothing, and the one that comes next is the one to ask for.
    std::string From(std::int64_t serial) const;

private:
    std::deque<std::string> records_;
    std::int64_t next_ = 0;
};

}  // namespace workbench
