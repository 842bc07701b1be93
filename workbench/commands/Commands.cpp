#include "workbench/commands/Commands.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "core/ground/Arithmetic.h"
#include "workbench/protocol/CommandTable.h"

namespace workbench {

namespace {

constexpr std::string_view DriverWord = "driver";

}  // namespace

Commands::Commands(World& world, const Manipulators& manipulators)
    : world_(world), manipulators_(manipulators) {
    Add("ping", [](const Words&, Time) { return std::string(); });
    Add("shutdown", [this](const Words&, Time) {
        shutdownWanted_ = true;
        return std::string();
    });
}

void Commands::Add(std::string_view form, Handler handler) {
    const std::vector<Command>& all = AllCommands();
    if (std::none_of(all.begin(), all.end(),
                     [form](const Command& one) { return one.form.Shown() == form; })) {
        throw travo::BoundsFailure("the table of commands does not hold " + std::string(form));
    }
    handlers_[std::string(form)] = std::move(handler);
}

std::vector<std::string> Commands::Missing() const {
    std::vector<std::string> missing;
    for (const Command& command : AllCommands()) {
        if (!handlers_.contains(command.form.Shown())) {
            missing.push_back(command.form.Shown());
        }
    }
    return missing;
}

std::string Commands::Answer(std::string_view line, Time now) {
    try {
        const Words words = SplitWords(line.substr(0, LongestLine));
        const FoundCommand found = FindCommand(words);
        if (found.command == nullptr) {
            return "error " + found.refusal;
        }
        const Handler& handler = handlers_.at(found.command->form.Shown());
        world_.Advance(now);
        return std::string(words[0] == DriverWord ? "" : "ok").append(handler(found.arguments, now));
    } catch (const std::exception& failure) {
        return std::string("error ").append(failure.what());
    }
}

bool Commands::MustWait(std::string_view line, Time now) const {
    if (!manipulators_.HangsAt(now)) {
        return false;
    }
    const Words words = SplitWords(line.substr(0, LongestLine));
    return !words.empty() && words.front() == DriverWord;
}

}  // namespace workbench
