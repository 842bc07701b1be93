// The bird's-eye view's canvas: the still, and on it the view, the needles and the cells.
#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <array>
#include <cstdint>

#include "core/ground/Positions.h"
#include "experiment/bird/BirdDrawing.h"
#include "experiment/bird/BirdMarkers.h"
#include "experiment/bird/BirdPlaces.h"

namespace travo {

// The ground of the still's picture and of the canvas.
inline constexpr QRgb BirdGround = qRgb(255, 153, 134);
// The width of a shaft line in canvas pixels: one pixel and more when the canvas is shown at half size.
inline constexpr double ShaftWidth = 2;

// What a composition shows.
struct BirdScene {
    bool chkMirror = false;                 // the mirror answers: the view mark is drawn
    bool bLineOFF = false;                  // no shaft lines
    std::int16_t intBirdMagnification = 1;  // chooses the view mark
    BirdView view;
    std::array<BirdNeedle, NeedleCount> needles;
    std::array<BirdCell, CellCount> cells;
    std::int16_t intTotalManipulatorNumber = -1;  // the last needle drawn, -1 for none
    std::int16_t intManipulatorNumber = -1;       // the needle that blinks, -1 for none
    std::int16_t intCellNo = -1;                  // the cell that blinks; any other number for none
    double ShiftX = 0;                            // of the still, as a fraction of its size
    double ShiftY = 0;
    std::int16_t intBlinkPhase = 0;  // what blinks is drawn in phase 0 alone
};

// 0, 1, 2 and again 0: the phase of the next composition. What blinks is shown in one of three.
std::int16_t NextBlinkPhase(std::int16_t intBlinkPhase);

// Of a still: by how much of its own size it stands beside the canvas's middle.
struct BirdShift {
    double x;
    double y;
};

// The pixels of a still of that size that lie on the canvas; empty where none does.
QRect SeenOnCanvas(const QSize& still, const BirdShift& shift);

// A picture of a part of a still: what is missing of it shows as ground.
struct BirdStillPart {
    const QImage& picture;
    QSize whole;    // the still's
    QPoint corner;  // of the part, in the still

    BirdStillPart(const QImage& part, const QSize& still, const QPoint& place)
        : picture(part), whole(still), corner(place) {}
    // All of it.
    BirdStillPart(const QImage& still) : picture(still), whole(still.size()) {}
};

class BirdCanvas {
public:
    // The folder that holds the folder skin. The canvas is bare ground.
    explicit BirdCanvas(const QString& programFolder);

    // Composes anew and gives the canvas: 756 by 756 plain pixels, RGB32 with a fourth byte of 0xFF.
    //
    // The still's corner stands at (756 - width) / 2 + width * ShiftX, Y likewise, taken to nearest with
    // ties to even. A still without pixels leaves the ground. Above it lie the view mark, all shafts, the
    // needles' markers, the cells' markers, in this order.
    //
    // Corners of markers go to the nearest pixel likewise. A shaft covers the pixels whose middle is less
    // than one pixel from the line between the shaft's far end and the middle of the needle's shape, as far
    // as the line reaches; a place is the upper left corner of the pixel of that number, so an upright
    // shaft at 100 covers columns 99 and 100. Whatever lies off the canvas, out to the ends of a float, is
    // not drawn and takes no longer; nor is what stands at no number.
    //
    // What has changed since the last composition is drawn, and no more: most of the canvas is the still.
    //
    // BoundsFailure for a total beyond the last needle or a shape beyond 2. Nothing is allocated, as long
    // as the still is RGB32 and nobody keeps a copy of the canvas.
    const QImage& Compose(const BirdStillPart& still, const BirdScene& scene);

private:
    // The canvas without anything on it: as after the last composition, but for what that one drew, or
    // whole where the still or its place has changed.
    void ClearCanvas(const BirdStillPart& still, const BirdScene& scene);
    void RestoreMarkers(const BirdUnderlay& underlay);
    void DrawNeedles(const BirdScene& scene);
    void DrawCells(const BirdScene& scene);

    BirdMarkers markers_;
    QImage canvas_;
    // What the canvas shows: the still of that key, and the scene.
    qint64 stillKey_ = 0;
    BirdScene drawn_;
};

}  // namespace travo
