// travo-diagnostics: tells what works and what to do. Opens no port.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <cstdio>

#include "diagnostics/readers/PageReader.h"
#include "diagnostics/readers/SettingsReader.h"
#include "diagnostics/words/Report.h"
#include "diagnostics/words/Summary.h"
#include "workbench/options/CommandLine.h"

namespace {

using namespace travo;

const QString Program = QStringLiteral("travo-diagnostics");

// The program folder that the launcher keeps for this user.
QString UsersFolder() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return QDir(data).filePath(QStringLiteral("travo"));
}

int PrintReport(const QString& programFolder) {
    const diagnostics::PagePlaces places{
        {.programFolder = programFolder}, diagnostics::DataFolder(), QStringLiteral(TRAVO_VERSION)};
    const diagnostics::Page page = diagnostics::ReadPage(places, diagnostics::Discretion::OfThisRun());
    std::fputs(diagnostics::ReportOf(page).toLocal8Bit().constData(), stdout);
    return diagnostics::SummaryOf(page).mark == diagnostics::Mark::NeedsYou ? 1 : 0;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Tells what of TRAVO and its instruments works, and what to do where something does not."));
    const QCommandLineOption text(QStringLiteral("text"),
                                  QStringLiteral("Print the report, as without any option."));
    const QCommandLineOption folder(
        QStringLiteral("program-folder"),
        QStringLiteral("Look at the TRAVO in this folder, not at that of this user."),
        QStringLiteral("FOLDER"));
    parser.addOptions({text, folder});
    if (const auto code = workbench::ReadCommandLine(parser, Program, argumentCount, arguments)) {
        return *code;
    }
    if (!parser.positionalArguments().isEmpty()) {
        return workbench::RefuseCommandLine(
            Program, QStringLiteral("%1 is no option.").arg(parser.positionalArguments().first()));
    }
    const QString wanted = parser.value(folder);
    if (parser.isSet(folder) && !QDir(wanted).exists()) {
        return workbench::RefuseCommandLine(Program, QStringLiteral("There is no folder %1.").arg(wanted));
    }
    const QCoreApplication application(argumentCount, arguments);
    return PrintReport(QDir(parser.isSet(folder) ? wanted : UsersFolder()).absolutePath());
}
