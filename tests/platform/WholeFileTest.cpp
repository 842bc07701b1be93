#include "platform/qt/WholeFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>
#include <csignal>
#include <string>
#include <vector>

#include "platform/qt/FileLock.h"

namespace travo::platform {
namespace {

// Files of more than the given size cannot be written while it lives, as on a disk that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t size) {
        previousHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &previous_);
        const rlimit limited{size, previous_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &previous_);
        std::signal(SIGXFSZ, previousHandler_);
    }

private:
    rlimit previous_{};
    void (*previousHandler_)(int) = nullptr;
};

// No further file can be opened while it lives.
class NoMoreFiles {
public:
    NoMoreFiles() {
        getrlimit(RLIMIT_NOFILE, &previous_);
        const rlimit limited{0, previous_.rlim_max};
        setrlimit(RLIMIT_NOFILE, &limited);
    }
    NoMoreFiles(const NoMoreFiles&) = delete;
    NoMoreFiles& operator=(const NoMoreFiles&) = delete;
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &previous_); }

private:
    rlimit previous_{};
};

// What has been brought to the disk since it was cleared: "file" or "folder", in order.
std::vector<std::string> broughtToDisk;

class WholeFileTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(folder.isValid()); }

    QString In(const QString& entry) const { return folder.filePath(entry); }

    static void Put(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    static std::string Get(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no file";
    }

    QStringList Names() const {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QTemporaryDir folder;
    const QString name = QStringLiteral("KVData.ini");
    const QString path = In(name);
};

TEST_F(WholeFileTest, ReadsAllBytes) {
    QByteArray bytes;
    for (int code = 0; code < 256; ++code) {
        bytes.append(static_cast<char>(code));
    }
    Put(path, bytes);
    EXPECT_EQ(ReadWholeFile(path), bytes);
    EXPECT_EQ(ReadFileToReplace(path), bytes);
}

TEST_F(WholeFileTest, AMissingFileIsNothingToReadAndEmptyToReplace) {
    EXPECT_EQ(ReadWholeFile(path), std::nullopt);
    EXPECT_EQ(ReadFileToReplace(path), QByteArray());
    EXPECT_TRUE(Names().isEmpty());
}

TEST_F(WholeFileTest, FoldersAndDevicesAreNeitherReadNorReplaced) {
    for (const QString& other : {folder.path(), QStringLiteral("/dev/null"), QStringLiteral("/dev/zero")}) {
        EXPECT_EQ(ReadWholeFile(other), std::nullopt);
        EXPECT_EQ(ReadFileToReplace(other), std::nullopt);
        EXPECT_FALSE(ReplaceWholeFile(other, "x"));
        EXPECT_TRUE(QFileInfo::exists(other));
        EXPECT_FALSE(QFileInfo(other).isFile());
    }
}

TEST_F(WholeFileTest, APipeIsNotWaitedFor) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_EQ(ReadWholeFile(path), std::nullopt);
    EXPECT_EQ(ReadFileToReplace(path), std::nullopt);
    EXPECT_FALSE(ReplaceWholeFile(path, "x"));
}

TEST_F(WholeFileTest, ReplacingCreatesGrowsAndShrinksTheFileAndLeavesNothingElse) {
    for (const char* bytes : {"one", "a longer text", "", "x"}) {
        EXPECT_TRUE(ReplaceWholeFile(path, bytes));
        EXPECT_EQ(Get(path), bytes);
        EXPECT_EQ(Names(), QStringList{name});
    }
}

TEST_F(WholeFileTest, TheOldFileIsReplacedAndNotWrittenOver) {
    Put(path, "old");
    QFile reader(path);
    ASSERT_TRUE(reader.open(QIODevice::ReadOnly));
    ASSERT_TRUE(ReplaceWholeFile(path, "new"));
    EXPECT_EQ(reader.readAll(), "old");
    EXPECT_EQ(Get(path), "new");
}

