// The microscope's picture of the simulated world.
#pragma once

#include <QImage>
#include <QPainter>

#include "workbench/client/WorkbenchClient.h"
#include "workbench/live/View.h"

namespace workbench::live {

// Bright field: the dish with its grain, the cells, the needles with their shafts, each blurred by its
// distance from the focal plane. The same world gives the same picture.
QImage PaintPicture(const WorkbenchClient::CameraState& scene);

// The picture of a camera that has nothing to look at, and why.
QImage PaintEmptyPicture(const QString& why);

// The word that keeps it from being taken for a real camera's picture: top right in the rectangle.
void PaintWorkbenchMark(QPainter& painter, const QRectF& rectangle);

}  // namespace workbench::live
