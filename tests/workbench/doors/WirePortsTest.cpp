// The wires through the real process and real pseudo-terminals.
#include "workbench/doors/WirePorts.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <chrono>
#include <thread>

#include "core/ground/Arithmetic.h"
#include "workbench/TestPort.h"
#include "workbench/WorkbenchProcess.h"
#include "workbench/client/WorkbenchClient.h"
#include "workbench/wires/WireLog.h"

namespace workbench {

using std::chrono::milliseconds;
using std::chrono::seconds;

namespace {

constexpr uid_t NobodyUser = 65534;

class WirePortsTest : public testing::Test {
protected:
    WirePortsTest() : bench_({QStringLiteral("--program-folder"), folder_.path()}) {}

    std::string Path(int port) const {
        return folder_.filePath(QStringLiteral("ports/com%1").arg(port)).toStdString();
    }
    QString Device(int port) const { return QFile::symLinkTarget(QString::fromStdString(Path(port))); }
    // Waits until the workbench knows whether a wire's port is open.
    testing::AssertionResult BecomesOpen(const std::string& wire, bool open) {
        const auto end = std::chrono::steady_clock::now() + seconds(20);
        while (client_.Wire(wire).open != open) {
            if (std::chrono::steady_clock::now() > end) {
                return testing::AssertionFailure() << wire << " did not become " << open;
            }
            std::this_thread::sleep_for(milliseconds(2));
        }
        return testing::AssertionSuccess();
    }

