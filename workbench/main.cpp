// travo-workbench: owns the simulated world and serves it on a local socket.
#include <fcntl.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <memory>
#include <optional>
#include <stdexcept>

#include "platform/qt/BrokenPipe.h"
#include "workbench/HelpWish.h"
#include "workbench/commands/Bench.h"
#include "workbench/doors/ControlServer.h"
#include "workbench/doors/WirePorts.h"
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

struct Options {
    std::string programFolder;
    bool headless = false;
    bool endWithInput = false;
};

Options ReadOptions(const QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Simulated instruments for TRAVO."));
    const QCommandLineOption headless(QStringLiteral("headless"), QStringLiteral("Run without a window."));
    const QCommandLineOption folder(QStringLiteral("program-folder"),
                                    QStringLiteral("TRAVO's program folder."), QStringLiteral("folder"));
    const QCommandLineOption input(QStringLiteral("end-with-input"),
                                   QStringLiteral("End when the standard input is closed."));
    parser.addOptions({headless, folder, input});
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(application);
    Options options;
    options.headless = parser.isSet(headless);
    options.endWithInput = parser.isSet(input);
    if (parser.isSet(folder)) {
        if (!QDir(parser.value(folder)).exists()) {
            throw std::runtime_error("there is no such program folder: " +
                                     parser.value(folder).toStdString());
        }
        options.programFolder = QDir(parser.value(folder)).absolutePath().toStdString();
    }
    return options;
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

int Run(QCoreApplication& application, int endSignals) {
    const Options options = ReadOptions(application);
    workbench::Bench bench(options.programFolder);
    const auto start = std::chrono::steady_clock::now();
    const auto clock = [start] {
        return std::chrono::duration_cast<workbench::Time>(std::chrono::steady_clock::now() - start);
    };
    workbench::ControlServer server(bench.commands, clock, [] { QCoreApplication::quit(); });
    MakeRuntimeFolder();
    server.Listen(workbench::SocketPath());
    // After the socket: a second workbench must not take the links of the first.
    const workbench::WirePorts ports(bench.instruments, options.programFolder, clock);

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
std::unique_ptr<QCoreApplication> MakeApplication(int& argc, char** argv) {
    if (workbench::IsAskedAboutItself(argc, argv)) {
        return std::make_unique<QCoreApplication>(argc, argv);
    }
    for (int place = 1; place < argc; ++place) {
        if (std::strcmp(argv[place], "--headless") == 0) {
            return std::make_unique<QCoreApplication>(argc, argv);
        }
    }
    return std::make_unique<QApplication>(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
    travo::platform::qt::OutliveReaders();
    const int endSignals = EndSignals();
    const std::unique_ptr<QCoreApplication> application = MakeApplication(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("travo-workbench"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TRAVO_VERSION));
    try {
        return Run(*application, endSignals);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "travo-workbench: %s\n", failure.what());
        return 1;
    }
}
