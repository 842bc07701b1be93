// The plain button that stands in where the skin has no usable picture.
#pragma once

#include <QString>

class QAbstractButton;
class QPainter;
class QRectF;

namespace travo {

// All states can be told apart without colour, as those of the pictures. `scale` is present over design
// size. The caption is shrunk so that it fits.
void PaintPlainButton(QPainter& painter, const QAbstractButton& button, const QString& caption, double scale);

// A flat plate with a caption, for a picture that is no button.
void PaintPlainPicture(QPainter& painter, const QRectF& place, const QString& caption, double scale);

}  // namespace travo
