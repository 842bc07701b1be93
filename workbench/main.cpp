// travo-workbench: owns the simulated world and serves it on a local socket.
#include <fcntl.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <exception>
#include <memory>
#include <optional>
#include <string>

#include "platform/qt/BrokenPipe.h"
#include "workbench/commands/Bench.h"
#include "workbench/doors/ControlServer.h"
#include "workbench/doors/WirePorts.h"
#include "workbench/options/CommandLine.h"
#include "workbench/socket/SocketPath.h"
#include "workbench/window/WorkbenchWindow.h"

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

const QString Program = QStringLiteral("travo-workbench");

struct Options {
    QString programFolder;
    bool headless = false;
    bool endWithInput = false;
};

// The exit code where the program has nothing more to do.
std::optional<int> ReadOptions(int argc, char** argv, Options& options) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Simulated instruments for TRAVO."));
    const QCommandLineOption headless(QStringLiteral("headless"), QStringLiteral("Run without a window."));
    const QCommandLineOption folder(QStringLiteral("program-folder"),
                                    QStringLiteral("TRAVO's program folder."), QStringLiteral("folder"));
    const QCommandLineOption input(QStringLiteral("end-with-input"),
                                   QStringLiteral("End when the standard input is closed."));
    parser.addOptions({headless, folder, input});
    if (const auto exitCode = workbench::ReadCommandLine(parser, Program, argc, argv)) {
        return exitCode;
    }
    options.headless = parser.isSet(headless);
    options.endWithInput = parser.isSet(input);
    if (!parser.isSet(folder)) {
        return std::nullopt;
    }
    if (!QDir(parser.value(folder)).exists()) {
        return workbench::RefuseCommandLine(
            Program, QStringLiteral("there is no such program folder: ") + parser.value(folder));
    }
    options.programFolder = QDir(parser.value(folder)).absolutePath();
    return std::nullopt;
}

void MakeRuntimeFolder() {
    // Others must not reach the socket, wherever the folder stands. One that is there stays as it is.
    mkdir(workbench::RuntimeFolder().c_str(), 0700);
}

// Ends the program when the peer of the standard input has gone.
void WatchInput(QSocketNotifier& notifier) {
    QObject::connect(&notifier, &QSocketNotifier::activated, &notifier, [] {
        std::array<char, 256> ignored{};
        const ssize_t count = read(STDIN_FILENO, ignored.data(), ignored.size());
        if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR)) {
            QCoreApplication::quit();
        }
    });
}

int Run(const Options& options, int endSignals) {
    const std::string programFolder = options.programFolder.toStdString();
    workbench::Bench bench(programFolder);
    const auto start = std::chrono::steady_clock::now();
    const auto clock = [start] {
        return std::chrono::duration_cast<workbench::Time>(std::chrono::steady_clock::now() - start);
    };
    workbench::ControlServer server(bench.commands, clock, [] { QCoreApplication::quit(); });
    MakeRuntimeFolder();
    server.Listen(workbench::SocketPath());
    // After the socket: a second workbench must not take the links of the first.
    const workbench::WirePorts ports(bench.instruments, programFolder, clock);

    QSocketNotifier asked(endSignals, QSocketNotifier::Read);
    QObject::connect(&asked, &QSocketNotifier::activated, &asked, [] { QCoreApplication::quit(); });
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    input.setEnabled(options.endWithInput);
    WatchInput(input);

    std::optional<workbench::WorkbenchWindow> window;
    if (!options.headless) {
        window.emplace([&](const std::string& line) { return bench.commands.Answer(line, clock()); });
        window->show();
    }

    std::printf("travo-workbench: ready at %s\n", workbench::SocketPath().c_str());
    std::fflush(stdout);
    return QCoreApplication::exec();
}

// Without a window no display is needed.
std::unique_ptr<QCoreApplication> MakeApplication(bool headless, int& argc, char** argv) {
    if (headless) {
        return std::make_unique<QCoreApplication>(argc, argv);
    }
    return std::make_unique<QApplication>(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
    travo::platform::qt::OutliveReaders();
    const int endSignals = EndSignals();
    Options options;
    if (const auto exitCode = ReadOptions(argc, argv, options)) {
        return *exitCode;
    }
    const std::unique_ptr<QCoreApplication> application = MakeApplication(options.headless, argc, argv);
    QCoreApplication::setApplicationName(Program);
    try {
        return Run(options, endSignals);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "travo-workbench: %s\n", failure.what());
        return 1;
    }
}
