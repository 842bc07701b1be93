// A thing of the world on the still of the bird's-eye view, by which it is seen how the still lies.
#pragma once

#include <QImage>
#include <QPointF>
#include <QRect>
#include <QSize>
#include <optional>

#include "workbench/tour/Stage.h"

namespace workbench::tour {

struct Landmark {
    QPointF truth;  // the thing's place, in pixels of the canvas
    QImage patch;   // of the still, as it was taken, with the thing in the middle
};

// Without a shift the still stands in the middle of the canvas. Pixels.
constexpr QSize StillSize{640, 480};

// The still as the camera has saved it, RGB32.
QImage StillFile(Stage& stage);
// Where the view's centre truly is on the canvas.
QPointF ViewOnCanvas(Stage& stage);
// What the mark of the view may cover at 0.35x.
QRect MarkOfView(Stage& stage);

// Takes the view beside the centre, by hand, has the camera save a still and finds a cell of the world on
// it. Needs 0.35x.
Landmark TakeStill(Stage& stage);
// Where the landmark is drawn, in canvas pixels; the window shows the canvas one pixel to a pixel.
// ActFailure where it is not drawn.
QPointF FindLandmark(Stage& stage, const Landmark& landmark);
// The same at once, without waiting; nothing where it is not drawn.
std::optional<QPointF> LandmarkOn(const QImage& picture, const Landmark& landmark);

}  // namespace workbench::tour
