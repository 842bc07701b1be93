// What has been received from the Magnescale gauge, and the reading in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace travo {

// Pure text in, a reading out, in time in proportion to what is received. Noise ahead of a reading is
// dropped where it is longer than MostLineBytes: what is kept is bounded.
class GaugeText {
public:
    void Append(std::string_view received) { text_ += received; }

    // The first "A" and the seven characters behind it; none while they have not all arrived. What
    // stands ahead of the "A" is noise.
    std::optional<std::string_view> Reading();

    // True where noise has been dropped: once, however much of it comes.
    bool TakeDropped() { return std::exchange(dropped_, false); }

private:
    void DropNoise();

    std::string text_;
    std::size_t search_ = 0;  // no "A" stands ahead of here
    bool dropped_ = false;
    bool hasDropped_ = false;
};

// The number in a reading, times 1000, to the nearest whole number with ties to even. The number is an
// optional sign, digits and at most one point, in all seven characters behind the "A"; none for any
// other text and for a number beyond 32 bits.
std::optional<std::int32_t> GaugeCount(std::string_view reading);

}  // namespace travo
