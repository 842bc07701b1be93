// tour: plays the operator on the workbench and says what truly happened. Ends with 1 at the first
// act that fails.
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <cstdio>
#include <exception>

#include "platform/qt/QtApplicationLoop.h"
#include "workbench/tour/NeedleAct.h"
#include "workbench/tour/PanelAct.h"
#include "workbench/tour/ProgramAct.h"
#include "workbench/tour/Report.h"
#include "workbench/tour/SerialAct.h"
#include "workbench/tour/Stage.h"
#include "workbench/tour/WireFaultAct.h"

namespace {

workbench::tour::Places ReadPlaces(const QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Plays the operator on TRAVO's workbench."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("program-folder"), QStringLiteral("TRAVO's program folder."));
    parser.addPositionalArgument(QStringLiteral("workbench"), QStringLiteral("The travo-workbench program."));
    parser.addPositionalArgument(QStringLiteral("pictures"), QStringLiteral("Folder for the screenshots."));
    parser.process(application);
    if (parser.positionalArguments().size() != 3) {
        parser.showHelp(1);
    }
    const auto path = [&](int index) {
        return QFileInfo(parser.positionalArguments().at(index)).absoluteFilePath();
    };
    return {path(0), path(1), path(2)};
}

}  // namespace

int main(int argumentCount, char** arguments) {
    travo::platform::qt::QtApplicationLoop::PreferX11();
    travo::platform::qt::QtApplicationLoop application(argumentCount, arguments);
    try {
        const workbench::tour::Places places = ReadPlaces(application);
        {
            workbench::tour::Stage stage(places);
            workbench::tour::PlayNeedleAct(stage);
            workbench::tour::PlaySerialAct(stage);
            workbench::tour::PlayWireFaultAct(stage);
            workbench::tour::PlayProgramAct(stage);
        }
        // A workbench of its own: nothing of the acts before is left in its world.
        workbench::tour::Stage stage(places);
        workbench::tour::PlayPanelAct(stage);
    } catch (const std::exception& failure) {
        std::printf("\nThe tour failed: %s.\n", failure.what());
        return 1;
    }
    workbench::tour::PrintHeading("The tour is complete.");
    return 0;
}
