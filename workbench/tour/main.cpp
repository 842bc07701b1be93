// tour: plays the operator on the workbench and says what truly happened. Ends with 1 at the first
// act that fails.
#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <optional>

#include "platform/qt/QtApplicationLoop.h"
#include "workbench/options/CommandLine.h"
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

const QString Program = QStringLiteral("tour");

bool IsDay(const QString& name) {
    return std::any_of(Days().begin(), Days().end(), [&name](const Day& day) { return day.name == name; });
}

// The exit code where there is nothing to be played.
std::optional<int> ReadWish(int argumentCount, char** arguments, Wish& wish) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Plays the operator on TRAVO's workbench."));
    const QCommandLineOption only(
        QStringLiteral("only"),
        QStringLiteral("Plays this alone: instruments, panels, calibration or windows."),
        QStringLiteral("name"));
    parser.addOption(only);
    parser.addPositionalArgument(QStringLiteral("program-folder"), QStringLiteral("TRAVO's program folder."));
    parser.addPositionalArgument(QStringLiteral("workbench"), QStringLiteral("The travo-workbench program."));
    parser.addPositionalArgument(QStringLiteral("pictures"), QStringLiteral("Folder for the screenshots."));
    if (const auto exitCode = workbench::ReadCommandLine(parser, Program, argumentCount, arguments)) {
        return exitCode;
    }
    if (parser.isSet(only) && !IsDay(parser.value(only))) {
        return workbench::RefuseCommandLine(
            Program, QStringLiteral("there is nothing to play of the name ") + parser.value(only));
    }
    if (parser.positionalArguments().size() != 3) {
        return workbench::RefuseCommandLine(
            Program, QStringLiteral("takes the program folder, the workbench and a folder for pictures"));
    }
    const auto path = [&](int index) {
        return QFileInfo(parser.positionalArguments().at(index)).absoluteFilePath();
    };
    wish = {{path(0), path(1), path(2)}, parser.value(only)};
    return std::nullopt;
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
    Wish wish;
    if (const auto exitCode = ReadWish(argumentCount, arguments, wish)) {
        return *exitCode;
    }
    travo::platform::qt::QtApplicationLoop::PreferX11();
    travo::platform::qt::QtApplicationLoop application(argumentCount, arguments);
    try {
        Play(wish);
    } catch (const std::exception& failure) {
        std::printf("\nThe tour failed: %s.\n", failure.what());
        return 1;
    }
    workbench::tour::PrintHeading("The tour is complete.");
    return 0;
}
