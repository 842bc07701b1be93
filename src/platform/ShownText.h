// Texts that come from outside, a wire, a device or a file, as they can be shown.
#pragma once

#include <QString>

namespace travo::platform {

// The text in one line: every character that has no face of its own, controls, line ends and those that turn
// the direction of writing, stands as a symbol for it. Of more characters than `most` the first, and "…".
QString ShownText(const QString& text, qsizetype most);

// The same, but that CR LF stays: texts of the system's own use it to break their lines, and none from
// outside can hold it.
QString ShownLines(const QString& text, qsizetype most);

// For a tooltip, which takes for markup what looks like it: such a text comes out as markup that shows it.
QString PlainToolTip(const QString& text);

}  // namespace travo::platform
