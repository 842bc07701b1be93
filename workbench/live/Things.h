// What is to be seen through the microscope, one thing at a time, sharp, in pixels of a view.
#pragma once

#include <QPainter>
#include <QPointF>
#include <QRectF>

#include "workbench/client/WorkbenchClient.h"
#include "workbench/live/View.h"

namespace workbench::live {

// Grain on the bottom of the dish, which shows that and how the view moves.
void PaintGrain(QPainter& painter, const View& view);

// What of the picture a cell or a needle covers, in pixels.
QRectF CellBounds(const WorkbenchClient::CameraState::Cell& cell, const View& view);
void PaintCell(QPainter& painter, const WorkbenchClient::CameraState::Cell& cell, const View& view);

QRectF NeedleBounds(const WorkbenchClient::CameraState::Needle& needle, const View& view);
// A drawn-out glass capillary: fine at the tip, growing wider along the shaft.
void PaintNeedle(QPainter& painter, const WorkbenchClient::CameraState::Needle& needle, const View& view);

}  // namespace workbench::live
