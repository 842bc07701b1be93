#include "experiment/BirdScaler.h"

#include <QRgb>
#include <cstdint>
#include <cstring>

#include "core/Arithmetic.h"

namespace travo {

namespace {

// The source pixel under the middle of a target pixel.
int SourcePlace(int place, int from, int to) {
    return static_cast<int>((2 * std::int64_t{place} + 1) * from / (2 * std::int64_t{to}));
}

}  // namespace

void BirdScaler::Columns(int from, int to) {
    if (canvasWidth_ == from && columns_.size() == static_cast<std::size_t>(to)) {
        return;
    }
    canvasWidth_ = from;
    columns_.resize(static_cast<std::size_t>(to));
    for (int x = 0; x < to; ++x) {
        columns_[static_cast<std::size_t>(x)] = SourcePlace(x, from, to);
    }
}

void BirdScaler::Scale(const QImage& canvas, QImage& target) {
    if (canvas.isNull() || target.isNull()) {
        return;
    }
    if (canvas.depth() != 32 || target.depth() != 32) {
        ThrowBounds();
    }
    Columns(canvas.width(), target.width());
    const int width = target.width();
    int lastRow = -1;
    for (int y = 0; y < target.height(); ++y) {
        auto* const to = reinterpret_cast<QRgb*>(target.scanLine(y));
        const int row = SourcePlace(y, canvas.height(), target.height());
        if (row == lastRow) {
            std::memcpy(to, target.constScanLine(y - 1), static_cast<std::size_t>(width) * sizeof(QRgb));
            continue;
        }
        lastRow = row;
        const auto* const from = reinterpret_cast<const QRgb*>(canvas.constScanLine(row));
        const int* const columns = columns_.data();
        for (int x = 0; x < width; ++x) {
            to[x] = from[columns[x]];
        }
    }
}

}  // namespace travo
