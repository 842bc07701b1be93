// The one table of the workbench's commands. What a line may hold is read from it, "workbench-ask help" tells
// it, and the list of commands in docs/workbench.md is made of it.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "workbench/protocol/CommandForm.h"
#include "workbench/protocol/Rows.h"

namespace workbench {

// In the order in which they are told.
std::span<const CommandSection> CommandSections();

// A command with its form read.
struct Command {
    CommandForm form;
    const CommandRow& row;
};
// All of them. Read once.
const std::vector<Command>& AllCommands();

// The command that a line of words is, and its arguments; none, and a sentence for the one who typed it.
// Words at index 0 and on.
struct FoundCommand {
    const Command* command = nullptr;
    Words arguments;
    std::string refusal;
};
FoundCommand FindCommand(const Words& words);

}  // namespace workbench
