#include "workbench/tour/ProgramAct.h"

#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <array>

#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

constexpr int WatchMilliseconds = 5000;

std::int64_t Reads(Stage& stage) { return stage.Workbench().Counters()["getposition"]; }

void WatchIdle(Stage& stage, QProcess& program) {
    const double before = ProcessorTime(program.processId());
    const std::int64_t readsBefore = Reads(stage);
    QElapsedTimer time;
    time.start();
    stage.WaitUntil([&] { return time.elapsed() >= WatchMilliseconds; }, "time stands still");
    const double used = ProcessorTime(program.processId()) - before;
    const auto elapsed = static_cast<double>(time.elapsed());
    const std::int64_t reads = Reads(stage) - readsBefore;
    std::array<char, 160> text{};
    std::snprintf(
        text.data(), text.size(),
        "the real program, idle on three open ports: %.2f %% of one core, %.2f reads of a needle a second",
        used / elapsed * 100.0, static_cast<double>(reads) * 1000.0 / elapsed);
    PrintLine(text.data());
    Require(reads > 0, "the real program reads no needle");
}

}  // namespace

double ProcessorTime(qint64 process) {
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    Require(file.open(QIODevice::ReadOnly), "the program has gone");
    const QByteArray text = file.readAll();
    // The name, which may hold blanks, ends at the last bracket; user and system time are the 12th and
    // 13th fields behind it.
    const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    const double ticks = fields.at(11).toDouble() + fields.at(12).toDouble();
    return ticks * 1000.0 / static_cast<double>(sysconf(_SC_CLK_TCK));
}

QByteArray LogText() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QFile file(QDir(data).filePath(QStringLiteral("Zelvo/Shared/Data/debugTRAVO.txt")));
    Require(file.open(QIODevice::ReadOnly), "the real program has left no log");
    return file.readAll();
}

void PlayProgramAct(Stage& stage) {
    PrintHeading("The real program, started on three open ports and closed once");
    stage.Workbench().WriteSettingsWithPorts(
        QDir(stage.Where().programFolder).filePath(QStringLiteral("KVData.ini")).toStdString());
    stage.Workbench().ForgetCounters();
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(QDir(stage.Where().programFolder).filePath(QStringLiteral("TRAVO")), QStringList());
    Require(program.waitForStarted(), "the real program does not start");
    stage.WaitUntil([&] { return Reads(stage) > 8; }, "the real program reads no needle");
    for (const char* const wire : {"mirror", "gauge", "motor"}) {
        stage.WaitUntil([&] { return stage.Workbench().Wire(wire).open; },
                        std::string("the real program has not opened the port of the ") + wire);
    }
    WatchIdle(stage, program);
    program.terminate();
    Require(program.waitForFinished(10000), "the real program does not end when asked to");
    Require(program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0,
            "the real program did not end well");
    Require(LogText().count('\n') == 1, "the real program has logged a failure: " + LogText().toStdString());
    PrintLine("closed: exit code 0, nothing in the log but its date");
}

}  // namespace workbench::tour
