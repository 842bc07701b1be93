// The small pictures on the window's buttons, each drawn in a square of `size` logical pixels round a middle.
#pragma once

#include <QColor>
#include <QPointF>

class QPainter;

namespace workbench {

// A single chevron, upward at 0 degrees, turned clockwise.
void PaintChevron(QPainter& painter, const QPointF& middle, double size, double degrees,
                  const QColor& colour);

// A drawn-out glass needle that points down left: its outline and what fills it.
void PaintNeedle(QPainter& painter, const QPointF& middle, double size, const QColor& line,
                 const QColor& fill);

// The key of the manipulator that is selected at the hardware.
void PaintKey(QPainter& painter, const QPointF& middle, double size, const QColor& line, const QColor& fill);

// A cross that closes.
void PaintCross(QPainter& painter, const QPointF& middle, double size, const QColor& colour);

// A tick of a step that is done, in a ring of radius 9.5.
void PaintTick(QPainter& painter, const QPointF& middle, const QColor& line, const QColor& ground);

}  // namespace workbench
