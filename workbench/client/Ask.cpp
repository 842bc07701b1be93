// workbench-ask: sends one command to the running workbench and prints its answer, or explains the commands.
#include <chrono>
#include <cstdio>
#include <exception>
#include <string>

#include "workbench/client/WorkbenchClient.h"
#include "workbench/protocol/CommandHelp.h"

namespace {

constexpr const char* Usage =
    "usage: workbench-ask ready | COMMAND...\n"
    "       workbench-ask help [COMMAND...] | help --markdown\n";

// No workbench need run.
int Explain(const std::string& beginning) {
    const std::string text = beginning == "--markdown"
                                 ? workbench::MarkdownText()
                                 : workbench::HelpText(workbench::SplitWords(beginning));
    if (text.empty()) {
        std::fprintf(stderr, "workbench-ask: no command begins with \"%s\"\n", beginning.c_str());
        return 1;
    }
    std::fputs(text.c_str(), stdout);
    return 0;
}

int Ask(const std::string& command) {
    try {
        workbench::WorkbenchClient client;
        if (command == "ready") {
            return client.WaitUntilReady(std::chrono::seconds(10)) ? 0 : 1;
        }
        std::printf("%s\n", client.Ask(command).c_str());
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "workbench-ask: %s\n", failure.what());
        return 1;
    }
}

}  // namespace

int main(int argumentCount, char** arguments) {
    std::string command;
    for (int i = 1; i < argumentCount; ++i) {
        command += (i > 1 ? " " : "") + std::string(arguments[i]);
    }
    if (command.empty()) {
        std::fputs(Usage, stderr);
        return 2;
    }
    constexpr std::string_view Help = "help";
    const bool isHelp = command == Help || command.starts_with("help ");
    return isHelp ? Explain(command.substr(std::min(command.size(), Help.size() + 1))) : Ask(command);
}
