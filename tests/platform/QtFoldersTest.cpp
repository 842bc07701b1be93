#include "platform/qt/QtFolders.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

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
    auto first = std::make_unique<QtSingleInstance>();
    EXPECT_TRUE(first->Claim());
    QtSingleInstance second;
    EXPECT_FALSE(second.Claim());
    first.reset();
    EXPECT_TRUE(second.Claim());
}

TEST_F(QtFoldersTest, AKilledProgramLeavesNoClaim) {
    // What a killed process leaves behind: its lock file, naming a process that is no longer there.
    QProcess gone;
    gone.start(QStringLiteral("true"), QStringList());
    ASSERT_TRUE(gone.waitForStarted());
    const qint64 process = gone.processId();
    gone.waitForFinished();
    QFile lock(folder_.filePath(QStringLiteral("TRAVO.lock")));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write(QByteArray::number(process) + "\nTRAVO\n" + QSysInfo::machineHostName().toLocal8Bit() + "\n");
    lock.close();
    QtSingleInstance later;
    EXPECT_TRUE(later.Claim());
}

TEST_F(QtFoldersTest, WithoutARuntimeFolderTheClaimStandsInTheTemporaryOne) {
    QFile file(folder_.filePath(QStringLiteral("file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    qputenv("XDG_RUNTIME_DIR", folder_.filePath(QStringLiteral("file/below")).toLocal8Bit());
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", folder_.path().toLocal8Bit());
    QtSingleInstance first;
    QtSingleInstance second;
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
    QtSingleInstance claim;
    EXPECT_TRUE(claim.Claim());
    Restore("TMPDIR", before);
}

}  // namespace

}  // namespace travo::platform::qt
