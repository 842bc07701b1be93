#include "workbench/live/Blur.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace workbench::live {

namespace {

constexpr int Channels = 4;
// Three running means one after the other come close to a Gaussian.
constexpr int Passes = 3;

using Sum = std::array<int, Channels>;

// A row or a column of pixels; what lies beyond its ends is transparent.
struct Line {
    uchar* first;
    int count;
    std::ptrdiff_t step;

    uchar* At(int index) const { return first + index * step; }
};

void Add(Sum& sum, const uchar* pixel, int sign) {
    for (int channel = 0; channel < Channels; ++channel) {
        sum[static_cast<std::size_t>(channel)] += sign * pixel[channel];
    }
}

void RunningMean(const Line& line, int reach, std::vector<uchar>& copy) {
    copy.resize(static_cast<std::size_t>(line.count) * Channels);
    for (int index = 0; index < line.count; ++index) {
        std::copy_n(line.At(index), Channels, copy.data() + index * Channels);
    }
    const int width = 2 * reach + 1;
    Sum sum{};
    for (int index = 0; index < std::min(reach, line.count); ++index) {
        Add(sum, copy.data() + index * Channels, 1);
    }
    for (int index = 0; index < line.count; ++index) {
        if (index + reach < line.count) {
            Add(sum, copy.data() + (index + reach) * Channels, 1);
        }
        if (index - reach - 1 >= 0) {
            Add(sum, copy.data() + (index - reach - 1) * Channels, -1);
        }
        uchar* const pixel = line.At(index);
        for (int channel = 0; channel < Channels; ++channel) {
            pixel[channel] = static_cast<uchar>(sum[static_cast<std::size_t>(channel)] / width);
        }
    }
}

}  // namespace

void BlurImage(QImage& image, double radius) {
    const int reach = static_cast<int>(std::lround(radius / 2.0));
    if (reach < 1) {
        return;
    }
    uchar* const bits = image.bits();
    const std::ptrdiff_t row = image.bytesPerLine();
    std::vector<uchar> copy;
    for (int pass = 0; pass < Passes; ++pass) {
        for (int y = 0; y < image.height(); ++y) {
            RunningMean({bits + y * row, image.width(), Channels}, reach, copy);
        }
        for (int x = 0; x < image.width(); ++x) {
            RunningMean({bits + x * Channels, image.height(), row}, reach, copy);
        }
    }
}

}  // namespace workbench::live
