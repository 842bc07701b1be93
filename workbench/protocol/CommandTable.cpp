#include "workbench/protocol/CommandTable.h"

#include <algorithm>
#include <array>

namespace workbench {

namespace {

constexpr std::size_t LongestQuote = 40;

// Words of a line as they may stand in one line of an answer.
std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char letter : text.substr(0, LongestQuote)) {
        quoted += letter >= ' ' && letter < '\x7f' && letter != '"' ? letter : '?';
    }
    return quoted.append(text.size() > LongestQuote ? "...\"" : "\"");
}

std::string Joined(const Words& words, std::size_t count) {
    std::string text;
    for (std::size_t place = 0; place < count; ++place) {
        text.append(place > 0 ? " " : "").append(words[place]);
    }
    return text;
}

// Why no command fits: told from those that fit furthest.
class Refusal {
public:
    void Take(const CommandForm::Fit& fit) {
        if (fit.places > furthest_) {
            furthest_ = fit.places;
            wanted_.clear();
        }
        const bool isNew = std::find(wanted_.begin(), wanted_.end(), fit.wanted) == wanted_.end();
        if (fit.places == furthest_ && !fit.wanted.empty() && isNew) {
            wanted_.push_back(fit.wanted);
        }
    }

    std::string Sentence(const Words& words) const {
        if (words.empty()) {
            return "a command is expected; \"workbench-ask help\" lists them all";
        }
        if (furthest_ == 0) {
            return "there is no command " + Quoted(words[0]) + "; \"workbench-ask help\" lists them all";
        }
        const std::string begun = Quoted(Joined(words, furthest_));
        if (wanted_.empty()) {
            return "nothing may follow " + begun;
        }
        std::string choices;
        for (const std::string& wanted : wanted_) {
            choices.append(choices.empty() ? "" : "|").append(wanted);
        }
        const std::string end =
            furthest_ < words.size() ? ", not " + Quoted(words[furthest_]) : std::string();
        return begun + " is to be followed by " + ChoiceText(choices) + end;
    }

private:
    std::size_t furthest_ = 0;
    std::vector<std::string> wanted_;
};

}  // namespace

std::span<const CommandSection> CommandSections() {
    static const std::array<CommandSection, 10> sections = {
        rows::Driver, rows::World,  rows::Imperfections, rows::Settings,   rows::Optics,
        rows::Wires,  rows::Camera, rows::DriverFaults,  rows::WireFaults, rows::AllFaults};
    return sections;
}

const std::vector<Command>& AllCommands() {
    static const std::vector<Command> commands = [] {
        std::vector<Command> all;
        for (const CommandSection& section : CommandSections()) {
            for (const CommandRow& row : section.rows) {
                all.push_back({CommandForm(row.form), row});
            }
        }
        return all;
    }();
    return commands;
}

FoundCommand FindCommand(const Words& words) {
    Refusal refusal;
    for (const Command& command : AllCommands()) {
        if (words.empty() || command.form.FirstWord() != words[0]) {
            continue;
        }
        CommandForm::Fit fit = command.form.FitTo(words);
        if (fit.whole) {
            return {&command, std::move(fit.arguments), {}};
        }
        refusal.Take(fit);
    }
    return {nullptr, {}, refusal.Sentence(words)};
}

}  // namespace workbench
