// What a panel paints on itself: plates, captions, names, hints, rules, empty slots, icons.
#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>
#include <variant>

#include "controls/Palette.h"
#include "controls/Type.h"

namespace travo {

// All places are in design pixels of the panel.

// A plate that holds a group: well, hairline, radius 6.
struct Plate {
    QRectF place;
};

// One line of text, its capitals centred on `middleY`. `x` is its left end, middle or right end.
struct PaintedText {
    double x;
    double middleY;
    QString text;
    double pixels = type::Name;
    QFont::Weight weight = QFont::DemiBold;
    QColor colour = palette::Ink;
    Qt::AlignmentFlag alignment = Qt::AlignLeft;
};

// A hairline.
struct Rule {
    double left;
    double right;
    double y;
};

// Dashed outline where a hidden control would stand.
struct DashedSlot {
    QRectF place;
};

// A picture of the skin, in proportion and centred.
struct PaintedIcon {
    QString name;  // as in "icon-plug"
    double middleX;
    double middleY;
    double side;
};

using PanelItem = std::variant<Plate, PaintedText, Rule, DashedSlot, PaintedIcon>;

// The kinds of text. A caption is 18 high from `top`; a name is centred in `height` from `top`; a hint
// stands on its baseline.
PaintedText CaptionText(double x, double top, const QString& text,
                        Qt::AlignmentFlag alignment = Qt::AlignLeft);
PaintedText NameText(double x, double top, double height, const QString& text, double pixels = type::Name);
PaintedText HintText(double x, double baseline, const QString& text,
                     Qt::AlignmentFlag alignment = Qt::AlignLeft);

}  // namespace travo
