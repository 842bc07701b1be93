// What the tests of the bird's-eye view's pictures share.
#pragma once

#include <QImage>
#include <algorithm>

#include "controls/ControlRig.h"
#include "experiment/bird/BirdCanvas.h"
#include "experiment/bird/BirdPlaces.h"

namespace travo::test {

inline constexpr QRgb Grey = qRgb(70, 80, 90);

// All four bytes as given: QImage::fill sets the fourth.
inline QImage Filled(int width, int height, QRgb colour = Grey) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::fill(row, row + width, colour);
    }
    return image;
}

// With all four bytes: QImage::pixel gives a fourth byte of 0xFF whatever stands there.
inline QRgb RawPixel(const QImage& image, int x, int y) {
    return reinterpret_cast<const QRgb*>(image.constScanLine(y))[x];
}

// A still of which no two neighbouring pixels are alike.
inline QImage Patterned(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, qRgb(x * 7 + y, x + y * 5, x * 3 + y * 11));
        }
    }
    return image;
}

// The number of pixels in which the two, of one size, differ in any byte.
inline int Differences(const QImage& a, const QImage& b) {
    int count = a.size() == b.size() ? 0 : 1;
    for (int y = 0; y < a.height() && count == 0; ++y) {
        for (int x = 0; x < a.width(); ++x) {
            count += RawPixel(a, x, y) == RawPixel(b, x, y) ? 0 : 1;
        }
    }
    return count;
}

// A marker laid on pixel by pixel, as AND and XOR say it.
inline void LayOn(QImage& canvas, const BirdMarker& marker, int cornerX, int cornerY) {
    for (int y = 0; y < marker.mask.height(); ++y) {
        for (int x = 0; x < marker.mask.width(); ++x) {
            if (!canvas.rect().contains(cornerX + x, cornerY + y)) {
                continue;
            }
            const QRgb kept = RawPixel(canvas, cornerX + x, cornerY + y) & marker.mask.pixel(x, y);
            canvas.setPixel(cornerX + x, cornerY + y, kept ^ RawPixel(marker.picture, x, y));
        }
    }
}

}  // namespace travo::test
