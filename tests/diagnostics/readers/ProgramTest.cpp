// travo-diagnostics as a user starts it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <string>

#include "diagnostics/readers/Processes.h"
#include "diagnostics/readers/Rig.h"

namespace travo::diagnostics::test {

namespace {

constexpr int Limit = 20000;

struct Outcome {
    int code = -1;
    QString output;
    QString errors;
};

class ProgramTest : public ::testing::Test, protected Rig {
protected:
    ProgramTest() {
        for (const char* name :
             {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "DBUS_SESSION_BUS_ADDRESS"}) {
            environment.remove(QLatin1String(name));
        }
        environment.insert(QStringLiteral("HOME"), place.path());
        environment.insert(QStringLiteral("USER"), QStringLiteral("ada"));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), data);
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), place.path());
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    }
    ~ProgramTest() override {
        travo.terminate();
        travo.waitForFinished(Limit);
    }

    Outcome Start(const QStringList& arguments) const {
        QProcess program;
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(DIAGNOSTICS), arguments);
        EXPECT_TRUE(program.waitForFinished(Limit));
        return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
                QString::fromUtf8(program.readAllStandardError())};
    }
    Outcome Report() const {
        return Start({QStringLiteral("--text"), QStringLiteral("--program-folder"), folder});
    }

    // A program of that name that holds TRAVO's lock and the terminal.
    void StartTravo(const QString& terminal) {
        const QString program = folder + QStringLiteral("/TRAVO");
        ASSERT_TRUE(QFile::copy(QStandardPaths::findExecutable(QStringLiteral("flock")), program));
        travo.setStandardInputFile(terminal);
        // What it starts ends with the terminal.
        travo.start(program,
                    {QStringLiteral("-n"), folder + QStringLiteral("/TRAVO.lock"), QStringLiteral("cat")});
    }

    QProcess travo;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
};

}  // namespace

TEST_F(ProgramTest, AnEmptyFolderNeedsItsDriverAndNothingElse) {
    const Outcome outcome = Report();
    EXPECT_EQ(outcome.errors.toStdString(), "");
    EXPECT_EQ(outcome.output.section(QLatin1Char('\n'), 0, 0).toStdString(), "One thing needs you: Needles");
    EXPECT_TRUE(outcome.output.contains(QStringLiteral("Mirror    Not set up    No port is set.\n")))
        << outcome.output.toStdString();
    EXPECT_EQ(outcome.code, 1);
}

TEST_F(ProgramTest, WhereAllThatIsSetUpWorksTheCodeIsZero) {
    QFile::copy(QStringLiteral(COMPLETE_DRIVER), folder + QStringLiteral("/libManipulatorDriver.so"));
    const Outcome outcome = Report();
    EXPECT_EQ(outcome.output.section(QLatin1Char('\n'), 0, 1).toStdString(),
              "All that is set up works\nTRAVO is not running: what needs an answer shows when it runs.");
    EXPECT_EQ(outcome.code, 0);
}

TEST_F(ProgramTest, TheReportNamesNoUserNoHostAndNoHomeFolder) {
    Put(data + QStringLiteral("/Zelvo/Shared/Data/debugTRAVO.txt"), "10:00:01 - /home/ada failed\r\n");
    const QString output = Report().output;
    EXPECT_TRUE(output.contains(QStringLiteral("/home/USER failed"))) << output.toStdString();
    EXPECT_TRUE(output.contains(QStringLiteral("File: ~/program/KVData.ini"))) << output.toStdString();
    EXPECT_FALSE(output.contains(place.path()));
}

TEST_F(ProgramTest, WithoutAFolderItLooksAtTheUsersOwn) {
    EXPECT_TRUE(Start({}).output.contains(QStringLiteral("File: ~/data/travo/KVData.ini")));
}

TEST_F(ProgramTest, AWrongOptionAnArgumentAndAFolderThatIsNotThereAreRefused) {
    EXPECT_EQ(Start({QStringLiteral("--wrong")}).code, 1);
    EXPECT_EQ(Start({QStringLiteral("folder")}).errors,
              QStringLiteral("travo-diagnostics: folder is no option.\n"));
    const Outcome outcome = Start({QStringLiteral("--program-folder"), QStringLiteral("/nowhere")});
    EXPECT_EQ(outcome.errors, QStringLiteral("travo-diagnostics: There is no folder /nowhere.\n"));
    EXPECT_EQ(outcome.code, 1);
}

TEST_F(ProgramTest, VersionAndHelpNeedNoDisplay) {
    EXPECT_TRUE(Start({QStringLiteral("--version")}).output.startsWith(QStringLiteral("travo-diagnostics ")));
    EXPECT_TRUE(
        Start({QStringLiteral("--help")}).output.contains(QStringLiteral("--program-folder <FOLDER>")));
}

TEST_F(ProgramTest, ACameraThatStoodOpenMissesItsBus) {
    Settings("[Window]\r\n0=0\r\n");
    EXPECT_TRUE(
        Report().output.contains(QStringLiteral("There is no session bus, so no camera can be reached.")));
}

TEST_F(ProgramTest, ARunningTravoIsSeenByItsLockAndHoldsItsPort) {
    int master = -1;
    int slave = -1;
    char name[256];
    ASSERT_EQ(::openpty(&master, &slave, name, nullptr, nullptr), 0);
    // What is started must not hold the terminal's other end, or it would never see its own end.
    ASSERT_EQ(::fcntl(master, F_SETFD, FD_CLOEXEC), 0);
    ASSERT_EQ(::fcntl(slave, F_SETFD, FD_CLOEXEC), 0);
    Pin(1, QString::fromLocal8Bit(name));
    Settings("[COMPort]\r\nMirror=1\r\n");
    EXPECT_FALSE(TravoIn(folder));
    StartTravo(QString::fromLocal8Bit(name));
    QElapsedTimer time;
    time.start();
    while (!TravoIn(folder) && time.elapsed() < Limit) {
        ::usleep(20000);
    }
    ASSERT_TRUE(TravoIn(folder));
    EXPECT_LE(std::abs(TravoIn(folder)->startedAt.secsTo(QDateTime::currentDateTime())), 60);
    ASSERT_EQ(::ioctl(slave, TIOCEXCL), 0);
    const QString output = Report().output;
    EXPECT_TRUE(
        output.contains(QStringLiteral("Port 1 is open in TRAVO. What was said shows there, with F2.")))
        << output.toStdString();
    ::close(slave);
    ::close(master);
}

}  // namespace travo::diagnostics::test
