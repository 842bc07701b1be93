#include "workbench/tour/WindowProgramAct.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <array>
#include <cstdio>
#include <functional>

#include "workbench/live/LiveClient.h"
#include "workbench/tour/Handling.h"
#include "workbench/tour/ProgramAct.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

constexpr int WatchMilliseconds = 10000;
// Reads of a needle until the program has settled: three seconds of ticks.
constexpr std::int64_t SettledReads = 15;

std::int64_t Reads(Stage& stage) { return stage.Workbench().Counters()["getposition"]; }

void WaitForProgram(Stage& stage) {
    for (const char* const wire : {"mirror", "gauge", "motor"}) {
        stage.WaitUntil([&] { return stage.Workbench().Wire(wire).open; },
                        std::string("the real program has not opened the port of the ") + wire);
    }
    live::LiveClient camera;
    stage.WaitUntil([&] { return camera.Running() && camera.Now().visible; },
                    "the real program has not opened the camera");
    stage.WaitUntil([&] { return stage.Workbench().Magnification() == 1; },
                    "the real program has not asked for 0.35x");
    camera.Save();
    stage.Workbench().SetMagnification(2);
    stage.WaitUntil([&] { return camera.Now().toldMagnification == 2; },
                    "the real program does not know of 2x");
}

// Moves needles and view as an operator's hands do: as soon as all rest, to other places, and another needle
// is chosen at the hardware.
class Session {
public:
    explicit Session(Stage& stage) : stage_(stage) {}

    void GoOn() {
        if (stage_.Workbench().AnyNeedleMoves()) {
            return;
        }
        ++round_;
        const std::int32_t way = round_ % 2 == 0 ? 2000 : -2000;
        for (std::int32_t needle = 1; needle <= travo::NeedleCount; ++needle) {
            stage_.Workbench().Jog(needle, {way, way / 2, way / 4});
        }
        stage_.Workbench().JogMirror(way / 50, way / 40);
        stage_.Workbench().JogFocus(way);
        stage_.Workbench().SelectAtHardware(round_ % travo::NeedleCount + 1);
    }

private:
    Stage& stage_;
    std::int32_t round_ = 0;
};

void Watch(Stage& stage, QProcess& program, const char* name, const std::function<void()>& meanwhile) {
    const std::int64_t settled = Reads(stage) + SettledReads;
    stage.WaitUntil(
        [&] {
            meanwhile();
            return Reads(stage) >= settled;
        },
        "the real program reads no needle");
    const double before = ProcessorTime(program.processId());
    const std::int64_t readsBefore = Reads(stage);
    QElapsedTimer time;
    time.start();
    stage.WaitUntil(
        [&] {
            meanwhile();
            return time.elapsed() >= WatchMilliseconds;
        },
        "time stands still");
    const double used = ProcessorTime(program.processId()) - before;
    const auto elapsed = static_cast<double>(time.elapsed());
    std::array<char, 160> text{};
    std::snprintf(text.data(), text.size(), "%s: %.2f %% of one core, %.2f reads of a needle a second", name,
                  used / elapsed * 100.0, static_cast<double>(Reads(stage) - readsBefore) * 1000.0 / elapsed);
    PrintLine(text.data());
}

}  // namespace

void PlayWindowProgramAct(Stage& stage) {
    PrintHeading("The real program with all its windows open");
    for (const char* const window : {"0", "1", "2", "3", "4"}) {
        Require(StoredSetting(stage, QStringLiteral("Window"), QLatin1String(window)) == QLatin1String("0"),
                "the settings do not have every window open");
    }
    stage.Workbench().ForgetCounters();
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(QDir(stage.Where().programFolder).filePath(QStringLiteral("TRAVO")), QStringList());
    Require(program.waitForStarted(), "the real program does not start");
    WaitForProgram(stage);
    Watch(stage, program, "idle for 10 s", [] {});
    Session session(stage);
    Watch(stage, program, "10 s of work, four needles, view and focus moving", [&] { session.GoOn(); });
    QGuiApplication::primaryScreen()->grabWindow(0).save(
        QDir(stage.Where().pictures).filePath(QStringLiteral("window-program.png")));
    program.terminate();
    Require(program.waitForFinished(10000), "the real program does not end when asked to");
    Require(program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0,
            "the real program did not end well");
    Require(LogText().count('\n') == 1, "the real program has logged a failure: " + LogText().toStdString());
}

}  // namespace workbench::tour
