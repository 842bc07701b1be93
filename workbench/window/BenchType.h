// The type of the workbench's window: two font stacks, and text that never runs out of its rectangle.
#pragma once

#include <QFont>
#include <QString>

namespace workbench {

// A font of the program's stack. `pixels` is the height of the em in device-independent pixels, rounded to
// whole ones since the toolkit has no others, and at least 1; weights are QFont::Normal (400),
// QFont::DemiBold (600) and QFont::Bold (700).
QFont TextFont(double pixels, QFont::Weight weight);
// The same for bytes and times, in letters of one width.
QFont MonoFont(double pixels, QFont::Weight weight = QFont::Normal);

// Width of a text in device-independent pixels.
double WidthOf(const QFont& font, const QString& text);
// `font` itself, or the same set smaller by whole pixels so that `text` is at most `width` pixels wide. Never
// below 4 pixels.
QFont Fitted(const QFont& font, const QString& text, double width);

// Sizes in device-independent pixels.
namespace type {
constexpr double Digit = 23;         // digit of a needle at the joystick, bold
constexpr double LandingValue = 20;  // value of the landing, bold
constexpr double Heading = 18;       // "Workbench", gauge; semibold
constexpr double Caption = 15;       // captions of plates, title of the plan, tabs; semibold
constexpr double Number = 14;   // numbers, objectives, semibold; title of the next step, digit in a tag, bold
constexpr double Button = 13;   // buttons, titles of steps, semibold; text of steps, regular
constexpr double Small = 12.5;  // chips, buttons 24 high, captions of controls, readout; bytes
constexpr double Fine = 12;     // names on the plan, hint lines; times
constexpr double Least = 11.5;  // ticks of the heights, second lines of the header
}  // namespace type

}  // namespace workbench
