#include "platform/qt/QtFolders.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace travo::platform::qt {

namespace {

class QtFoldersTest : public testing::Test {
protected:
    void SetUp() override {
        QFile::setPermissions(folder_.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        runtimeBefore_ = qgetenv("XDG_RUNTIME_DIR");
        dataBefore_ = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_RUNTIME_DIR", folder_.path().toLocal8Bit());
        qputenv("XDG_DATA_HOME", folder_.filePath(QStringLiteral("data")).toLocal8Bit());
    }
    void TearDown() override {
        Restore("XDG_RUNTIME_DIR", runtimeBefore_);
        Restore("XDG_DATA_HOME", dataBefore_);
    }
    static void Restore(const char* name, const QByteArray& value) {
        if (value.isNull()) {
            qunsetenv(name);
        } else {
            qputenv(name, value);
        }
    }

    // A program folder of that name.
    QString Program(const char* name) const {
        EXPECT_TRUE(QDir(folder_.path()).mkpath(QString::fromLatin1(name)));
        return folder_.filePath(QString::fromLatin1(name));
    }
    static void Put(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QTemporaryDir folder_;

private:
    QByteArray runtimeBefore_;
    QByteArray dataBefore_;
};

TEST_F(QtFoldersTest, ApplicationDataFollowsTheUsersDataHome) {
    const QtFolders folders(folder_.path());
    EXPECT_EQ(folders.Program(), folder_.path());
    EXPECT_EQ(folders.ApplicationData(), folder_.filePath(QStringLiteral("data")));
    EXPECT_FALSE(folders.Exists(folders.ApplicationData()));
}

TEST_F(QtFoldersTest, CreateMakesAFolderWithItsParentsAndRaisesWhereItCannot) {
    QtFolders folders(folder_.path());
    const QString deep = folder_.filePath(QStringLiteral("a/b/c"));
    folders.Create(deep);
    EXPECT_TRUE(folders.Exists(deep));
    QFile file(folder_.filePath(QStringLiteral("file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_THROW(folders.Create(folder_.filePath(QStringLiteral("file/below"))), std::runtime_error);
}

TEST_F(QtFoldersTest, ASecondClaimIsRefusedWhileTheFirstLivesAndTakenAfterwards) {
    auto first = std::make_unique<QtSingleInstance>(Program("one"));
    EXPECT_TRUE(first->Claim());
    QtSingleInstance second(Program("two"));
    EXPECT_FALSE(second.Claim());
    first.reset();
    EXPECT_TRUE(second.Claim());
}

TEST_F(QtFoldersTest, TwoRunsOfOneProgramFolderAreKeptApartAlsoUnderTwoRuntimeFolders) {
    QtSingleInstance first(Program("one"));
    EXPECT_TRUE(first.Claim());
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("other")));
    const QString other = folder_.filePath(QStringLiteral("other"));
    QFile::setPermissions(other, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", other.toLocal8Bit());
    QtSingleInstance second(Program("one"));
    EXPECT_FALSE(second.Claim());
    // A refused one holds no claim itself.
    QtSingleInstance third(Program("two"));
    EXPECT_TRUE(third.Claim());
}

// Each in the place of both locks.
TEST_F(QtFoldersTest, WhateverStandsInTheLocksPlaceOnlyALockThatIsHeldRefuses) {
    const std::map<std::string, std::function<void(const QString&)>> foreign{
        {"garbage", [](const QString& lock) { Put(lock, QByteArray(100000, char(0xFF))); }},
        {"the lock of a former version", [](const QString& lock) { Put(lock, "1\nTRAVO\nelsewhere\n"); }},
        {"a half written one", [](const QString& lock) { Put(lock, {}); }},
        {"a folder", [](const QString& lock) { ASSERT_TRUE(QDir().mkpath(lock)); }},
        {"a pipe", [](const QString& lock) { ASSERT_EQ(mkfifo(lock.toLocal8Bit().constData(), 0600), 0); }},
        {"a link to a device",
         [](const QString& lock) { ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), lock)); }},
        {"a link that leads nowhere",
         [](const QString& lock) { ASSERT_TRUE(QFile::link(QStringLiteral("nowhere"), lock)); }}};
    for (const auto& [name, put] : foreign) {
        const QString program = Program(name.c_str());
        const QString lock = folder_.filePath(QStringLiteral("TRAVO.lock"));
        put(lock);
        put(program + QStringLiteral("/TRAVO.lock"));
        QtSingleInstance claim(program);
        EXPECT_TRUE(claim.Claim()) << name;
        ASSERT_TRUE(QFile::remove(lock) || QDir().rmdir(lock)) << name;
    }
}

TEST_F(QtFoldersTest, NothingIsReadFromTheLockNorWrittenToItAndItStays) {
    const QString lock = folder_.filePath(QStringLiteral("TRAVO.lock"));
    Put(lock, "what stood there");
    {
        QtSingleInstance claim(Program("one"));
        EXPECT_TRUE(claim.Claim());
    }
    QFile file(lock);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "what stood there");
    EXPECT_TRUE(QFile::exists(Program("one") + QStringLiteral("/TRAVO.lock")));
}

TEST_F(QtFoldersTest, AStartedProgramDoesNotHoldTheLock) {
    auto claim = std::make_unique<QtSingleInstance>(Program("one"));
    ASSERT_TRUE(claim->Claim());
    QProcess child;
    child.start(QStringLiteral("cat"), QStringList());
    ASSERT_TRUE(child.waitForStarted());
    claim.reset();
    QtSingleInstance next(Program("one"));
    EXPECT_TRUE(next.Claim());
    child.closeWriteChannel();
    EXPECT_TRUE(child.waitForFinished());
}

TEST_F(QtFoldersTest, WithoutARuntimeFolderTheClaimStandsInTheTemporaryOne) {
    QFile file(folder_.filePath(QStringLiteral("file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    qputenv("XDG_RUNTIME_DIR", folder_.filePath(QStringLiteral("file/below")).toLocal8Bit());
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", folder_.path().toLocal8Bit());
    QtSingleInstance first(Program("one"));
    QtSingleInstance second(Program("two"));
    EXPECT_TRUE(first.Claim());
    EXPECT_FALSE(second.Claim());
    Restore("TMPDIR", before);
}

TEST_F(QtFoldersTest, AFolderThatTakesNoLockDoesNotKeepTheOperatorOut) {
    qputenv("XDG_RUNTIME_DIR", folder_.filePath(QStringLiteral("missing/file")).toLocal8Bit());
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", folder_.filePath(QStringLiteral("missing")).toLocal8Bit());
    QFile file(folder_.filePath(QStringLiteral("missing")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    QtSingleInstance claim(folder_.filePath(QStringLiteral("missing/program")));
    EXPECT_TRUE(claim.Claim());
    Restore("TMPDIR", before);
}

}  // namespace

}  // namespace travo::platform::qt
