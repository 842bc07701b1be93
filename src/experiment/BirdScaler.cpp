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

// What Columns() says of half the width, in steps that the compiler turns into vectors: the usual case, a
// window of design size on a screen of scale 1.
void TakeOddColumns(const QRgb* from, QRgb* to, int width) {
    for (int x = 0; x < width; ++x) {
        to[x] = from[2 * x + 1];
    }
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

void BirdScaler::TakeColumns(const QRgb* from, QRgb* to) const {
    const auto width = static_cast<int>(columns_.size());
    if (canvasWidth_ == width) {
        std::memcpy(to, from, columns_.size() * sizeof(QRgb));
    } else if (canvasWidth_ == 2 * width) {
        TakeOddColumns(from, to, width);
    } else {
        for (std::size_t x = 0; x < columns_.size(); ++x) {
            to[x] = from[columns_[x]];
        }
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
    int lastRow = -1;
    for (int y = 0; y < target.height(); ++y) {
        auto* const to = reinterpret_cast<QRgb*>(target.scanLine(y));
        const int row = SourcePlace(y, canvas.height(), target.height());
        if (row == lastRow) {
            std::memcpy(to, target.constScanLine(y - 1), columns_.size() * sizeof(QRgb));
            continue;
        }
        lastRow = row;
        TakeColumns(reinterpret_cast<const QRgb*>(canvas.constScanLine(row)), to);
    }
}

}  // namespace travo
