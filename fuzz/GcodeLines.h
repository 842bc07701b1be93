// What the fuzz targets of the G-code readers do with their bytes: as the driver does, line by line.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "drivers/gcode/Line.h"

namespace gcode::fuzz {

// A wire that has said all that it will say, in pieces of the length that its first byte gives.
class Said : public Wire {
public:
    explicit Said(std::string_view bytes)
        : piece_(bytes.empty() ? 1 : 1 + static_cast<unsigned char>(bytes.front())), bytes_(bytes) {}
    bool Write(std::string_view) override { return true; }
    Reception Read(std::string& into, Time) override {
        if (bytes_.empty()) {
            return Reception::Nothing;
        }
        into += bytes_.substr(0, piece_);
        bytes_.remove_prefix(std::min(bytes_.size(), piece_));
        return Reception::Bytes;
    }
    Time Now() const override { return Time(0); }

private:
    std::size_t piece_;
    std::string_view bytes_;
};

inline void Demand(bool holds, const char* what, std::string_view line) {
    if (!holds) {
        std::fprintf(stderr, "%s: %.*s\n", what, static_cast<int>(line.size()), line.data());
        std::abort();
    }
}

template <typename Take>
int EachLine(const std::uint8_t* data, std::size_t size, Take&& take) {
    Said wire(std::string_view(reinterpret_cast<const char*>(data), size));
    Line line(wire);
    while (const std::optional<std::string> text = line.Next(Time(1))) {
        Demand(!text->empty() && text->size() <= Line::LongestLine, "a line of that length", *text);
        for (const char byte : *text) {
            Demand((byte >= ' ' && byte <= '~') || byte == '\t', "a byte that is no text", *text);
        }
        take(*text);
    }
    return 0;
}

}  // namespace gcode::fuzz