    QTemporaryDir folder_;
    WorkbenchProcess bench_;
    WorkbenchClient client_;
};

}  // namespace

TEST_F(WirePortsTest, ThreePortsAreLinkedInTheProgramFolderAndTakenAwayAtTheEnd) {
    ASSERT_TRUE(bench_.Ready());
    for (int port = 1; port <= 3; ++port) {
        EXPECT_TRUE(Device(port).startsWith(QStringLiteral("/dev/pts/"))) << port;
    }
    bench_.Process().terminate();
    EXPECT_EQ(bench_.ExitCode(), 0);
    EXPECT_TRUE(QDir(folder_.filePath(QStringLiteral("ports")))
                    .isEmpty(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot));
}

TEST_F(WirePortsTest, EveryPortIsRawAndItsInstrumentAnswers) {
    TestPort mirror(Path(1));
    TestPort gauge(Path(2));
    TestPort motor(Path(3));
    EXPECT_TRUE(mirror.IsRaw() && gauge.IsRaw() && motor.IsRaw());
    mirror.Write("rWER\rrPMR\rrD2R\rrD1R\rrMGR\r");
    EXPECT_EQ(mirror.ReadUntil("aMGR2\r\n"), "aWER0\r\naPMR1\r\naD2R0\r\naD1R0\r\naMGR2\r\n");
    gauge.Write("Ar\r\n");
    EXPECT_EQ(gauge.ReadUntil("\n"), "A+00.000\r\n");
    motor.Write("WHO\r");
    EXPECT_EQ(motor.ReadUntil("\r"), "ARemote Drive Accessory\r");
    motor.Write("RELMOVEZ10000\r");
    EXPECT_EQ(motor.ReadUntil("\r"), "A\r");
    gauge.Write("Ar\r\n");
    EXPECT_EQ(gauge.ReadUntil("\n"), "A+00.100\r\n");
    EXPECT_EQ(client_.WireCounters("motor").at("RELMOVEZ"), 1);
    EXPECT_EQ(client_.WireCounters("mirror").size(), 5U);
}

TEST_F(WirePortsTest, AMoveOnTheWireMovesTheWorldAndIsReported) {
    TestPort mirror(Path(1));
    mirror.Write("cSAS1\rcD2A-100\r");
    const std::string said = mirror.ReadUntil("sSAA-100,0,0,1,2,0,0,1\r\n");
    EXPECT_TRUE(said.ends_with("sSAA-100,0,0,1,2,0,0,1\r\n"));
    EXPECT_NE(said.find("qD2A-100\r\n"), std::string::npos);
    EXPECT_NE(said.find("oD2A-100\r\n"), std::string::npos);
    EXPECT_EQ(client_.Mirror().now[0], -100.0);
    EXPECT_EQ(client_.ViewCentreNow()[0], 500.0);
}

TEST_F(WirePortsTest, LinesFollowEachOtherNoFasterThanTheWireCanCarryThem) {
    const std::string log = folder_.filePath(QStringLiteral("flood.log")).toStdString();
    client_.LogWire("mirror", log);
    TestPort mirror(Path(1));
    ASSERT_TRUE(BecomesOpen("mirror", true));
    client_.Fault("mirror flood 20");
    EXPECT_TRUE(mirror.ReadUntil("sSAA0,0,19,1,2,0,0,1\r\n").ends_with("sSAA0,0,19,1,2,0,0,1\r\n"));
    client_.EndWireLog("mirror");
    std::int64_t bytes = 0;
    Time begin{0};
    for (const WireRecord& record : ReadRecords(log)) {
        if (record.kind == WireRecord::Kind::Note) {
            begin = record.time;
            continue;
        }
        // Ten bits to a byte at 9600 baud, counted from the opening of the port.
        bytes += static_cast<std::int64_t>(record.bytes.size());
        EXPECT_GE(record.time - begin, Time(bytes * 10 * 1000000 / 9600));
    }
    EXPECT_EQ(bytes, 10 * 21 + 10 * 22);
}

TEST_F(WirePortsTest, OpeningAndClosingAreSeenAndNothingIsQueuedMeanwhile) {
    {
        TestPort mirror(Path(1));
        mirror.Write("cSAS1\r");
        EXPECT_EQ(mirror.ReadUntil("oSAS1\r\n"), "oSAS1\r\n");
        EXPECT_TRUE(BecomesOpen("mirror", true));
    }
    EXPECT_TRUE(BecomesOpen("mirror", false));
    client_.SetMagnification(3);
    client_.PassErgoLine("RZ100");
    client_.Fault("mirror flood 50");
    client_.Fault("mirror noise 50");
    TestPort again(Path(1));
    again.Write("cSAS0\rrMGR\r");
    const std::string said = again.ReadUntil("aMGR3\r\n");
    EXPECT_EQ(said.find("RZ"), std::string::npos);
    EXPECT_LT(said.size(), 80U);
}

TEST_F(WirePortsTest, WhatAReaderLeftIsNotReadByTheNextOne) {
    {
        TestPort gauge(Path(2));
        gauge.Write("Ar\r\n");
        EXPECT_EQ(gauge.ReadBytes(3), "A+0");
        TestPort beside(Path(2));
        EXPECT_FALSE(beside.Quiet());
        gauge.Write("Ar\r\nAr\r\n");
        EXPECT_EQ(gauge.ReadBytes(5).size(), 5U);
    }
    EXPECT_TRUE(BecomesOpen("gauge", false));
    TestPort next(Path(2));
    EXPECT_TRUE(next.Quiet());
    next.Write("Ar\r\n");
    EXPECT_EQ(next.ReadUntil("\n"), "A+00.000\r\n");
}

TEST_F(WirePortsTest, ACommandWrittenJustBeforeAClosingIsHeard) {
    for (int turn = 1; turn <= 20; ++turn) {
        TestPort(Path(2)).Write("KEYOFF\r\n");
        const auto end = std::chrono::steady_clock::now() + seconds(20);
        while (client_.WireCounters("gauge")["KEYOFF"] < turn && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(milliseconds(1));
        }
        ASSERT_EQ(client_.WireCounters("gauge")["KEYOFF"], turn);
    }
    EXPECT_FALSE(client_.GaugeKeysEnabled());
    EXPECT_THROW(client_.PressGaugeZero(), travo::Failure);
}

TEST_F(WirePortsTest, APortThatOneProgramClosesAndAnotherStillHoldsIsOpen) {
    TestPort one(Path(3));
    {
        TestPort two(Path(3));
        ASSERT_TRUE(BecomesOpen("motor", true));
    }
    one.Write("WHO\r");
    EXPECT_EQ(one.ReadUntil("\r"), "ARemote Drive Accessory\r");
    EXPECT_TRUE(client_.Wire("motor").open);
}

TEST_F(WirePortsTest, APulledCableHangsUpTheProgramTakesTheLinkAwayAndComesBackAnew) {
    TestPort mirror(Path(1));
    mirror.Write("rPNM\r");
    mirror.ReadUntil("\n");
    client_.PullCable("mirror");
    EXPECT_TRUE(mirror.WaitForHangUp());
    EXPECT_FALSE(QFileInfo(QString::fromStdString(Path(1))).isSymLink());
    EXPECT_FALSE(client_.Wire("mirror").plugged);
    EXPECT_FALSE(client_.Wire("mirror").open);
    EXPECT_EQ(client_.Faults(), "mirror:vanished");
    TestPort gone(Path(1));
    EXPECT_FALSE(gone.IsOpen());
    client_.PlugCable("mirror");
    TestPort back(Path(1));
    back.Write("rMGR\r");
    EXPECT_EQ(back.ReadUntil("\n"), "aMGR2\r\n");
    EXPECT_EQ(client_.Faults(), "");
}

TEST_F(WirePortsTest, APortThatAKilledProgramHadClaimedCanBeOpenedAgain) {
    const QString device = Device(1);
    {
        TestPort claimed(Path(1), true);
        ASSERT_TRUE(BecomesOpen("mirror", true));
    }
    EXPECT_TRUE(BecomesOpen("mirror", false));
    // The claim does not hold for the superuser: another user tries.
    ASSERT_TRUE(QFile::setPermissions(folder_.path(), QFile::Permissions(0x7755)));
    const std::string path = Path(1);
    const bool superuser = geteuid() == 0;
    ASSERT_EQ(chmod(path.c_str(), 0666), 0);
    const pid_t child = fork();
    if (child == 0) {
        if (superuser && setuid(NobodyUser) != 0) {
            _exit(2);
        }
        _exit(open(path.c_str(), O_RDWR | O_NOCTTY) >= 0 ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(WirePortsTest, ASilentInstrumentHearsAndActs) {
    TestPort mirror(Path(1));
    client_.SilenceInstrument("mirror", true);
    mirror.Write("cMAG3\r");
    EXPECT_TRUE(mirror.Quiet());
    EXPECT_EQ(client_.Magnification(), 3);
    client_.SilenceInstrument("mirror", false);
    mirror.Write("rMGR\r");
    EXPECT_EQ(mirror.ReadUntil("\n"), "aMGR3\r\n");
}

TEST_F(WirePortsTest, AnErgoLineComesByItselfOrInOneReadWithAnother) {
    TestPort mirror(Path(1));
    ASSERT_TRUE(BecomesOpen("mirror", true));
    client_.PassErgoLine("RZ100");
    EXPECT_EQ(mirror.ReadUntil("\r"), "RZ100\r");
    client_.PassErgoLineTogether("RZ100");
    EXPECT_EQ(mirror.ReadPiece(), "RZ100\rsSAA0,0,0,1,2,0,0,1\r\n");
}

TEST_F(WirePortsTest, AWireIsLoggedAndReplayed) {
    const std::string log = folder_.filePath(QStringLiteral("mirror wire.log")).toStdString();
    client_.LogWire("mirror", log);
    {
        TestPort mirror(Path(1));
        mirror.Write("cMAG3\r");
        mirror.ReadUntil("\n");
    }
    EXPECT_TRUE(BecomesOpen("mirror", false));
    client_.EndWireLog("mirror");
    const auto records = ReadRecords(log);
    ASSERT_EQ(records.size(), 4U);
    EXPECT_EQ(records[1].bytes, "cMAG3\r");
    EXPECT_EQ(records[2].bytes, "oMAG3\r\n");
    TestPort mirror(Path(1));
    ASSERT_TRUE(BecomesOpen("mirror", true));
    client_.ReplayWire("mirror", log);
    EXPECT_EQ(mirror.ReadUntil("\n"), "oMAG3\r\n");
}

TEST_F(WirePortsTest, SettingsCanHoldTheThreePorts) {
    const QString path = folder_.filePath(QStringLiteral("KVData.ini"));
    client_.WriteSettingsWithPorts(path.toStdString());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.startsWith("[COMPort]\r\nMirror=1\r\nMagnescale=2\r\nMotor=3\r\n[User_Value]\r\n"));
    EXPECT_TRUE(text.contains("[Manipulator Calibration:3]\r\n"));
}

TEST(WirePortsLinksTest, AnOldLinkIsReplacedAndAFileThatIsNoneIsLeftAlone) {
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir(QStringLiteral("ports"));
    const QString link = folder.filePath(QStringLiteral("ports/com1"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/nothing"), link));
    {
        const WorkbenchProcess bench({QStringLiteral("--program-folder"), folder.path()});
        ASSERT_TRUE(bench.Ready());
        EXPECT_TRUE(QFile::symLinkTarget(link).startsWith(QStringLiteral("/dev/pts/")));
    }
    EXPECT_FALSE(QFileInfo(link).isSymLink());
    QFile file(link);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    WorkbenchProcess refused({QStringLiteral("--program-folder"), folder.path()});
    EXPECT_EQ(refused.ExitCode(), 1);
    EXPECT_TRUE(refused.Process().readAllStandardError().contains("this is no link, and stays"));
    EXPECT_TRUE(QFile::exists(link));
}

TEST(WirePortsLinksTest, ALinkThatSomebodyElsePutThereMeanwhileStays) {
    const QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("ports/com2"));
    {
        const WorkbenchProcess bench({QStringLiteral("--program-folder"), folder.path()});
        ASSERT_TRUE(bench.Ready());
        ASSERT_TRUE(QFile::remove(link));
        ASSERT_TRUE(QFile::link(QStringLiteral("/dev/ttyS0"), link));
    }
    EXPECT_EQ(QFile::symLinkTarget(link), QStringLiteral("/dev/ttyS0"));
}

TEST(WirePortsLinksTest, WithoutAProgramFolderTheRestWorks) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient client;
    EXPECT_TRUE(client.Wire("mirror").plugged);
    EXPECT_THROW(client.Wire("nothing"), travo::NumberFailure);
}

}  // namespace workbench
