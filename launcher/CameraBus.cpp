#include "launcher/CameraBus.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStringList>
#include <chrono>
#include <stdexcept>

#include "platform/qt/SessionBus.h"

namespace travo::launcher {

namespace {

const QString Camera = QStringLiteral("TRAVOLive.Live");
constexpr std::chrono::milliseconds Limit(2000);
constexpr int StartLimit = 10000;  // ms, on a machine that is busy

[[noreturn]] void Fail(const QString& sentence) { throw std::runtime_error(sentence.toStdString()); }

// What a service file cannot hold within its quotes.
bool FitsServiceFile(const QString& path) {
    for (const char sign : {'"', '\\', '`', '$', '\n'}) {
        if (path.contains(QLatin1Char(sign))) {
            return false;
        }
    }
    return true;
}

QByteArray DataFoldersBehind(const QString& first) {
    const QByteArray usual = qEnvironmentVariableIsEmpty("XDG_DATA_DIRS") ? "/usr/local/share:/usr/share"
                                                                          : qgetenv("XDG_DATA_DIRS");
    return QFile::encodeName(first) + ':' + usual;
}

[[noreturn]] void BecomeBus(int addressPipe, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != parent) {
        _exit(1);
    }
    // A key that ends the program in a terminal must not take its bus from it before it has closed.
    setpgid(0, 0);
    dup2(addressPipe, 3);
    // It tells of each service that it starts, in the middle of what the program says.
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        dup2(nowhere, stream);
    }
    execlp("dbus-daemon", "dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=3",
           static_cast<char*>(nullptr));
    _exit(1);
}

// The line that the bus prints as soon as it can be reached; empty where none comes.
QByteArray AddressFrom(int pipe) {
    QByteArray address;
    pollfd waiting{pipe, POLLIN, 0};
    while (!address.endsWith('\n') && poll(&waiting, 1, StartLimit) > 0) {
        char piece[256];
        const ssize_t count = read(pipe, piece, sizeof piece);
        if (count <= 0) {
            return {};
        }
        address.append(piece, static_cast<int>(count));
    }
    return address.trimmed();
}

}  // namespace

bool UsersBusKnowsCamera() {
    const QString address = platform::qt::SessionBusAddress();
    if (address.isEmpty() || platform::qt::IsSilent(address, Limit)) {
        return false;
    }
    const QString name = QStringLiteral("launcher");
    const QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ListActivatableNames"));
    const QDBusReply<QStringList> known = QDBusConnection::connectToBus(address, name)
                                              .call(question, QDBus::Block, static_cast<int>(Limit.count()));
    QDBusConnection::disconnectFromBus(name);
    return known.isValid() && known.value().contains(Camera);
}

QString WriteCameraService(const QString& programFolder) {
    const QDir folder(programFolder);
    const QString program = folder.absoluteFilePath(QStringLiteral("TRAVOLive"));
    if (!FitsServiceFile(program)) {
        Fail(QStringLiteral("The path %1 holds a sign that the camera's service file cannot.").arg(program));
    }
    const QString data = folder.absoluteFilePath(QStringLiteral("bus"));
    const QString services = data + QStringLiteral("/dbus-1/services");
    QSaveFile file(services + QLatin1Char('/') + Camera + QStringLiteral(".service"));
    const QString text = QStringLiteral("[D-BUS Service]\nName=%1\nExec=\"%2\"\n").arg(Camera, program);
    if (!QDir().mkpath(services) || !file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 ||
        !file.commit()) {
        Fail(QStringLiteral("The camera's service file cannot be written in %1.").arg(services));
    }
    return data;
}

QByteArray StartOwnBus(const QString& dataFolder) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        Fail(QStringLiteral("A session bus cannot be started."));
    }
    const QByteArray folders = DataFoldersBehind(dataFolder);
    const pid_t self = getpid();
    const pid_t bus = fork();
    if (bus == 0) {
        setenv("XDG_DATA_DIRS", folders.constData(), 1);
        BecomeBus(ends[1], self);
    }
    close(ends[1]);
    const QByteArray address = bus > 0 ? AddressFrom(ends[0]) : QByteArray();
    close(ends[0]);
    if (address.isEmpty()) {
        Fail(QStringLiteral("A session bus cannot be started. The package dbus-daemon has it."));
    }
    return address;
}

}  // namespace travo::launcher
