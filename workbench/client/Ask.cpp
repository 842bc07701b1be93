// workbench-ask: sends one command to the running workbench and prints its answer.
#include <chrono>
#include <cstdio>
#include <exception>
#include <string>

#include "workbench/client/WorkbenchClient.h"

int main(int argumentCount, char** arguments) {
    std::string command;
    for (int i = 1; i < argumentCount; ++i) {
        command += (i > 1 ? " " : "") + std::string(arguments[i]);
    }
    if (command.empty()) {
        std::fprintf(stderr, "usage: workbench-ask ready | COMMAND...   (commands: docs/workbench.md)\n");
        return 2;
    }
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
