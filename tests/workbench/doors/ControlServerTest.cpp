// The process and its socket: starting, ending, and clients that mean no good.
#include "workbench/doors/ControlServer.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <QFile>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <memory>
#include <vector>

#include "workbench/WorkbenchProcess.h"
#include "workbench/client/WorkbenchClient.h"
#include "workbench/socket/SocketPath.h"

namespace workbench {

using std::chrono::seconds;

namespace {

constexpr int Limit = 20000;  // ms

QString Socket() { return QString::fromStdString(SocketPath()); }

std::unique_ptr<QLocalSocket> Connected() {
    auto socket = std::make_unique<QLocalSocket>();
    socket->connectToServer(Socket());
    EXPECT_TRUE(socket->waitForConnected(Limit));
    return socket;
}

QByteArray NextLine(QLocalSocket& socket) {
    while (!socket.canReadLine() && socket.waitForReadyRead(Limit)) {
    }
    return socket.readLine();
}

// Sends all of it, or as much as the other side takes before it hangs up.
void SendAll(QLocalSocket& socket, const QByteArray& bytes) {
    socket.write(bytes);
    while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(Limit)) {
    }
}

bool WaitForEnd(QLocalSocket& socket) {
    return socket.state() == QLocalSocket::UnconnectedState || socket.waitForDisconnected(Limit);
}

void ExpectAlive() {
    WorkbenchClient client;
    EXPECT_EQ(client.Ask("ping"), "");
}

}  // namespace

TEST(ControlServerTest, ItSaysWhereItListensWhenItIsReady) {
    const WorkbenchProcess bench;
    EXPECT_EQ(bench.ReadyLine(), QStringLiteral("travo-workbench: ready at ") + Socket());
    ExpectAlive();
}

TEST(ControlServerTest, TheSocketIsForItsUserAlone) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFile::permissions(Socket()) & others);
}

TEST(ControlServerTest, SigtermEndsItCleanlyAndTakesTheSocketAway) {
    WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    ASSERT_TRUE(QFile::exists(Socket()));
    bench.Process().terminate();
    EXPECT_EQ(bench.ExitCode(), 0);
    EXPECT_FALSE(QFile::exists(Socket()));
}

TEST(ControlServerTest, TheEndOfItsInputEndsIt) {
    WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    bench.Process().write("this is not read as a command\n");
    bench.Process().closeWriteChannel();
    EXPECT_EQ(bench.ExitCode(), 0);
    EXPECT_FALSE(QFile::exists(Socket()));
}

TEST(ControlServerTest, ASecondWorkbenchOnTheSameSocketIsRefusedAndDoesNotDisturbTheFirst) {
    const WorkbenchProcess first;
    ASSERT_TRUE(first.Ready());
    WorkbenchProcess second;
    EXPECT_FALSE(second.Ready());
    EXPECT_EQ(second.ExitCode(), 1);
    EXPECT_EQ(QString::fromLocal8Bit(second.Process().readAllStandardError()),
              QStringLiteral("travo-workbench: a workbench is already running at %1\n").arg(Socket()));
    ExpectAlive();
}

TEST(ControlServerTest, ASocketLeftByAKilledWorkbenchIsReplaced) {
    {
        WorkbenchProcess killed;
        ASSERT_TRUE(killed.Ready());
        killed.Kill();
        ASSERT_TRUE(QFile::exists(Socket()));
    }
    const WorkbenchProcess next;
    EXPECT_TRUE(next.Ready());
    ExpectAlive();
}

TEST(ControlServerTest, AProgramFolderThatIsNotThereIsRefused) {
    WorkbenchProcess bench({QStringLiteral("--program-folder"), QStringLiteral("/nowhere/at/all")});
    EXPECT_EQ(bench.ExitCode(), 1);
    EXPECT_TRUE(bench.Process().readAllStandardError().contains("there is no such program folder"));
}

TEST(ControlServerTest, ARuntimeFolderThatIsTooLongForASocketIsRefusedWithASentence) {
    const QTemporaryDir folder;
    QDir(folder.path()).mkpath(QString(150, QLatin1Char('x')));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder.filePath(QString(150, QLatin1Char('x'))));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(WORKBENCH_PROGRAM), {QStringLiteral("--headless")});
    ASSERT_TRUE(process.waitForFinished(Limit));
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("the socket cannot be opened"));
}

