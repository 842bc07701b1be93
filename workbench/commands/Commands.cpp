#include "workbench/commands/Commands.h"

#include <exception>
#include <utility>

namespace workbench {

namespace {

constexpr std::string_view DriverWord = "driver";

}  // namespace

Commands::Commands(World& world, const Manipulators& manipulators)
    : world_(world), manipulators_(manipulators) {
    Add("ping", [](const Words& words, Time) {
        ExpectWords(words, 0, 0);
        return std::string();
    });
    Add("shutdown", [this](const Words& words, Time) {
        ExpectWords(words, 0, 0);
        shutdownWanted_ = true;
        return std::string();
    });
}

void Commands::Add(const std::string& name, Command command) { commands_[name] = std::move(command); }

std::string Commands::Answer(std::string_view line, Time now) {
    try {
        Words words = SplitWords(line.substr(0, LongestLine));
        std::string name(WordAt(words, 0));
        std::size_t nameWords = 1;
        if (!commands_.contains(name) && words.size() > 1) {
            name.append(1, ' ').append(words[1]);
            nameWords = 2;
        }
        const auto command = commands_.find(name);
        if (command == commands_.end()) {
            return "error there is no such command";
        }
        const bool driverCall = words[0] == DriverWord;
        words.erase(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(nameWords));
        world_.Advance(now);
        return std::string(driverCall ? "" : "ok").append(command->second(words, now));
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
