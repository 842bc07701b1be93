// The calibration marks over the picture.
#pragma once

#include <QPainter>
#include <QPointF>
#include <QString>
#include <vector>

#include "workbench/live/LiveState.h"
#include "workbench/live/View.h"

namespace workbench::live {

struct Mark {
    QString name;
    QPointF offset;  // from the centre of the view, in common units
};

// Points: A, the apex 60 units above the centre of the view, B and C, the base corners 80 to the left
// and right and 60 below. Z: the apex again, for the raised objective. Center: the centre.
std::vector<Mark> MarksOf(Overlay overlay);

// Draws them into a rectangle of the picture that the view tells of. A mark outside the field is told
// of at the edge.
void PaintMarks(QPainter& painter, Overlay overlay, const QSizeF& field, const QRectF& rectangle);

// A bar of a round length in common units, top left.
void PaintScaleBar(QPainter& painter, const QSizeF& field, const QRectF& rectangle);

}  // namespace workbench::live