TEST(ControlServerTest, GarbageIsAnsweredLineByLineAndTheConnectionGoesOn) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    const auto client = Connected();
    SendAll(*client, QByteArray("\0\xff\x80\x01 garbage\n\n\r\nping\n", 21));
    EXPECT_EQ(NextLine(*client),
              "error there is no command \"????\"; \"workbench-ask help\" lists them all\n");
    EXPECT_TRUE(NextLine(*client).startsWith("error "));
    EXPECT_TRUE(NextLine(*client).startsWith("error "));
    EXPECT_EQ(NextLine(*client), "ok\n");
}

TEST(ControlServerTest, AClientWithAnEndlessLineIsDroppedAndTheOthersGoOn) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    const auto client = Connected();
    SendAll(*client, QByteArray(1 << 20, 'x'));
    EXPECT_TRUE(WaitForEnd(*client));
    ExpectAlive();
}

TEST(ControlServerTest, ALineInPiecesIsOneLine) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    const auto client = Connected();
    SendAll(*client, "pi");
    ExpectAlive();
    SendAll(*client, "ng\npin");
    EXPECT_EQ(NextLine(*client), "ok\n");
    SendAll(*client, "g\n");
    EXPECT_EQ(NextLine(*client), "ok\n");
}

TEST(ControlServerTest, ManyLinesAtOnceAreAnsweredInTheirOrder) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    const auto client = Connected();
    QByteArray lines;
    for (int i = 0; i < 2000; ++i) {
        lines += "driver moveto " + QByteArray::number(i) + " 0 0\ndriver getcount\n";
    }
    SendAll(*client, lines);
    for (int i = 0; i < 2000; ++i) {
        ASSERT_EQ(NextLine(*client), "status 0\n") << i;
        ASSERT_EQ(NextLine(*client), "status 0 4\n") << i;
    }
    WorkbenchClient asker;
    EXPECT_EQ(asker.Counters().at("moveto"), 2000);
}

TEST(ControlServerTest, ClientsThatVanishInTheMiddleDoNoHarm) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    for (int i = 0; i < 100; ++i) {
        const auto client = Connected();
        SendAll(*client, i % 2 == 0 ? "driver getpos" : "driver getcount\ndriver getcount\n");
        client->abort();
    }
    ExpectAlive();
}

TEST(ControlServerTest, AClientThatVanishesWhileTheDriverHangsTakesItsCallAlong) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient asker;
    asker.HangDriver(600.0);
    {
        const auto client = Connected();
        SendAll(*client, "driver moveto 1 2 3\n");
        asker.Ask("ping");
        client->abort();
    }
    asker.Ask("ping");
    asker.ClearFaults();
    EXPECT_EQ(asker.Ask("driver getcount"), "status 0 4");
    EXPECT_EQ(asker.Counters().at("moveto"), 0);
}

TEST(ControlServerTest, AClientThatPilesUpCallsWhileTheDriverHangsIsDropped) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    WorkbenchClient asker;
    asker.HangDriver(600.0);
    const auto client = Connected();
    SendAll(*client, QByteArray("driver getcount\n").repeated(100000));
    EXPECT_TRUE(WaitForEnd(*client));
    EXPECT_EQ(asker.Ask("ping"), "");
}

TEST(ControlServerTest, AClientThatReadsNoAnswersIsDropped) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    const auto client = Connected();
    client->setReadBufferSize(1);
    const QByteArray lines = QByteArray("world cells\n").repeated(20000);
    client->write(lines);
    while (client->state() == QLocalSocket::ConnectedState && client->bytesToWrite() > 0) {
        client->waitForBytesWritten(Limit);
    }
    EXPECT_TRUE(WaitForEnd(*client));
    ExpectAlive();
}

TEST(ControlServerTest, ClientsBeyondTheMostAreTurnedAwayAndTheirPlacesComeFree) {
    const WorkbenchProcess bench;
    ASSERT_TRUE(bench.Ready());
    std::vector<std::unique_ptr<QLocalSocket>> clients;
    for (std::size_t i = 0; i < ControlServer::MostClients; ++i) {
        clients.push_back(Connected());
        SendAll(*clients.back(), "ping\n");
        ASSERT_EQ(NextLine(*clients.back()), "ok\n") << i;
    }
    const auto late = Connected();
    EXPECT_TRUE(WaitForEnd(*late));
    clients.clear();
    WorkbenchClient client;
    EXPECT_TRUE(client.WaitUntilReady(seconds(20)));
}

}  // namespace workbench