TEST_F(WholeFileTest, PermissionsAndOwnerAreKept) {
    Put(path, "old");
    const QByteArray native = QFile::encodeName(path);
    for (const mode_t mode : {0600U, 0664U, 0755U}) {
        ASSERT_EQ(chmod(native.constData(), mode), 0);
        struct stat before {};
        ASSERT_EQ(stat(native.constData(), &before), 0);
        ASSERT_TRUE(ReplaceWholeFile(path, "new"));
        struct stat after {};
        ASSERT_EQ(stat(native.constData(), &after), 0);
        EXPECT_EQ(after.st_mode & 07777U, mode);
        EXPECT_EQ(after.st_uid, before.st_uid);
        EXPECT_EQ(after.st_gid, before.st_gid);
        EXPECT_NE(after.st_ino, before.st_ino);
    }
}

TEST_F(WholeFileTest, ASymbolicLinkIsWrittenThroughToItsTarget) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("far")));
    const QString target = In(QStringLiteral("far/real.ini"));
    Put(target, "old");
    ASSERT_TRUE(QFile::link(QStringLiteral("far/real.ini"), In(QStringLiteral("middle.ini"))));
    ASSERT_TRUE(QFile::link(QStringLiteral("middle.ini"), path));
    EXPECT_EQ(ReadFileToReplace(path), QByteArray("old"));
    EXPECT_TRUE(ReplaceWholeFile(path, "new"));
    EXPECT_EQ(Get(target), "new");
    EXPECT_TRUE(QFileInfo(path).isSymbolicLink());
    EXPECT_FALSE(QFileInfo(target).isSymbolicLink());
    EXPECT_EQ(QDir(In(QStringLiteral("far"))).entryList(QDir::Files),
              QStringList{QStringLiteral("real.ini")});
}

TEST_F(WholeFileTest, ALinkThatLeadsNowhereGetsItsTarget) {
    ASSERT_TRUE(QFile::link(QStringLiteral("real.ini"), path));
    EXPECT_EQ(ReadFileToReplace(path), QByteArray());
    EXPECT_TRUE(ReplaceWholeFile(path, "new"));
    EXPECT_EQ(Get(In(QStringLiteral("real.ini"))), "new");
    EXPECT_TRUE(QFileInfo(path).isSymbolicLink());
}

TEST_F(WholeFileTest, LinksInARingAreNeitherReadNorReplaced) {
    ASSERT_TRUE(QFile::link(QStringLiteral("other.ini"), path));
    ASSERT_TRUE(QFile::link(name, In(QStringLiteral("other.ini"))));
    EXPECT_EQ(ReadWholeFile(path), std::nullopt);
    EXPECT_EQ(ReadFileToReplace(path), std::nullopt);
    EXPECT_FALSE(ReplaceWholeFile(path, "new"));
    EXPECT_TRUE(QFileInfo(path).isSymbolicLink());
}

TEST_F(WholeFileTest, TemporaryFilesOfKilledWritesAreRemovedAtTheNextWrite) {
    const QString own = QString::number(QCoreApplication::applicationPid());
    for (const QString& number : {QStringLiteral("1"), QStringLiteral("4711"), own,
                                  QStringLiteral("1-0123abcd"), own + QStringLiteral("-ffffffff")}) {
        Put(path + QStringLiteral(".%1.tmp").arg(number), "half of a fi");
    }
    EXPECT_TRUE(ReplaceWholeFile(path, "new"));
    EXPECT_EQ(Names(), QStringList{name});
    EXPECT_EQ(Get(path), "new");
}

