#include "workbench/options/CommandLine.h"

#include <QCoreApplication>
#include <QStringList>
#include <cstdio>

namespace workbench {

namespace {

QStringList TextsOf(int argumentCount, const char* const* arguments) {
    QStringList texts;
    for (int place = 0; place < argumentCount; ++place) {
        texts << QString::fromLocal8Bit(arguments[place]);
    }
    return texts;
}

void Print(std::FILE* stream, const QString& text) { std::fputs(text.toLocal8Bit().constData(), stream); }

// Among Qt's programs it asks for Qt's options as well. Here there are none.
QCommandLineOption HelpOfAll() {
    QCommandLineOption option(QStringLiteral("help-all"));
    option.setFlags(QCommandLineOption::HiddenFromHelp);
    return option;
}

}  // namespace

std::optional<int> ReadCommandLine(QCommandLineParser& parser, const QString& program, int argumentCount,
                                   char** arguments) {
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Say what this program takes, and end."));
    const QCommandLineOption helpOfAll = HelpOfAll();
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Say which version this is, and end."));
    parser.addOptions({help, helpOfAll, version});
    if (!parser.parse(TextsOf(argumentCount, arguments))) {
        return RefuseCommandLine(program, parser.errorText());
    }
    if (parser.isSet(version)) {
        Print(stdout, program + QStringLiteral(" " TRAVO_VERSION "\n"));
        return 0;
    }
    if (parser.isSet(help) || parser.isSet(helpOfAll)) {
        // The text says by which path the program was started, which an application object alone knows.
        const QCoreApplication application(argumentCount, arguments);
        Print(stdout, parser.helpText());
        return 0;
    }
    return std::nullopt;
}

int RefuseCommandLine(const QString& program, const QString& sentence) {
    Print(stderr, program + QStringLiteral(": ") + sentence + QLatin1Char('\n'));
    return 1;
}

}  // namespace workbench
