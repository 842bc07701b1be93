#include "support/PrivateBus.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTimer>

namespace travo::test {

namespace {

constexpr int EndLimit = 20000;  // ms

const char* const Configuration =
    "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\""
    " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
    "<busconfig><type>session</type><listen>unix:dir=%1</listen>\n"
    "<servicedir>%1/services</servicedir><servicedir>%1/dbus-1/services</servicedir>\n"
    "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
    "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy>%2</busconfig>\n";
const char* const Full = "<limit name=\"max_connections_per_user\">0</limit>";

}  // namespace

bool ServeUntil(const std::function<bool()>& condition, int limitMilliseconds) {
    QElapsedTimer time;
    time.start();
    QTimer look;
    look.start(5);
    while (!condition()) {
        if (time.elapsed() > limitMilliseconds) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return true;
}

QString ReadText(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void WriteText(const QString& path, const QString& text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text.toUtf8());
}

PrivateBus::PrivateBus(Room room) {
    QDir(Folder()).mkdir(QStringLiteral("services"));
    const QString limit = QLatin1String(room == Room::None ? Full : "");
    WriteText(File(QStringLiteral("bus.conf")), QString::fromLatin1(Configuration).arg(Folder(), limit));
    Start();
}

PrivateBus::~PrivateBus() {
    Stop();
    for (const QString& process : NotedProcesses()) {
        EXPECT_TRUE(ServeUntil([&] { return !Runs(process); })) << "left running: " << process.toStdString();
    }
}

void PrivateBus::Start() {
    // The bus must not outlive a test that crashes.
    daemon_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    daemon_.start(
        QStringLiteral("dbus-daemon"),
        {QStringLiteral("--config-file=") + File(QStringLiteral("bus.conf")), QStringLiteral("--nofork"),
         QStringLiteral("--nopidfile"), QStringLiteral("--print-address=1")});
    while (!daemon_.canReadLine() && daemon_.waitForReadyRead(EndLimit)) {
    }
    const QByteArray address = daemon_.readLine().trimmed();
    ASSERT_FALSE(address.isEmpty()) << daemon_.readAllStandardError().toStdString();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
}

void PrivateBus::Stop() {
    if (daemon_.state() != QProcess::NotRunning) {
        daemon_.terminate();
        EXPECT_TRUE(daemon_.waitForFinished(EndLimit));
    }
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

void PrivateBus::Install(const QString& service, const QString& commandLine) const {
    WriteText(File(QStringLiteral("services/%1.service").arg(service)),
              QStringLiteral("[D-BUS Service]\nName=%1\nExec=%2\n").arg(service, commandLine));
}

void PrivateBus::Uninstall(const QString& service) const {
    QFile::remove(File(QStringLiteral("services/%1.service").arg(service)));
}

int PrivateBus::Clients() const {
    const QString name = QStringLiteral("private bus, counting");
    int unique = -1;
    {
        QDBusConnection connection =
            QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), name);
        for (const QString& owner : connection.interface()->registeredServiceNames().value()) {
            unique += owner.startsWith(QLatin1Char(':')) ? 1 : 0;
        }
    }
    QDBusConnection::disconnectFromBus(name);
    return unique;
}

QStringList PrivateBus::NotedProcesses() const {
    return ReadText(File(QStringLiteral("processes"))).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

// A process that has ended but that nobody has asked about yet counts as ended.
bool PrivateBus::Runs(const QString& process) {
    const QString status = ReadText(QStringLiteral("/proc/%1/stat").arg(process));
    return !status.isEmpty() && status.section(QLatin1Char(')'), -1).trimmed().at(0) != QLatin1Char('Z');
}

}  // namespace travo::test