TEST_F(WholeFileTest, FilesOfOthersWithSimilarNamesStay) {
    const QStringList others{
        QStringLiteral("KVData.ini..tmp"),      QStringLiteral("KVData.ini.12"),
        QStringLiteral("KVData.ini.12.tmp.x"),  QStringLiteral("KVData.ini.1a.tmp"),
        QStringLiteral("KVData.ini.1-2.tmp"),   QStringLiteral("KVData.ini.-0123abcd.tmp"),
        QStringLiteral("KVData.ini.backup"),    QStringLiteral("KVData.ini.old.tmp"),
        QStringLiteral("KVData.ini.tmp"),       QStringLiteral("Other.ini.12.tmp"),
        QStringLiteral("my KVData.ini.12.tmp"),
    };
    for (const QString& other : others) {
        Put(In(other), "kept");
    }
    EXPECT_TRUE(ReplaceWholeFile(path, "new"));
    for (const QString& other : others) {
        EXPECT_EQ(Get(In(other)), "kept") << other.toStdString();
    }
    EXPECT_EQ(Names().size(), others.size() + 1);
}

TEST_F(WholeFileTest, AFullDiskLeavesTheFileAsItWasAndNoTemporaryFile) {
    Put(path, "old");
    {
        const FullDisk full(1000);
        EXPECT_FALSE(ReplaceWholeFile(path, QByteArray(5000, 'x')));
    }
    EXPECT_EQ(Get(path), "old");
    EXPECT_EQ(Names(), QStringList{name});
}

TEST_F(WholeFileTest, AMissingFolderIsNotCreated) {
    EXPECT_FALSE(ReplaceWholeFile(In(QStringLiteral("missing/KVData.ini")), "x"));
    EXPECT_FALSE(ReplaceWholeFile(QString(), "x"));
    EXPECT_TRUE(Names().isEmpty());
}

TEST_F(WholeFileTest, AFolderThatTakesNoNewFileLeavesTheFileAsItWas) {
    Put(path, "old");
    {
        const NoMoreFiles none;
        EXPECT_FALSE(ReplaceWholeFile(path, "new"));
    }
    EXPECT_EQ(Get(path), "old");
    EXPECT_EQ(Names(), QStringList{name});
}

TEST_F(WholeFileTest, ATemporaryFileThatAnotherProgramIsWritingStays) {
    const QString others = path + QStringLiteral(".1-0123abcd.tmp");
    Put(others, "half of a fi");
    FileLock writer;
    ASSERT_EQ(writer.TakeOfPresent(others), LockOutcome::Taken);
    EXPECT_TRUE(ReplaceWholeFile(path, "new"));
    EXPECT_EQ(Get(others), "half of a fi");
    writer.Release();
    EXPECT_TRUE(ReplaceWholeFile(path, "newer"));
    EXPECT_EQ(Names(), QStringList{name});
}

TEST_F(WholeFileTest, TheBytesAreOnTheDiskBeforeTheNameAndTheNameAfterThem) {
    broughtToDisk.clear();
    EXPECT_TRUE(ReplaceWholeFile(path, "new"));
    EXPECT_EQ(broughtToDisk, (std::vector<std::string>{"file", "folder"}));
}

TEST_F(WholeFileTest, AStampTellsWhetherAFileIsStillTheOneAndAsItWas) {
    EXPECT_FALSE(StampOf(path).settled);
    Put(path, "one");
    const FileStamp fresh = StampOf(path);
    EXPECT_FALSE(fresh.settled) << "a further write might leave the same stamp";
    // Long ago, but its change of time is of just now.
    const timespec longAgo[2] = {{1000, 0}, {1000, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, QFile::encodeName(path).constData(), longAgo, 0), 0);
    EXPECT_FALSE(StampOf(path).settled);
    FileStamp settled = StampOf(path);
    for (; !settled.settled; settled = StampOf(path)) {
        QThread::yieldCurrentThread();
    }
    EXPECT_EQ(settled, StampOf(path));
    ASSERT_TRUE(ReplaceWholeFile(path, "two"));
    EXPECT_NE(settled, StampOf(path));
}

}  // namespace
}  // namespace travo::platform

// In place of the system's: notes what it is given, and passes it on.
extern "C" int fsync(int descriptor) {
    struct stat there {};
    fstat(descriptor, &there);
    travo::platform::broughtToDisk.emplace_back(S_ISDIR(there.st_mode) ? "folder" : "file");
    return static_cast<int>(syscall(SYS_fsync, descriptor));
}
