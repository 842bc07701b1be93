// How long ago something was, and how many needles, in words.
#pragma once

#include <QString>

namespace travo::diagnostics {

// "0.1 s ago" below 10 s, then "14 s ago", "3 min ago", "2 h ago"; cut, not rounded. Below 0 counts as 0.
QString AgoText(double seconds);

// "One needle" to "Four needles".
QString NeedleCountText(int count);

}  // namespace travo::diagnostics
