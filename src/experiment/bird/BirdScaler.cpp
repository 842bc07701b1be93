#include "experiment/bird/BirdScaler.h"

#include <algorithm>
#include <cstring>
#include <numeric>

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

// So that the sums of a target pixel fit 32 bits, and their division by multiplication is exact.
constexpr int GreatestSide = 3000;
constexpr int Channels = 4;
constexpr QRgb FourthByte = 0xFF000000U;

// The source pixel under the middle of a target pixel.
int SourcePlace(int place, int from, int to) {
    return static_cast<int>((2 * std::int64_t{place} + 1) * from / (2 * std::int64_t{to}));
}

QRgb* Row(QImage& image, int y) { return reinterpret_cast<QRgb*>(image.scanLine(y)); }
const QRgb* Row(const QImage& image, int y) { return reinterpret_cast<const QRgb*>(image.constScanLine(y)); }

// Sums to their means, to nearest with ties to even.
class Mean {
public:
    explicit Mean(std::uint32_t total)
        : half_(total / 2),
          reciprocal_((Fraction + total) / total),
          tie_(total % 2 == 0 ? reciprocal_ : std::uint64_t{0}) {}

    std::uint32_t Of(std::uint32_t sum) const {
        const std::uint64_t product = (sum + half_) * reciprocal_;
        const auto mean = static_cast<std::uint32_t>(product >> Shift);
        // Without a remainder the fraction is less than one part in `total`: the sum lay in the middle.
        if ((product & Fraction) < tie_) [[unlikely]] {
            return mean - (mean & 1U);
        }
        return mean;
    }

private:
    // 256 * 2^55 fits 64 bits; exact as long as 256 * total * total stays below 2^55.
    static constexpr unsigned Shift = 55;
    static constexpr std::uint64_t Fraction = (std::uint64_t{1} << Shift) - 1;
    std::uint64_t half_;
    std::uint64_t reciprocal_;
    std::uint64_t tie_;
};

// Two sums in one number, which are multiplied and added at once: neither runs over into the other.
std::uint64_t Pair(const std::uint32_t* sums) { return sums[0] | (std::uint64_t{sums[1]} << 32U); }
std::uint32_t LowerHalf(std::uint64_t pair) { return static_cast<std::uint32_t>(pair); }
std::uint32_t UpperHalf(std::uint64_t pair) { return static_cast<std::uint32_t>(pair >> 32U); }

// What ScaleMean makes of a canvas of twice the width and height, in steps that the compiler turns into
// vectors: the usual case, a window of design size on a screen of scale 1. Two channels to a number, each of
// them in 16 bits, of which four times 255 takes ten.
void HalveRows(const QRgb* upper, const QRgb* lower, QRgb* to, int width) {
    constexpr QRgb Even = 0x00FF00FFU;
    constexpr QRgb One = 0x00010001U;
    const auto quarter = [](QRgb sum) { return ((sum + One + ((sum >> 2U) & One)) >> 2U) & Even; };
    for (int x = 0; x < width; ++x) {
        const QRgb a = upper[2 * x];
        const QRgb b = upper[2 * x + 1];
        const QRgb c = lower[2 * x];
        const QRgb d = lower[2 * x + 1];
        const QRgb redAndBlue = (a & Even) + (b & Even) + (c & Even) + (d & Even);
        const QRgb green = ((a >> 8U) & Even) + ((b >> 8U) & Even) + ((c >> 8U) & Even) + ((d >> 8U) & Even);
        to[x] = quarter(redAndBlue) | (quarter(green) << 8U) | FourthByte;
    }
}

void ScaleToHalf(const QImage& canvas, QImage& target) {
    for (int y = 0; y < target.height(); ++y) {
        HalveRows(Row(canvas, 2 * y), Row(canvas, 2 * y + 1), Row(target, y), target.width());
    }
}

}  // namespace

