// The table of commands as it is told: to one who asks, and to the docs.
#pragma once

#include <string>

#include "workbench/protocol/Words.h"

namespace workbench {

// All commands by their sections, each with its sentence; with words behind "help", those that begin with
// them, with arguments and answers as well. Lines ended by LF. Empty where no command begins so.
std::string HelpText(const Words& beginning);

// The section "Commands" of docs/workbench.md: headings and tables, without the marks that stand around it
// there.
std::string MarkdownText();

}  // namespace workbench
