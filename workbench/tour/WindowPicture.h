// What is to be seen on the picture of the bird's-eye view, found by its pixels alone.
#pragma once

#include <QImage>
#include <QPointF>
#include <QRect>
#include <QRgb>
#include <array>
#include <optional>
#include <vector>

namespace workbench::tour {

// Colours of the markers: needles, cells A to H, the view.
constexpr QRgb NeedleColour = qRgb(255, 153, 153);
constexpr std::array<QRgb, 8> CellColours{qRgb(0, 204, 255),   qRgb(102, 153, 204), qRgb(255, 102, 153),
                                          qRgb(255, 204, 102), qRgb(204, 204, 102), qRgb(102, 204, 102),
                                          qRgb(255, 51, 51),   qRgb(255, 255, 153)};
constexpr QRgb ViewColour = qRgb(255, 204, 176);

// The canvas: pixels of each side, the pixel of the common origin on both axes, pixels to a common unit.
constexpr int CanvasPixels = 756;
constexpr double CanvasOrigin = 378.0;
constexpr double CanvasPixelsPerUnit = 0.42;
QPointF CanvasPlace(double x, double y);
// The canvas pixel in the middle of what a pixel of a picture of so many pixels a side shows.
int CanvasPixel(int pixel, int side);
// The picture's pixel that shows a place of the canvas.
QPoint PicturePixel(const QPointF& canvas, int side);

// All pictures are square and RGB32; results are in pixels of the picture unless said otherwise.

// The extents of the groups of joined pixels of a colour, its darker shades at soft edges included.
std::vector<QRect> Groups(const QImage& picture, QRgb colour);
// The middle of an extent, in pixels of the canvas.
QPointF CanvasMiddle(const QRect& extent, int side);

// Middles of all shapes of needles, in canvas pixels.
std::vector<QPointF> NeedleMiddles(const QImage& picture);
// The middle of a cell's cross, whose letter stands above it; nothing where it is not drawn.
std::optional<QPointF> CellMiddle(const QImage& picture, std::size_t cell);
// The middle of the view's mark and its size, in canvas pixels.
struct ViewMark {
    QPointF middle;
    QSize size;
};
std::optional<ViewMark> FindView(const QImage& picture);
// How much of the way along a line, 20 to 120 canvas pixels from its first point, is as dark as a shaft on
// still or ground; both points in canvas pixels. 0 to 1; what lies off the canvas does not count.
double DarkAlong(const QImage& picture, const QPointF& from, const QPointF& to);

// Where the patch stands in the picture, pixel by pixel; nothing where it stands nowhere.
std::optional<QPoint> FindPatch(const QImage& picture, const QImage& patch);
// The extent of what differs from a still whose corner stands at that place of the picture; empty for none.
QRect Differing(const QImage& picture, const QImage& still, const QPoint& corner);

}  // namespace workbench::tour
