// The launcher as a user starts it, with a program in TRAVO's place that tells how it was started.
#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

#include "launcher/PackageRig.h"

namespace travo::launcher::test {

namespace {

constexpr int Limit = 20000;

struct Outcome {
    int code = -1;
    QString output;
    QString errors;
};

class LauncherTest : public ::testing::Test, protected PackageRig {
protected:
    LauncherTest() {
        QDir().mkpath(place.filePath(QStringLiteral("usr/bin")));
        QFile::copy(QStringLiteral(LAUNCHER), place.filePath(QStringLiteral("usr/bin/travo")));
        QDir().mkpath(place.filePath(QStringLiteral("run")));
        environment.remove(QStringLiteral("DISPLAY"));
        environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), place.filePath(QStringLiteral("data")));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), place.filePath(QStringLiteral("run")));
        Program("#!/bin/sh\necho \"program $0\"\necho \"arguments $#\"\n");
    }

    void Program(const QByteArray& script) {
        PutFile(package + QStringLiteral("/TRAVO"), script);
        QFile::setPermissions(package + QStringLiteral("/TRAVO"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    Outcome Start(const QStringList& arguments) const {
        QProcess launcher;
        launcher.setProcessEnvironment(environment);
        launcher.start(place.filePath(QStringLiteral("usr/bin/travo")), arguments);
        EXPECT_TRUE(launcher.waitForFinished(Limit));
        return {launcher.exitCode(), QString::fromLocal8Bit(launcher.readAllStandardOutput()),
                QString::fromLocal8Bit(launcher.readAllStandardError())};
    }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
};

TEST_F(LauncherTest, ItBecomesTRAVOInTheUsersFolderWithoutAnArgument) {
    const Outcome outcome = Start({});
    EXPECT_EQ(outcome.output, QStringLiteral("program %1\narguments 0\n").arg(In("TRAVO")));
    EXPECT_EQ(outcome.errors.toStdString(), "");
    EXPECT_EQ(outcome.code, 0);
}

TEST_F(LauncherTest, TheExitCodeIsTheProgramsOwn) {
    Program("#!/bin/sh\nexit 7\n");
    EXPECT_EQ(Start({}).code, 7);
}

TEST_F(LauncherTest, ABusOfItsOwnCanStartTheCameraAndEndsWithTheProgram) {
    Program(
        "#!/bin/sh\ndbus-send --session --print-reply --dest=org.freedesktop.DBus /org/freedesktop/DBus "
        "org.freedesktop.DBus.ListActivatableNames\necho \"$DBUS_SESSION_BUS_ADDRESS\"\n");
    const Outcome outcome = Start({});
    EXPECT_TRUE(outcome.output.contains(QStringLiteral("\"TRAVOLive.Live\"")))
        << outcome.output.toStdString();
    EXPECT_TRUE(Bytes(In("bus/dbus-1/services/TRAVOLive.Live.service")).contains(In("TRAVOLive").toUtf8()));
    // A socket of the file system, or an abstract one: whoever listened there has gone.
    const QString address = outcome.output.trimmed().section(QLatin1Char('\n'), -1);
    QProcess question;
    QProcessEnvironment after = environment;
    after.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
    question.setProcessEnvironment(after);
    for (int look = 0; look < 400; ++look) {
        question.start(
            QStringLiteral("dbus-send"),
            {QStringLiteral("--session"), QStringLiteral("--print-reply"),
             QStringLiteral("--dest=org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
             QStringLiteral("org.freedesktop.DBus.GetId")});
        ASSERT_TRUE(question.waitForFinished(Limit));
        if (question.exitCode() != 0) {
            return;
        }
    }
    FAIL() << "the bus goes on: " << address.toStdString();
}

TEST_F(LauncherTest, AUsersBusThatKnowsACameraIsTaken) {
    const QString services = place.filePath(QStringLiteral("share/dbus-1/services"));
    PutFile(services + QStringLiteral("/TRAVOLive.Live.service"),
            "[D-BUS Service]\nName=TRAVOLive.Live\nExec=/bin/false\n");
    Program("#!/bin/sh\necho \"bus $DBUS_SESSION_BUS_ADDRESS\"\n");
    QProcess session;
    QProcessEnvironment known = environment;
    known.insert(QStringLiteral("XDG_DATA_DIRS"),
                 place.filePath(QStringLiteral("share")) + QStringLiteral(":/usr/share"));
    session.setProcessEnvironment(known);
    session.start(QStringLiteral("dbus-run-session"),
                  {QStringLiteral("--"), QStringLiteral("sh"), QStringLiteral("-c"),
                   QStringLiteral("echo \"bus $DBUS_SESSION_BUS_ADDRESS\"; exec %1/bin/travo")
                       .arg(place.filePath(QStringLiteral("usr")))});
    ASSERT_TRUE(session.waitForFinished(Limit));
    const QStringList lines =
        QString::fromLocal8Bit(session.readAllStandardOutput()).trimmed().split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0], lines[1]);
    EXPECT_FALSE(QFile::exists(In("bus")));
}

TEST_F(LauncherTest, HelpVersionAndFolderNeedNoDisplayAndMakeNothing) {
    EXPECT_TRUE(
        Start({QStringLiteral("--help")}).output.contains(QStringLiteral("--pin <mirror|gauge|motor>")));
    EXPECT_EQ(Start({QStringLiteral("--version")}).output, QStringLiteral("travo " TRAVO_VERSION "\n"));
    EXPECT_EQ(Start({QStringLiteral("--folder")}).output, folder + QLatin1Char('\n'));
    EXPECT_FALSE(QFile::exists(folder));
}

TEST_F(LauncherTest, APinIsMadeAndSaid) {
    PutFile(place.filePath(QStringLiteral("ttyUSB7")), "");
    const QString device = place.filePath(QStringLiteral("ttyUSB7"));
    const Outcome outcome = Start({QStringLiteral("--pin"), QStringLiteral("gauge"), device});
    EXPECT_EQ(
        outcome.output,
        QStringLiteral("Port 2 is %1: choose 2 for the gauge in TRAVO's connection panel.\n").arg(device));
    EXPECT_EQ(QFile::symLinkTarget(In("ports/com2")), device);
    EXPECT_EQ(outcome.code, 0);
}

TEST_F(LauncherTest, WrongOptionsAreToldWithExitCodeOne) {
    const QStringList wrong[] = {
        {QStringLiteral("--pin"), QStringLiteral("camera"), QStringLiteral("/dev/null")},
        {QStringLiteral("--pin"), QStringLiteral("mirror")},
        {QStringLiteral("--pin"), QStringLiteral("mirror"), QStringLiteral("/dev/none")},
        {QStringLiteral("/dev/null")},
        {QStringLiteral("--nothing")}};
    for (const QStringList& arguments : wrong) {
        const Outcome outcome = Start(arguments);
        EXPECT_EQ(outcome.code, 1) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_FALSE(outcome.errors.isEmpty());
        EXPECT_FALSE(QFile::exists(In("ports")));
    }
}

TEST_F(LauncherTest, AProgramThatCannotBeStartedIsTold) {
    PutFile(package + QStringLiteral("/TRAVO"), "no program");
    const Outcome outcome = Start({});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.errors.startsWith(QStringLiteral("travo: "))) << outcome.errors.toStdString();
}

}  // namespace

}  // namespace travo::launcher::test
