// TRAVOLive: the workbench's stand-in for the live camera program, started by the session bus.
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <QApplication>
#include <QSocketNotifier>
#include <cstdio>

#include "platform/qt/BrokenPipe.h"
#include "workbench/live/LiveProgram.h"
#include "workbench/options/CommandLine.h"

namespace {

// A descriptor that becomes readable when the process is asked to end. To be called before anything
// else starts a thread, which would otherwise take the signal.
int EndSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGHUP);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

}  // namespace

int main(int argc, char** argv) {
    travo::platform::qt::OutliveReaders();
    const int endSignals = EndSignals();
    const QString name = QStringLiteral("TRAVOLive");
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Stands in for the live camera program; the session bus starts it."));
    if (const auto exitCode = workbench::ReadCommandLine(parser, name, argc, argv)) {
        return *exitCode;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(name);
    QApplication::setQuitOnLastWindowClosed(false);
    workbench::live::LiveProgram program(QApplication::applicationDirPath());
    if (!program.Start()) {
        std::fprintf(stderr, "TRAVOLive: the name TRAVOLive.Live cannot be had on the session bus\n");
        return 1;
    }
    QSocketNotifier asked(endSignals, QSocketNotifier::Read);
    QObject::connect(&asked, &QSocketNotifier::activated, &asked, [&program] { program.CloseByOperator(); });
    return QApplication::exec();
}
