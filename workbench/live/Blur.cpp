#include "workbench/live/Blur.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace workbench::live {

namespace {

constexpr int Channels = 4;
// Three running means one after the other come close to a Gaussian.
constexpr int Passes = 3;

// Channel values in memory order; what lies beyond the ends is transparent.
using Bytes = std::vector<uchar>;

// Divides by a running mean's width without a division: exact for sums of bytes over such widths.
class Mean {
public:
    explicit Mean(int reach) : factor_((1U << 16U) / static_cast<std::uint32_t>(2 * reach + 1) + 1U) {}
    uchar Of(std::uint32_t sum) const {
        return static_cast<uchar>(std::min<std::uint32_t>(255U, sum * factor_ >> 16U));
    }

private:
    std::uint32_t factor_;
};

// The row's running mean; `copy` is room for it as it was.
void MeanAlongRow(uchar* row, int width, int reach, Bytes& copy) {
    const Mean mean(reach);
    copy.assign(row, row + static_cast<std::ptrdiff_t>(width) * Channels);
    for (int channel = 0; channel < Channels; ++channel) {
        const uchar* const from = copy.data() + channel;
        std::uint32_t sum = 0;
        for (int x = 0; x < std::min(reach, width); ++x) {
            sum += from[x * Channels];
        }
        for (int x = 0; x < width; ++x) {
            sum += x + reach < width ? from[(x + reach) * Channels] : 0U;
            sum -= x - reach - 1 >= 0 ? from[(x - reach - 1) * Channels] : 0U;
            row[x * Channels + channel] = mean.Of(sum);
        }
    }
}

void AddRow(std::vector<std::uint32_t>& sums, const uchar* row) {
    for (std::size_t index = 0; index < sums.size(); ++index) {
        sums[index] += row[index];
    }
}

void SubtractRow(std::vector<std::uint32_t>& sums, const uchar* row) {
    for (std::size_t index = 0; index < sums.size(); ++index) {
        sums[index] -= row[index];
    }
}

// All columns at once, row by row: memory is read in its order.
void MeanAlongColumns(QImage& image, int reach) {
    const Mean mean(reach);
    const QImage from = image.copy();
    const int height = image.height();
    std::vector<std::uint32_t> sums(static_cast<std::size_t>(image.width()) * Channels, 0U);
    for (int y = 0; y < std::min(reach, height); ++y) {
        AddRow(sums, from.constScanLine(y));
    }
    for (int y = 0; y < height; ++y) {
        if (y + reach < height) {
            AddRow(sums, from.constScanLine(y + reach));
        }
        if (y - reach - 1 >= 0) {
            SubtractRow(sums, from.constScanLine(y - reach - 1));
        }
        uchar* const row = image.scanLine(y);
        for (std::size_t index = 0; index < sums.size(); ++index) {
            row[index] = mean.Of(sums[index]);
        }
    }
}

}  // namespace

void BlurImage(QImage& image, double radius) {
    const int reach = static_cast<int>(std::lround(radius / 2.0));
    if (reach < 1) {
        return;
    }
    Bytes copy;
    for (int pass = 0; pass < Passes; ++pass) {
        for (int y = 0; y < image.height(); ++y) {
            MeanAlongRow(image.scanLine(y), image.width(), reach, copy);
        }
        MeanAlongColumns(image, reach);
    }
}

}  // namespace workbench::live
