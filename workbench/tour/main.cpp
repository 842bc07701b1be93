// tour: plays the operator on the workbench and says what truly happened. Ends with 1 at the first
// act that fails.
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>

#include "platform/qt/QtApplicationLoop.h"
#include "workbench/HelpWish.h"
#include "workbench/tour/CalibrationAct.h"
#include "workbench/tour/NeedleAct.h"
#include "workbench/tour/PanelAct.h"
#include "workbench/tour/ProgramAct.h"
#include "workbench/tour/Report.h"
#include "workbench/tour/SerialAct.h"
#include "workbench/tour/Stage.h"
#include "workbench/tour/WindowAct.h"
#include "workbench/tour/WireFaultAct.h"

namespace {

using workbench::tour::Stage;

// What is played on one workbench: nothing of it is left in the world of the next.
struct Day {
    QString name;
    void (*play)(Stage& stage);
};

void PlayInstruments(Stage& stage) {
    workbench::tour::PlayNeedleAct(stage);
    workbench::tour::PlaySerialAct(stage);
    workbench::tour::PlayWireFaultAct(stage);
    workbench::tour::PlayProgramAct(stage);
}

const std::array<Day, 4>& Days() {
    static const std::array<Day, 4> days{
        {{QStringLiteral("instruments"), PlayInstruments},
         {QStringLiteral("panels"), workbench::tour::PlayPanelAct},
         {QStringLiteral("calibration"), workbench::tour::PlayCalibrationAct},
         {QStringLiteral("windows"), workbench::tour::PlayWindowAct}}};
    return days;
}

struct Wish {
    workbench::tour::Places places;
    QString only;  // the one day to be played, empty for all
};

Wish ReadWish(const QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Plays the operator on TRAVO's workbench."));
    parser.addHelpOption();
    const QCommandLineOption only(
        QStringLiteral("only"),
        QStringLiteral("Plays this alone: instruments, panels, calibration or windows."),
        QStringLiteral("name"));
    parser.addOption(only);
    parser.addPositionalArgument(QStringLiteral("program-folder"), QStringLiteral("TRAVO's program folder."));
    parser.addPositionalArgument(QStringLiteral("workbench"), QStringLiteral("The travo-workbench program."));
    parser.addPositionalArgument(QStringLiteral("pictures"), QStringLiteral("Folder for the screenshots."));
    parser.process(application);
    const bool known = !parser.isSet(only) || std::any_of(Days().begin(), Days().end(), [&](const Day& day) {
        return day.name == parser.value(only);
    });
    if (parser.positionalArguments().size() != 3 || !known) {
        parser.showHelp(1);
    }
    const auto path = [&](int index) {
        return QFileInfo(parser.positionalArguments().at(index)).absoluteFilePath();
    };
    return {{path(0), path(1), path(2)}, parser.value(only)};
}

void Play(const Wish& wish) {
    for (const Day& day : Days()) {
        if (wish.only.isEmpty() || wish.only == day.name) {
            Stage stage(wish.places);
            day.play(stage);
        }
    }
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (workbench::IsAskedAboutItself(argumentCount, arguments)) {
        const QCoreApplication application(argumentCount, arguments);
        ReadWish(application);
        return 1;
    }
    travo::platform::qt::QtApplicationLoop::PreferX11();
    travo::platform::qt::QtApplicationLoop application(argumentCount, arguments);
    try {
        Play(ReadWish(application));
    } catch (const std::exception& failure) {
        std::printf("\nThe tour failed: %s.\n", failure.what());
        return 1;
    }
    workbench::tour::PrintHeading("The tour is complete.");
    return 0;
}
