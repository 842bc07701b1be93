// The faces of the window's plates and buttons. All lengths are logical pixels; outlines lie on half pixels.
#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>
#include <cstdint>

class QPainter;

namespace workbench {

enum class Face : std::uint8_t { Up, Down, Off };
// Retreat is the tone of what clears: a coral outline of 2 on white.
enum class Tone : std::uint8_t { Plain, Retreat };
enum class Anchor : std::uint8_t { Start, Middle, End };

// A push button's face: a lip of 2 below it while it is up, flat while it is off.
void PaintFace(QPainter& painter, const QRectF& place, Face face, Tone tone = Tone::Plain);

// A latched two-state button's face: slate, its upper edge dark. Off: flat grey-blue.
void PaintLatched(QPainter& painter, const QRectF& place, bool enabled, double radius = 5);

// The slot at the left edge that marks a two-state button, `margin` from its upper and lower edge. The lit
// colour counts while it is latched and enabled.
struct Slot {
    double margin;
    bool latched;
    bool enabled;
    QColor lit;
};
void PaintSlot(QPainter& painter, const QRectF& button, const Slot& slot);

// A plate: fill, outline and a radius of 6.
void PaintPlate(QPainter& painter, const QRectF& place, const QColor& fill, const QColor& outline);

// A flat rectangle with an outline, as of a field.
void PaintBox(QPainter& painter, const QRectF& place, const QColor& fill, const QColor& outline,
              double radius);

// The slanted bars of what is simulated, 6 and 6 at 45 degrees, rising to the right.
void PaintBars(QPainter& painter, const QRectF& place);

// A line of text with its baseline at a point. Wider than `room` it is set smaller, so that it is never cut;
// a room of 0 is any.
struct Words {
    QString text;
    QPointF baseline;
    QFont font;
    QColor colour;
    Anchor anchor = Anchor::Start;
    double room = 0;
};
void Write(QPainter& painter, const Words& words);

}  // namespace workbench