void BirdScaler::Axis::Set(int newFrom, int newTo) {
    if (from == newFrom && to == newTo) {
        return;
    }
    from = newFrom;
    to = newTo;
    first.clear();
    source.clear();
    weight.clear();
    const int common = std::gcd(from, to);
    // In parts of which a target pixel covers `total`, and a source pixel is `part`.
    const int part = to / common;
    total = IsMean() ? static_cast<std::uint32_t>(from / common) : 1;
    for (int x = 0; x < to; ++x) {
        first.push_back(static_cast<int>(weight.size()));
        if (!IsMean()) {
            source.push_back(SourcePlace(x, from, to));
            weight.push_back(1);
            continue;
        }
        const int begin = x * static_cast<int>(total);
        const int end = begin + static_cast<int>(total);
        source.push_back(begin / part);
        for (int pixel = begin / part; pixel * part < end; ++pixel) {
            const int covered = std::min((pixel + 1) * part, end) - std::max(pixel * part, begin);
            weight.push_back(static_cast<std::uint32_t>(covered));
        }
    }
    first.push_back(static_cast<int>(weight.size()));
}

void BirdScaler::Scale(const QImage& canvas, QImage& target) {
    if (canvas.isNull() || target.isNull()) {
        return;
    }
    if (canvas.depth() != 32 || target.depth() != 32 || canvas.width() > GreatestSide ||
        canvas.height() > GreatestSide) {
        ThrowBounds();
    }
    columns_.Set(canvas.width(), target.width());
    rows_.Set(canvas.height(), target.height());
    if (!columns_.IsMean() && !rows_.IsMean()) {
        ScaleNearest(canvas, target);
    } else if (canvas.size() == 2 * target.size()) {
        ScaleToHalf(canvas, target);
    } else {
        ScaleMean(canvas, target);
    }
}

void BirdScaler::ScaleNearest(const QImage& canvas, QImage& target) const {
    const auto rowBytes = columns_.source.size() * sizeof(QRgb);
    for (int y = 0; y < target.height(); ++y) {
        QRgb* const to = Row(target, y);
        const int row = rows_.source[static_cast<std::size_t>(y)];
        if (y > 0 && row == rows_.source[static_cast<std::size_t>(y) - 1]) {
            std::memcpy(to, target.constScanLine(y - 1), rowBytes);
            continue;
        }
        const QRgb* const from = Row(canvas, row);
        if (columns_.from == columns_.to) {
            std::memcpy(to, from, rowBytes);
            continue;
        }
        for (std::size_t x = 0; x < columns_.source.size(); ++x) {
            to[x] = from[columns_.source[x]];
        }
    }
}

// Rows first: those are long loops without a branch.
void BirdScaler::ScaleMean(const QImage& canvas, QImage& target) {
    sums_.resize(static_cast<std::size_t>(canvas.width()) * Channels);
    for (std::size_t y = 0; y < rows_.source.size(); ++y) {
        std::fill(sums_.begin(), sums_.end(), 0U);
        for (int i = rows_.first[y]; i < rows_.first[y + 1]; ++i) {
            const int row = rows_.source[y] + i - rows_.first[y];
            AddRow(Row(canvas, row), rows_.weight[static_cast<std::size_t>(i)]);
        }
        MeanOfSums(Row(target, static_cast<int>(y)));
    }
}

void BirdScaler::AddRow(const QRgb* from, std::uint32_t weight) {
    const auto* const bytes = reinterpret_cast<const unsigned char*>(from);
    std::uint32_t* const sums = sums_.data();
    const std::size_t count = sums_.size();
    // Both factors in 16 bits: twice as many at a time.
    const auto factor = static_cast<std::int16_t>(weight);
    for (std::size_t i = 0; i < count; ++i) {
        const std::int16_t byte = bytes[i];
        sums[i] += static_cast<std::uint32_t>(byte * factor);
    }
}

void BirdScaler::MeanOfSums(QRgb* to) const {
    const Mean mean(columns_.total * rows_.total);
    for (std::size_t x = 0; x < columns_.source.size(); ++x) {
        const std::uint32_t* from = sums_.data() + static_cast<std::size_t>(columns_.source[x]) * Channels;
        // Blue lies in a pixel's lowest byte, and so in the lower half of the first pair.
        std::uint64_t greenAndBlue = 0;
        std::uint64_t fourthAndRed = 0;
        for (int i = columns_.first[x]; i < columns_.first[x + 1]; ++i, from += Channels) {
            const std::uint64_t weight = columns_.weight[static_cast<std::size_t>(i)];
            greenAndBlue += Pair(from) * weight;
            fourthAndRed += Pair(from + 2) * weight;
        }
        to[x] = mean.Of(LowerHalf(greenAndBlue)) | (mean.Of(UpperHalf(greenAndBlue)) << 8U) |
                (mean.Of(LowerHalf(fourthAndRed)) << 16U) | FourthByte;
    }
}

}  // namespace travo
