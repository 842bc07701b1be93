// A canvas with the shipped skin, and what its rules give pixel by pixel.
#pragma once

#include <gtest/gtest.h>

#include "experiment/bird/BirdCanvas.h"
#include "experiment/bird/BirdDrawing.h"
#include "experiment/bird/BirdPictures.h"

namespace travo::test {

inline constexpr QRgb Ground = qRgb(255, 153, 134);
inline constexpr QRgb Black = 0xFF000000U;

class BirdCanvasRig : public testing::Test {
protected:
    const QImage& Composed() { return canvas.Compose(still, scene); }

    // The ground with the still's corner at this pixel.
    QImage WithStillAt(int cornerX, int cornerY) const {
        QImage image = Filled(756, 756, Ground);
        for (int y = 0; y < still.height(); ++y) {
            for (int x = 0; x < still.width(); ++x) {
                if (image.rect().contains(cornerX + x, cornerY + y)) {
                    image.setPixel(cornerX + x, cornerY + y, still.pixel(x, y));
                }
            }
        }
        return image;
    }
    QImage WithStill() const { return WithStillAt(58, 138); }

    void PlaceNeedles() {
        for (std::size_t i = 0; i < scene.needles.size(); ++i) {
            const auto step = static_cast<std::int32_t>(i);
            scene.needles[i] = NeedlePlace({-400 + 250 * step, 300 - 200 * step, step % 3 - 1}, {0, 0, 0},
                                           {-3000 + 2500 * step, 900 - 1000 * step, 0});
        }
    }
    // Adds a needle's marker.
    void Needle(QImage& image, int needle) const {
        const BirdNeedle& place = scene.needles[static_cast<std::size_t>(needle)];
        LayOn(image, markers.Needle(place.intNeedleShape * 4 + needle), static_cast<int>(place.sngNeedleX),
              static_cast<int>(place.sngNeedleY));
    }
    void Line(QImage& image, int needle) const {
        const BirdNeedle& place = scene.needles[static_cast<std::size_t>(needle)];
        DrawShaft(image, {place.sngRootX, place.sngRootY}, {place.sngNeedleX + 9, place.sngNeedleY + 9}, 2);
    }
    static bool IsWithin(const QImage& image, const QRect& where, QRgb colour) {
        for (int y = where.top(); y <= where.bottom(); ++y) {
            for (int x = where.left(); x <= where.right(); ++x) {
                if (image.pixel(x, y) == colour) {
                    return true;
                }
            }
        }
        return false;
    }

    BirdCanvas canvas{SkinHome()};
    const BirdMarkers markers{SkinHome()};
    QImage still = Patterned(640, 480);
    BirdScene scene;
};

}  // namespace travo::test
