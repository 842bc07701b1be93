// The whole page as text.
#pragma once

#include <QString>

#include "diagnostics/words/Page.h"

namespace travo::diagnostics {

// One line for each card, its remedy behind ">", its details indented; then the versions and the log. Lines
// end in LF, the last one too. Says what the page says: the page holds no names of users or hosts.
QString ReportOf(const Page& page);

// The three lengths, the three angles and the rest of the figures on one line.
QString FiguresText(const CalibrationFigures& figures);

}  // namespace travo::diagnostics
