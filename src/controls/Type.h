// The type of the look: one font stack, and text that never runs out of its rectangle.
#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

namespace travo {

// Families, the first one that the system has is taken. All have figures of one width.
QStringList FontStack();

// A font of the stack. `pixels` is the height of the em in device-independent pixels, at least 1 and
// rounded; weights are QFont::Normal (400), QFont::DemiBold (600) and QFont::Bold (700).
QFont TextFont(double pixels, QFont::Weight weight);

// `font` itself, or the same with fewer pixels so that `text` is at most `width` pixels wide. Never
// below 4 pixels.
QFont Fitted(const QFont& font, const QString& text, double width);

// Sizes in design pixels.
namespace type {
constexpr double Box = 20;          // text boxes, semibold
constexpr double Number = 18;       // number labels, semibold
constexpr double NumberSmall = 17;  // the minimum beside the offsets
constexpr double NumberStrip = 14;  // the readout of the bird's-eye view, calibration times
constexpr double Name = 16;         // names of rows, semibold
constexpr double NameSmall = 15;    // names of the connection panel, title strips, the warning
constexpr double Caption = 13;      // captions of plates (semibold) and hints (regular), both in ink2
}  // namespace type

}  // namespace travo
