// What the bird's-eye view draws on its canvas with: single operations on the pixels of an RGB32 picture.
// None allocates, none draws beyond the picture's edges, and places may be any number at all.
#pragma once

#include <QImage>
#include <QSize>

#include "experiment/BirdMarkers.h"

namespace travo {

// Fills the canvas with `ground` but for where the still lies, its corner on the pixel nearest to `x`, `y`,
// with ties to even. The still has 32 bits to the pixel, or no pixels; its fourth byte becomes 0xFF.
void DrawGroundAndStill(QImage& canvas, QRgb ground, const QImage& still, double x, double y);

// Copies from `ground`, a picture of the canvas's size, what lies under a marker of that size, its corner on
// the nearest pixel with ties to even.
void RestorePatch(QImage& canvas, const QImage& ground, const QSize& size, double x, double y);

// AND with the mask and then XOR with the picture, the corner on the nearest pixel with ties to even.
void DrawMarker(QImage& canvas, const BirdMarker& marker, double x, double y);

struct BirdPoint {
    double x;
    double y;
};

// A straight black bar, `width` wide, square at its ends: all pixels whose middle lies within. An edge that
// runs through middles takes them at its left (of a level bar: upper) side and leaves them at the other.
// A bar without length covers nothing.
void DrawShaft(QImage& canvas, BirdPoint from, BirdPoint to, double width);

// Copies from `ground`, a picture of the canvas's size, what lies under that bar.
void RestoreShaft(QImage& canvas, const QImage& ground, BirdPoint from, BirdPoint to, double width);

}  // namespace travo
