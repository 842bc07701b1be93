// workbench-ask: sends one command to the running workbench and prints its answer.
#include <QStringList>
#include <chrono>
#include <cstdio>
#include <exception>

#include "workbench/client/WorkbenchClient.h"
#include "workbench/options/CommandLine.h"

int main(int argumentCount, char** arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Sends one command to the running workbench."));
    parser.addPositionalArgument(
        QStringLiteral("command"),
        QStringLiteral(
            "\"ready\", which waits until the workbench answers, or a command of docs/workbench.md."),
        QStringLiteral("ready | COMMAND..."));
    // Words of a command may begin with a minus.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    if (const auto exitCode =
            workbench::ReadCommandLine(parser, QStringLiteral("workbench-ask"), argumentCount, arguments)) {
        return *exitCode;
    }
    const QString command = parser.positionalArguments().join(QLatin1Char(' '));
    if (command.isEmpty()) {
        std::fprintf(stderr, "usage: workbench-ask ready | COMMAND...   (commands: docs/workbench.md)\n");
        return 2;
    }
    try {
        workbench::WorkbenchClient client;
        if (command == QLatin1String("ready")) {
            return client.WaitUntilReady(std::chrono::seconds(10)) ? 0 : 1;
        }
        std::printf("%s\n", client.Ask(command.toStdString()).c_str());
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "workbench-ask: %s\n", failure.what());
        return 1;
    }
}
