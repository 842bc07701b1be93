#include "workbench/protocol/CommandHelp.h"

#include <algorithm>

#include "workbench/protocol/CommandTable.h"

namespace workbench {

namespace {

const Command& CommandOf(const CommandRow& row) {
    const std::vector<Command>& all = AllCommands();
    return *std::find_if(all.begin(), all.end(),
                         [&row](const Command& one) { return one.row.form == row.form; });
}

// The words of a form that stand there as they are, up to the first that is left open.
bool BeginsWith(const CommandForm& form, const Words& beginning) {
    const CommandForm::Fit fit = form.FitTo(beginning);
    return fit.places == beginning.size();
}

std::string AnswerText(const CommandRow& row) {
    if (row.answer.starts_with("status")) {
        return std::string(row.answer);
    }
    return row.answer.empty() ? std::string("ok") : "ok, then " + std::string(row.answer);
}

std::string Detail(const CommandRow& row) {
    const CommandForm& form = CommandOf(row).form;
    std::string text = form.Shown() + "\n    " + std::string(row.sentence) + "\n";
    if (const std::string ranges = form.Ranges(); !ranges.empty()) {
        text += "    Arguments: " + ranges + "\n";
    }
    return text + "    Answer: " + AnswerText(row) + "\n";
}

std::string Overview() {
    std::string text;
    for (const CommandSection& section : CommandSections()) {
        text.append(text.empty() ? "" : "\n").append(section.title).append("\n");
        for (const CommandRow& row : section.rows) {
            text.append("  ").append(CommandOf(row).form.Shown()).append("\n");
            text.append("      ").append(row.sentence).append("\n");
        }
    }
    return text;
}

// "|" parts the columns of a table, also within code.
std::string Cell(std::string_view text) {
    std::string cell;
    for (const char letter : text) {
        cell.append(letter == '|' ? "\\" : "").append(1, letter);
    }
    return cell;
}

// A text that is no code: what stands in angles would be taken for markup.
std::string Prose(std::string_view text) {
    std::string prose;
    for (const char letter : Cell(text)) {
        prose.append(letter == '<' ? "&lt;" : std::string(1, letter));
    }
    return prose;
}

std::string MarkdownAnswer(const CommandRow& row) {
    return row.answer.starts_with("status") ? "`" + Cell(row.answer) + "`" : Prose(row.answer);
}

}  // namespace

std::string HelpText(const Words& beginning) {
    if (beginning.empty()) {
        return Overview();
    }
    std::string text;
    for (const Command& command : AllCommands()) {
        if (BeginsWith(command.form, beginning)) {
            text += Detail(command.row);
        }
    }
    return text;
}

std::string MarkdownText() {
    std::string text;
    for (const CommandSection& section : CommandSections()) {
        text.append("### ").append(section.title).append("\n\n");
        if (!section.introduction.empty()) {
            text.append(section.introduction).append("\n\n");
        }
        text.append("| Line | Arguments | Answer | What it does |\n|---|---|---|---|\n");
        for (const CommandRow& row : section.rows) {
            const CommandForm& form = CommandOf(row).form;
            text.append("| `").append(Cell(form.Shown())).append("` | ").append(Prose(form.Ranges()));
            text.append(" | ")
                .append(MarkdownAnswer(row))
                .append(" | ")
                .append(Prose(row.sentence))
                .append(" |\n");
        }
        text.append("\n");
    }
    return text;
}

}  // namespace workbench
