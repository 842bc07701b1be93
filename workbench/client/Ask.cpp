// workbench-ask: sends one command to the running workbench and prints its answer, or explains the commands.
#include <QStringList>
#include <chrono>
#include <cstdio>
#include <exception>
#include <string>

#include "workbench/client/WorkbenchClient.h"
#include "workbench/options/CommandLine.h"
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
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Sends one command to the running workbench."));
    parser.addPositionalArgument(
        QStringLiteral("command"),
        QStringLiteral(
            "\"ready\", which waits until the workbench answers; \"help\", which explains the commands that "
            "begin with the words behind it; or a command."),
        QStringLiteral("ready | help [COMMAND...] | COMMAND..."));
    // Words of a command may begin with a minus.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    if (const auto exitCode =
            workbench::ReadCommandLine(parser, QStringLiteral("workbench-ask"), argumentCount, arguments)) {
        return *exitCode;
    }
    const QStringList words = parser.positionalArguments();
    if (words.isEmpty()) {
        std::fputs(Usage, stderr);
        return 2;
    }
    if (words.first() == QLatin1String("help")) {
        return Explain(words.mid(1).join(QLatin1Char(' ')).toStdString());
    }
    return Ask(words.join(QLatin1Char(' ')).toStdString());
}
