// What the bird's-eye view draws on its canvas with: single operations on the pixels of an RGB32 picture.
// None allocates, none draws beyond the picture's edges, and places may be any number at all.
#pragma once

#include <QImage>
#include <QSize>

#include "experiment/bird/BirdMarkers.h"

namespace travo {

// What lies below all markers: a colour, but for where the still lies, its corner on the pixel nearest to
// `x`, `y`, with ties to even. The still has 32 bits to the pixel, or no pixels; its fourth byte becomes
// 0xFF.
struct BirdUnderlay {
    QRgb ground;
    const QImage& still;
    double x;
    double y;
};

// Fills the canvas with it.
void DrawGroundAndStill(QImage& canvas, const BirdUnderlay& underlay);

// Fills with it what a marker of that size covers, its corner on the nearest pixel with ties to even.
void RestorePatch(QImage& canvas, const BirdUnderlay& underlay, const QSize& size, double x, double y);

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

// Fills with it what that bar covers.
void RestoreShaft(QImage& canvas, const BirdUnderlay& underlay, BirdPoint from, BirdPoint to, double width);

}  // namespace travo
