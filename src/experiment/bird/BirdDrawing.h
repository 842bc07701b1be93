// The drawing operations of the bird's-eye view. Each works on the pixels of an RGB32 picture, the canvas.
// None of them allocates memory or draws beyond the edges of the canvas; a place may be any finite number.
#pragma once

#include <QImage>
#include <QSize>

#include "experiment/bird/BirdMarkers.h"

namespace travo {

// What lies below all markers: the colour `ground` everywhere, and on it the still. The still's upper left
// corner stands on the canvas pixel that is nearest to (x, y), ties to even. A still has 32 bits to the
// pixel, or it is empty and the ground is all there is. On the canvas the fourth byte of its pixels is 0xFF.
struct BirdUnderlay {
    QRgb ground;
    const QImage& still;
    double x;
    double y;
};

// Draws the underlay over the whole canvas.
void DrawGroundAndStill(QImage& canvas, const BirdUnderlay& underlay);

// Draws the underlay again where a marker of that size stood: this takes the marker away. The place is that
// of the marker's upper left corner, as in DrawMarker.
void RestorePatch(QImage& canvas, const BirdUnderlay& underlay, const QSize& size, double x, double y);

// Draws a marker: its mask by AND, then its picture by XOR. Its upper left corner stands on the canvas pixel
// that is nearest to (x, y), ties to even.
void DrawMarker(QImage& canvas, const BirdMarker& marker, double x, double y);

struct BirdPoint {
    double x;
    double y;
};

// Draws a needle's shaft: a straight black bar of that width with square ends. A pixel is black where its
// middle lies within the bar. Where an edge of the bar runs exactly through the middles of pixels, those at
// the bar's left edge (of a level bar: at its upper edge) are black and those at the other edge are not. A
// bar without length covers nothing.
void DrawShaft(QImage& canvas, BirdPoint from, BirdPoint to, double width);

// Draws the underlay again where that bar was drawn: this takes the shaft away.
void RestoreShaft(QImage& canvas, const BirdUnderlay& underlay, BirdPoint from, BirdPoint to, double width);

}  // namespace travo
