// A settings file that is killed while it is written.
#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <array>
#include <random>

#include "platform/qt/QtPrivateProfile.h"
#include "platform/qt/WholeFile.h"

namespace travo::platform {
namespace {

constexpr int Kills = 200;
constexpr int Keys = 5;
constexpr int LongestLife = 12000;  // microseconds between start and kill
constexpr int Patience = 30000;     // milliseconds, far beyond what any answer takes

const char* const Before = "; kept\r\n[Other]\r\nodd line\r\nx=1\r\n\r\n[Round]\r\n";
const char* const After = "[Last]\r\ny=2";

// The round that a value was written in; -1 for a value that is not whole.
int RoundOf(const QByteArray& value) {
    const QByteArrayList parts = value.split(':');
    return parts.size() == 3 && parts[2] == QByteArray(parts[1].toInt(), 'x') ? parts[0].toInt() : -1;
}

// The rounds of all keys, in their order; empty for a file that is not whole.
std::vector<int> Rounds(const QByteArray& text) {
    if (!text.startsWith(Before) || !text.endsWith(After)) {
        return {};
    }
    const QByteArray middle =
        text.sliced(qsizetype(qstrlen(Before)), text.size() - qsizetype(qstrlen(Before) + qstrlen(After)));
    std::vector<int> rounds;
    int key = 0;
    for (const QByteArray& line : middle.split('\n').mid(0, Keys)) {
        const QByteArray name = QByteArray::number(key) + '=';
        if (!line.startsWith(name) || !line.endsWith('\r')) {
            return {};
        }
        rounds.push_back(RoundOf(line.sliced(name.size()).chopped(1)));
        ++key;
    }
    return middle.count('\n') == Keys ? rounds : std::vector<int>();
}

// Keys are written in order: up to some key they are of one round, behind it of the round before.
testing::AssertionResult IsWhole(const QByteArray& text) {
    const std::vector<int> rounds = Rounds(text);
    if (rounds.size() != Keys) {
        return testing::AssertionFailure() << "torn file: " << text.left(200).toStdString();
    }
    const bool falling = std::is_sorted(rounds.rbegin(), rounds.rend());
    if (rounds.back() < 0 || !falling || rounds.front() - rounds.back() > 1) {
        return testing::AssertionFailure() << "mixed rounds: " << testing::PrintToString(rounds);
    }
    return testing::AssertionSuccess();
}

class ProfileRewriteTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        QByteArray text = Before;
        for (int key = 0; key < Keys; ++key) {
            text += QByteArray::number(key) + "=0:0:\r\n";
        }
        ASSERT_TRUE(ReplaceWholeFile(file, text + After));
        ASSERT_TRUE(IsWhole(OnDisk()));
    }

    QByteArray OnDisk() const { return ReadWholeFile(file).value_or(QByteArray()); }

    // Starts a writer, lets it live for a while, and kills it; the file is read all that time.
    void KillAWriter() {
        QProcess writer;
        writer.start(QStringLiteral(PROFILE_REWRITER), {file});
        ASSERT_TRUE(writer.waitForReadyRead(Patience)) << writer.errorString().toStdString();
        const int life = std::uniform_int_distribution<int>(0, LongestLife)(engine);
        QElapsedTimer lived;
        lived.start();
        while (lived.nsecsElapsed() < qint64{life} * 1000) {
            ASSERT_TRUE(IsWhole(OnDisk()));
        }
        ASSERT_EQ(writer.state(), QProcess::Running);
        writer.kill();
        ASSERT_TRUE(writer.waitForFinished(Patience));
        ASSERT_EQ(writer.exitStatus(), QProcess::CrashExit) << writer.exitCode();
    }

    // Brings all keys to the round that the writer was in; no temporary file outlives the first write.
    void EndTheRound() {
        const std::vector<int> rounds = Rounds(OnDisk());
        const QString value = QStringLiteral("%1:0:").arg(rounds.front());
        for (int key = 0; key < Keys; ++key) {
            if (key == 0 || rounds[static_cast<std::size_t>(key)] != rounds.front()) {
                ASSERT_TRUE(profile.Write(QStringLiteral("Round"), QString::number(key), value, file));
                ASSERT_EQ(Names(), QStringList{QStringLiteral("KVData.ini")});
            }
        }
    }

    QStringList Names() const {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("KVData.ini"));
    std::mt19937 engine{std::random_device{}()};
    QtPrivateProfile profile;
};

TEST_F(ProfileRewriteTest, AKillAtAnyMomentLeavesTheOldFileOrTheNewOneAndTheNextWriteNoTemporaryFile) {
    int leftBehind = 0;
    for (int kill = 0; kill < Kills; ++kill) {
        ASSERT_NO_FATAL_FAILURE(KillAWriter());
        ASSERT_TRUE(IsWhole(OnDisk())) << "kill " << kill;
        leftBehind += Names().size() > 1 ? 1 : 0;
        ASSERT_NO_FATAL_FAILURE(EndTheRound());
        ASSERT_TRUE(IsWhole(OnDisk()));
    }
    RecordProperty("KillsWithinAWrite", leftBehind);
    EXPECT_GT(leftBehind, 0) << "no kill has met a write";
}

TEST_F(ProfileRewriteTest, TwoProgramsThatWriteAtOnceLeaveEachOthersTemporaryFilesAlone) {
    constexpr int Replacements = 300;
    std::array<QProcess, 2> writers;
    for (QProcess& writer : writers) {
        writer.start(QStringLiteral(PROFILE_REWRITER), {file});
        ASSERT_TRUE(writer.waitForReadyRead(Patience)) << writer.errorString().toStdString();
    }
    QElapsedTimer time;
    time.start();
    FileStamp last;
    for (int seen = 0; seen < Replacements && time.elapsed() < Patience;) {
        const FileStamp now = StampOf(file);
        seen += now.number != last.number ? 1 : 0;
        last = now;
    }
    for (QProcess& writer : writers) {
        // One whose write has failed has ended by itself.
        EXPECT_FALSE(writer.waitForFinished(0)) << writer.exitCode();
        writer.kill();
        EXPECT_TRUE(writer.waitForFinished(Patience));
    }
}

}  // namespace
}  // namespace travo::platform
