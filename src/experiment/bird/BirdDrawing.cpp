#include "experiment/bird/BirdDrawing.h"

#include <QRgb>
#include <algorithm>
#include <cmath>
#include <utility>

namespace travo {

namespace {

constexpr QRgb FourthByte = 0xFF000000U;
constexpr QRgb Black = 0xFF000000U;

QRgb* Row(QImage& image, int y) { return reinterpret_cast<QRgb*>(image.scanLine(y)); }
const QRgb* Row(const QImage& image, int y) { return reinterpret_cast<const QRgb*>(image.constScanLine(y)); }

// Pixels `from` to before `to` along one axis of the canvas.
struct Span {
    int from = 0;
    int to = 0;

    bool IsEmpty() const { return from >= to; }
};

// A picture of `length` pixels that begins at `place` of a canvas: the part of the canvas under it, and
// the pixel that the picture begins on, which may lie before the canvas.
struct Cover {
    Span span;
    int start = 0;
};

Cover LayOn(double place, int length, int canvasLength) {
    const double pixel = std::nearbyint(place);
    if (!(pixel > -length && pixel < canvasLength)) {
        return {};
    }
    const int start = static_cast<int>(pixel);
    return {{std::max(start, 0), std::min(start + length, canvasLength)}, start};
}

// The pixels of a row, or rows of a picture, whose middle lies from `low` to before `high`.
Span Middles(double low, double high, int length) {
    const double end = length;
    const double from = std::ceil(std::clamp(low, 0.0, end) - 0.5);
    const double to = std::ceil(std::clamp(high, 0.0, end) - 0.5);
    return {static_cast<int>(from), static_cast<int>(to)};
}

// x from `low` to before `high`.
struct Range {
    double low;
    double high;

    // Keeps the part with least <= factor * x + rest < most.
    void Narrow(double factor, double rest, double least, double most) {
        if (factor == 0) {
            if (!(least <= rest && rest < most)) {
                high = low;
            }
            return;
        }
        double from = (least - rest) / factor;
        double to = (most - rest) / factor;
        if (factor < 0) {
            std::swap(from, to);
        }
        low = std::max(low, from);
        high = std::min(high, to);
    }
};

// Calls `cover` with the row and the columns of every row that the bar covers; a bar as DrawShaft describes.
template <typename Cover>
void ForRowsOfBar(const QSize& canvas, BirdPoint from, BirdPoint to, double width, const Cover& cover) {
    // Downwards, or to the right: so that the two ends may change places.
    if (to.y < from.y || (to.y == from.y && to.x < from.x)) {
        std::swap(from, to);
    }
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (!(length > 0 && std::isfinite(length))) {
        return;
    }
    const double alongX = (to.x - from.x) / length;
    const double alongY = (to.y - from.y) / length;
    const double half = width / 2;
    const Span rows = Middles(from.y - half, to.y + half, canvas.height());
    for (int row = rows.from; row < rows.to; ++row) {
        const double y = row + 0.5 - from.y;
        Range range{0, static_cast<double>(canvas.width())};
        const double across = alongY == 0 ? y : -alongX * y - alongY * from.x;
        range.Narrow(alongY, across, -half, half);
        range.Narrow(alongX, alongY * y - alongX * from.x, 0, length);
        const Span columns = Middles(range.low, range.high, canvas.width());
        if (!columns.IsEmpty()) {
            cover(row, columns);
        }
    }
}

// The underlay on a canvas of that size.
class Underlay {
public:
    Underlay(const QSize& canvas, const BirdUnderlay& underlay)
        : ground_(underlay.ground),
          still_(underlay.still),
          columns_(LayOn(underlay.x, still_.width(), canvas.width())),
          rows_(LayOn(underlay.y, still_.height(), canvas.height())) {}

    // Fills these columns of a row of the canvas.
    void Fill(QImage& canvas, int row, const Span& columns) const {
        QRgb* const to = Row(canvas, row);
        Span covered{std::max(columns.from, columns_.span.from), std::min(columns.to, columns_.span.to)};
        if (covered.IsEmpty() || row < rows_.span.from || row >= rows_.span.to) {
            covered = {columns.to, columns.to};
        } else {
            const QRgb* const from = Row(still_, row - rows_.start);
            for (int column = covered.from; column < covered.to; ++column) {
                to[column] = from[column - columns_.start] | FourthByte;
            }
        }
        std::fill(to + columns.from, to + covered.from, ground_);
        std::fill(to + covered.to, to + columns.to, ground_);
    }

private:
    QRgb ground_;
    const QImage& still_;
    Cover columns_;
    Cover rows_;
};

}  // namespace

void DrawGroundAndStill(QImage& canvas, const BirdUnderlay& underlay) {
    const Underlay below(canvas.size(), underlay);
    for (int row = 0; row < canvas.height(); ++row) {
        below.Fill(canvas, row, {0, canvas.width()});
    }
}

void RestorePatch(QImage& canvas, const BirdUnderlay& underlay, const QSize& size, double x, double y) {
    const Underlay below(canvas.size(), underlay);
    const Cover columns = LayOn(x, size.width(), canvas.width());
    const Cover rows = LayOn(y, size.height(), canvas.height());
    for (int row = rows.span.from; row < rows.span.to && !columns.span.IsEmpty(); ++row) {
        below.Fill(canvas, row, columns.span);
    }
}

void DrawMarker(QImage& canvas, const BirdMarker& marker, double x, double y) {
    const Cover columns = LayOn(x, marker.mask.width(), canvas.width());
    const Cover rows = LayOn(y, marker.mask.height(), canvas.height());
    if (columns.span.IsEmpty()) {
        return;
    }
    const auto first = columns.span.from - columns.start;
    const auto count = columns.span.to - columns.span.from;
    for (int row = rows.span.from; row < rows.span.to; ++row) {
        QRgb* const to = Row(canvas, row) + columns.span.from;
        const QRgb* const mask = Row(marker.mask, row - rows.start) + first;
        const QRgb* const picture = Row(marker.picture, row - rows.start) + first;
        for (int column = 0; column < count; ++column) {
            to[column] = (to[column] & mask[column]) ^ picture[column];
        }
    }
}

void DrawShaft(QImage& canvas, BirdPoint from, BirdPoint to, double width) {
    ForRowsOfBar(canvas.size(), from, to, width, [&](int row, const Span& columns) {
        QRgb* const pixels = Row(canvas, row);
        std::fill(pixels + columns.from, pixels + columns.to, Black);
    });
}

void RestoreShaft(QImage& canvas, const BirdUnderlay& underlay, BirdPoint from, BirdPoint to, double width) {
    const Underlay below(canvas.size(), underlay);
    ForRowsOfBar(canvas.size(), from, to, width,
                 [&](int row, const Span& columns) { below.Fill(canvas, row, columns); });
}

}  // namespace travo
