// Text on the dark plates.
#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QString>

#include "workbench/window/BenchFace.h"

namespace workbench {

// One line of text with its baseline at y; x is its start, middle or end.
void DrawText(QPainter& painter, const QString& text, const QPointF& at, const QFont& font,
              const QColor& colour, Anchor anchor = Anchor::Start);
// A line with square ends.
QPen FlatPen(const QColor& colour, double width);
// The middle of the pixel in which x lies, where a line one wide is sharp.
double Sharp(double x);

}  // namespace workbench
