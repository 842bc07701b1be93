#include "workbench/window/BenchFace.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "workbench/window/BenchPalette.h"
#include "workbench/window/BenchType.h"

namespace workbench {

namespace {

constexpr double Radius = 5;
constexpr double BarWidth = 6;

QLinearGradient Downward(const QRectF& place, const QColor& high, const QColor& low) {
    QLinearGradient gradient(place.topLeft(), place.bottomLeft());
    gradient.setColorAt(0, high);
    gradient.setColorAt(1, low);
    return gradient;
}

void Rounded(QPainter& painter, const QRectF& place, const QBrush& fill, const QPen& pen, double radius) {
    painter.setPen(pen);
    painter.setBrush(fill);
    painter.drawRoundedRect(place, radius, radius);
}

void LineAlong(QPainter& painter, double from, double to, double y, const QPen& pen) {
    painter.setPen(pen);
    painter.drawLine(QPointF(from, y), QPointF(to, y));
}

QPen FlatPen(const QColor& colour, double width) { return QPen(colour, width, Qt::SolidLine, Qt::FlatCap); }

QColor Faded(QColor colour, double part) {
    colour.setAlphaF(static_cast<float>(part));
    return colour;
}

struct FaceColours {
    QColor high;
    QColor low;
    QColor edge;
    QColor lip;
    double outline;
};

FaceColours ColoursOf(Face face, Tone tone) {
    if (tone == Tone::Retreat) {
        return face == Face::Up ? FaceColours{palette::FaceHigh, palette::Blush, palette::CoralDeep,
                                              palette::RetreatLip, 2}
                                : FaceColours{palette::RetreatPressHigh, palette::RetreatPressLow,
                                              palette::CoralDeep, palette::RetreatLip, 2};
    }
    return face == Face::Up
               ? FaceColours{palette::FaceHigh, palette::FaceLow, palette::Edge, palette::Lip, 1}
               : FaceColours{palette::PressHigh, palette::PressLow, palette::Edge, palette::Lip, 1};
}

void PaintRaised(QPainter& painter, const QRectF& place, const FaceColours& colours) {
    Rounded(painter, place.adjusted(0.5, 2.5, -0.5, -0.5), colours.lip, QPen(colours.edge, 1), Radius);
    const double half = colours.outline / 2;
    const QRectF face = place.adjusted(half, half, -half, -2.5);
    Rounded(painter, face, Downward(face, colours.high, colours.low), QPen(colours.edge, colours.outline),
            Radius);
    LineAlong(painter, place.left() + Radius, place.right() - Radius, place.top() + colours.outline + 0.7,
              FlatPen(Faded(Qt::white, 0.9), 1.2));
}

void PaintSunk(QPainter& painter, const QRectF& place, const FaceColours& colours) {
    const double half = colours.outline / 2;
    const QRectF face = place.adjusted(half, half, -half, -half);
    Rounded(painter, face, Downward(face, colours.high, colours.low), QPen(colours.edge, colours.outline),
            Radius);
    LineAlong(painter, place.left() + 4, place.right() - 4, place.top() + colours.outline + 1.2,
              FlatPen(Faded(palette::PressShade, 0.28), 2));
}

}  // namespace

void PaintFace(QPainter& painter, const QRectF& place, Face face, Tone tone) {
    painter.setRenderHint(QPainter::Antialiasing);
    if (face == Face::Off) {
        Rounded(painter, place.adjusted(0.5, 0.5, -0.5, -0.5), palette::OffFace, QPen(palette::OffEdge, 1),
                Radius);
    } else if (face == Face::Up) {
        PaintRaised(painter, place, ColoursOf(face, tone));
    } else {
        PaintSunk(painter, place, ColoursOf(face, tone));
    }
}

void PaintLatched(QPainter& painter, const QRectF& place, bool enabled, double radius) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF face = place.adjusted(0.5, 0.5, -0.5, -0.5);
    const QColor edge = enabled ? palette::SlateEdge : palette::SlateOffEdge;
    const QBrush fill =
        enabled ? QBrush(Downward(face, palette::SlateHigh, palette::SlateLow)) : QBrush(palette::SlateOff);
    Rounded(painter, face, fill, QPen(edge, 1), radius);
    LineAlong(painter, place.left() + 4, place.right() - 4, place.top() + 2,
              FlatPen(enabled ? palette::SlateShade : palette::SlateOffEdge, 1.8));
}

void PaintSlot(QPainter& painter, const QRectF& button, const Slot& slot) {
    const double raised = slot.latched ? 0 : 1.5;
    const QRectF place(button.left() + 5.5, button.top() + slot.margin, 5,
                       button.height() - 2 * slot.margin - raised);
    if (slot.latched) {
        Rounded(painter, place, slot.enabled ? slot.lit : palette::SlotOff,
                QPen(slot.enabled ? QColor(Qt::white) : palette::SlateOffEdge, 1), 2.5);
    } else if (slot.enabled) {
        Rounded(painter, place, palette::SlotUp, QPen(palette::SlotUpEdge, 1), 2.5);
    } else {
        Rounded(painter, place, Qt::NoBrush, QPen(palette::OffEdge, 1), 2.5);
    }
}

void PaintPlate(QPainter& painter, const QRectF& place, const QColor& fill, const QColor& outline) {
    PaintBox(painter, place, fill, outline, 6);
}

void PaintBox(QPainter& painter, const QRectF& place, const QColor& fill, const QColor& outline,
              double radius) {
    painter.setRenderHint(QPainter::Antialiasing);
    Rounded(painter, place.adjusted(0.5, 0.5, -0.5, -0.5), fill, QPen(outline, 1), radius);
}

void PaintBars(QPainter& painter, const QRectF& place) {
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    painter.fillRect(place, palette::SimTag);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath bars;
    const double high = place.height();
    const double first = -2 * BarWidth * (std::floor(high / (2 * BarWidth)) + 1);
    for (double at = first; at < place.width(); at += 2 * BarWidth) {
        const double left = place.left() + at;
        bars.addPolygon(QPolygonF({QPointF(left, place.bottom()), QPointF(left + high, place.top()),
                                   QPointF(left + high + BarWidth, place.top()),
                                   QPointF(left + BarWidth, place.bottom())}));
    }
    painter.fillPath(bars, palette::SimDeep);
    painter.restore();
}

void Write(QPainter& painter, const Words& words) {
    const QFont font = words.room > 0 ? Fitted(words.font, words.text, words.room) : words.font;
    painter.setFont(font);
    painter.setPen(words.colour);
    QPointF from = words.baseline;
    if (words.anchor != Anchor::Start) {
        const double width = WidthOf(font, words.text);
        from.rx() -= words.anchor == Anchor::End ? width : width / 2;
    }
    painter.drawText(from, words.text);
}

}  // namespace workbench
