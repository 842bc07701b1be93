#include "workbench/commands/DeskSettings.h"

#include <array>
#include <cstdint>

namespace workbench {

namespace {

// The control program counts 15 logical units to a pixel.
constexpr std::int32_t UnitsOfAPixel = 15;

// Pixels: the frame's place and the inner size.
struct Place {
    const char* section;
    std::int32_t left;
    std::int32_t top;
    std::int32_t width;
    std::int32_t height;
};
// All in their own sizes but the bird's-eye view, which is as small as it goes: the strip is 316 high.
constexpr std::array<Place, 5> Places = {{{"FormMain_Position", 0, 0, 520, 624},
                                          {"FormMirror2_Position", 644, 892, 276, 192},
                                          {"FormBirdView_Position", 925, 885, 369, 314},
                                          {"FormMirror_Position", 1299, 892, 276, 222},
                                          {"FormManiInfo_Position", 1580, 892, 340, 300}}};

// Camera, bird's-eye view, mirror, needles, magnification: 0 is open.
constexpr std::array<std::int32_t, 5> Windows = {0, 0, 1, 1, 0};

std::string Line(const char* key, std::int32_t value) {
    return std::string(key) + "=" + std::to_string(value) + "\r\n";
}

}  // namespace

std::string DeskSettingsText() {
    std::string text;
    for (const Place& place : Places) {
        text += "[" + std::string(place.section) + "]\r\n";
        text += Line("Top", place.top * UnitsOfAPixel) + Line("Left", place.left * UnitsOfAPixel) +
                Line("Height", place.height * UnitsOfAPixel) + Line("Width", place.width * UnitsOfAPixel);
    }
    text += "[Window]\r\n";
    for (std::size_t window = 0; window < Windows.size(); ++window) {
        text += Line(std::to_string(window).c_str(), Windows[window]);
    }
    return text + "[User_Value]\r\n" + Line("XYOffset", 0) + Line("ZOffset", 100) + Line("OffsetOFF", 0) +
           Line("ContactOFF", 0) + Line("LineOFF", 0) + Line("BirdOPEN", 0);
}

}  // namespace workbench
