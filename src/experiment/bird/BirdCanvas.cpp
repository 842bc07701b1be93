#include "experiment/bird/BirdCanvas.h"

#include <QSize>
#include <algorithm>
#include <cmath>

#include "core/ground/Arithmetic.h"

namespace travo {

namespace {

constexpr std::int16_t LastBlinkPhase = 2;
// Needle markers of one shape, and cell markers of one variant.
constexpr int NeedleMarkersOfShape = 4;
constexpr int CellMarkersOfVariant = 8;

// On a whole pixel, with ties to even.
double StillCorner(int size, double shift) {
    return std::nearbyint((CanvasSize - size) / 2.0 + size * shift);
}

// Along one axis: the first pixel of a still that the canvas shows, and how many.
struct Seen {
    int first = 0;
    int count = 0;
};

Seen SeenAlong(int size, double shift) {
    const double corner = StillCorner(size, shift);
    if (!(corner > -size && corner < CanvasSize)) {
        return {};
    }
    const int start = static_cast<int>(corner);
    const int first = std::max(0, -start);
    return {first, std::min(size, CanvasSize - start) - first};
}

// Of needles and cells.
constexpr QSize MarkerSize(34, 27);

BirdPoint ShaftEnd(const BirdNeedle& needle) {
    return {needle.sngNeedleX + NeedleMarkerCentre, needle.sngNeedleY + NeedleMarkerCentre};
}

bool HidesWhatBlinks(const BirdScene& scene) { return scene.intBlinkPhase >= 1; }

}  // namespace

std::int16_t NextBlinkPhase(std::int16_t intBlinkPhase) {
    return intBlinkPhase >= LastBlinkPhase ? std::int16_t{0} : static_cast<std::int16_t>(intBlinkPhase + 1);
}

QRect SeenOnCanvas(const QSize& still, const BirdShift& shift) {
    const Seen columns = SeenAlong(still.width(), shift.x);
    const Seen rows = SeenAlong(still.height(), shift.y);
    if (columns.count == 0 || rows.count == 0) {
        return {};
    }
    return {columns.first, rows.first, columns.count, rows.count};
}

BirdCanvas::BirdCanvas(const QString& programFolder)
    : markers_(programFolder), canvas_(CanvasSize, CanvasSize, QImage::Format_RGB32) {
    canvas_.fill(BirdGround);
}

const QImage& BirdCanvas::Compose(const BirdStillPart& still, const BirdScene& scene) {
    ClearCanvas(still, scene);
    drawn_ = scene;
    if (scene.chkMirror) {
        DrawMarker(canvas_, markers_.View(scene.intBirdMagnification), scene.view.sngViewX,
                   scene.view.sngViewY);
    }
    DrawNeedles(scene);
    DrawCells(scene);
    return canvas_;
}

void BirdCanvas::ClearCanvas(const BirdStillPart& still, const BirdScene& scene) {
    const QImage& picture = still.picture;
    const QImage plain = picture.depth() == 32 ? picture : picture.convertToFormat(QImage::Format_RGB32);
    const BirdUnderlay underlay{BirdGround, plain,
                                StillCorner(still.whole.width(), scene.ShiftX) + still.corner.x(),
                                StillCorner(still.whole.height(), scene.ShiftY) + still.corner.y()};
    // A still whose pixels are written to gets another key.
    if (picture.cacheKey() == stillKey_ && scene.ShiftX == drawn_.ShiftX && scene.ShiftY == drawn_.ShiftY) {
        RestoreMarkers(underlay);
        return;
    }
    DrawGroundAndStill(canvas_, underlay);
    stillKey_ = picture.cacheKey();
}

// Also where a marker was not drawn, or cannot be: what is restored once too often stays as it is.
void BirdCanvas::RestoreMarkers(const BirdUnderlay& underlay) {
    RestorePatch(canvas_, underlay, markers_.View(drawn_.intBirdMagnification).mask.size(),
                 drawn_.view.sngViewX, drawn_.view.sngViewY);
    for (const BirdNeedle& needle : drawn_.needles) {
        RestoreShaft(canvas_, underlay, {needle.sngRootX, needle.sngRootY}, ShaftEnd(needle), ShaftWidth);
        RestorePatch(canvas_, underlay, MarkerSize, needle.sngNeedleX, needle.sngNeedleY);
    }
    for (const BirdCell& cell : drawn_.cells) {
        RestorePatch(canvas_, underlay, MarkerSize, cell.sngCellX, cell.sngCellY);
    }
}

void BirdCanvas::DrawNeedles(const BirdScene& scene) {
    if (!scene.bLineOFF) {
        for (std::int32_t i = 0; i <= scene.intTotalManipulatorNumber; ++i) {
            const BirdNeedle& needle = scene.needles[Bounded(i, scene.needles.size())];
            DrawShaft(canvas_, {needle.sngRootX, needle.sngRootY}, ShaftEnd(needle), ShaftWidth);
        }
    }
    for (std::int32_t i = 0; i <= scene.intTotalManipulatorNumber; ++i) {
        if (i == scene.intManipulatorNumber && HidesWhatBlinks(scene)) {
            continue;
        }
        const BirdNeedle& needle = scene.needles[Bounded(i, scene.needles.size())];
        DrawMarker(canvas_, markers_.Needle(needle.intNeedleShape * NeedleMarkersOfShape + i),
                   needle.sngNeedleX, needle.sngNeedleY);
    }
}

void BirdCanvas::DrawCells(const BirdScene& scene) {
    for (std::int32_t i = 0; i < CellCount; ++i) {
        const BirdCell& cell = scene.cells[static_cast<std::size_t>(i)];
        if (!cell.bCellSet || (i == scene.intCellNo && HidesWhatBlinks(scene))) {
            continue;
        }
        const int variant = cell.bCellLeftHanded ? CellMarkersOfVariant : 0;
        DrawMarker(canvas_, markers_.Cell(variant + i), cell.sngCellX, cell.sngCellY);
    }
}

}  // namespace travo
