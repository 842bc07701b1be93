#include "experiment/bird/BirdStill.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

constexpr double Pi = 3.14159265358979;
constexpr std::uint32_t FourthByte = 0xFF000000U;
constexpr std::uint32_t AllThreeColours = 0x00010101U;
constexpr unsigned RedShift = 16;

// The three colour bytes for each value of the red one.
using GreyOfRed = std::array<std::uint32_t, 256>;

GreyOfRed Table(std::int32_t brightness, std::int32_t contrast) {
    const double k = std::tan((static_cast<double>(contrast) + 256) / 512 * Pi / 2);
    GreyOfRed table{};
    for (std::size_t red = 0; red < table.size(); ++red) {
        const double value = std::nearbyint((static_cast<double>(red) - 128) * k + 128) + brightness;
        table[red] = static_cast<std::uint32_t>(std::clamp(value, 0.0, 255.0)) * AllThreeColours;
    }
    return table;
}

}  // namespace

void ContrastAndBrightness(const PixelBuffer& BirdRaw, PixelBuffer& BirdDisplay, std::int32_t brightness,
                           std::int32_t contrast) {
    if (BirdRaw.BoundX() != BirdDisplay.BoundX() || BirdRaw.BoundY() != BirdDisplay.BoundY()) {
        ThrowBounds();
    }
    const GreyOfRed table = Table(brightness, contrast);
    const std::uint32_t* const raw = BirdRaw.Pixels().data();
    std::uint32_t* const display = BirdDisplay.Pixels().data();
    const std::size_t count = BirdDisplay.Pixels().size();
    for (std::size_t i = 0; i < count; ++i) {
        display[i] = (display[i] & FourthByte) | table[(raw[i] >> RedShift) & 0xFFU];
    }
}

}  // namespace travo
