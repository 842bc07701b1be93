// The user's own program folder: what is taken from the package, and what is never touched.
#include "launcher/ProgramFolder.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <stdexcept>

#include "launcher/PackageRig.h"
#include "platform/qt/FileLock.h"

namespace travo::launcher::test {

namespace {

const QString First = QStringLiteral("1.0.0 a\n");
const QString Second = QStringLiteral("1.0.1 b\n");

class ProgramFolderTest : public ::testing::Test, protected PackageRig {
protected:
    Renewal Renew(const QString& version) { return RenewProgramFolder(package, folder, version); }
};

TEST_F(ProgramFolderTest, TheFirstStartMakesAFolderForItsUserAlone) {
    EXPECT_EQ(Renew(First), Renewal::Made);
    EXPECT_EQ(Bytes(In("TRAVO")), "program 1");
    EXPECT_EQ(Bytes(In("TRAVOLive")), "camera 1");
    EXPECT_EQ(Bytes(In("skin/pad-00.svg")), "picture");
    EXPECT_TRUE(QFileInfo(In("skin")).isSymLink());
    EXPECT_TRUE(QFileInfo(In("TRAVO")).isExecutable());
    const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    EXPECT_EQ(QFileInfo(folder).permissions() & others, QFile::Permissions());
}

TEST_F(ProgramFolderTest, TheSimulatedNeedlesAreNeverTakenForRealOnes) {
    Renew(First);
    EXPECT_FALSE(QFile::exists(In("libManipulatorDriver.so")));
}

TEST_F(ProgramFolderTest, AFolderOfThePackagesVersionStaysAsItIs) {
    Renew(First);
    PutFile(In("TRAVO"), "the user's own build");
    EXPECT_EQ(Renew(First), Renewal::Unchanged);
    EXPECT_EQ(Bytes(In("TRAVO")), "the user's own build");
}

TEST_F(ProgramFolderTest, AnotherVersionReplacesProgramsAndNothingElse) {
    Renew(First);
    const char* const own[] = {"KVData.ini", "KVData.2026-11-22 10.00.00.bak", "BirdView.bmp",
                               "ports/com1", "libManipulatorDriver.so",        "manipulators.ini"};
    for (const char* const name : own) {
        PutFile(In(name), name);
    }
    PutFile(package + QStringLiteral("/TRAVO"), "program 2");
    EXPECT_EQ(Renew(Second), Renewal::Renewed);
    EXPECT_EQ(Bytes(In("TRAVO")), "program 2");
    for (const char* const name : own) {
        EXPECT_EQ(Bytes(In(name)), name);
    }
}

TEST_F(ProgramFolderTest, AProgramIsReplacedByRenameSoThatWhoeverRunsItKeepsIt) {
    Renew(First);
    QFile running(In("TRAVO"));
    ASSERT_TRUE(running.open(QIODevice::ReadOnly));
    PutFile(package + QStringLiteral("/TRAVO"), "program 2");
    Renew(Second);
    EXPECT_EQ(running.readAll(), "program 1");
    EXPECT_FALSE(QFile::exists(In("TRAVO.new")));
}

TEST_F(ProgramFolderTest, NothingIsReplacedUnderARunningTRAVO) {
    Renew(First);
    PutFile(package + QStringLiteral("/TRAVO"), "program 2");
    platform::FileLock running;
    ASSERT_EQ(running.Take(In("TRAVO.lock")), platform::LockOutcome::Taken);
    EXPECT_EQ(Renew(Second), Renewal::InUse);
    EXPECT_EQ(Bytes(In("TRAVO")), "program 1");
    running.Release();
    EXPECT_EQ(Renew(Second), Renewal::Renewed);
    EXPECT_EQ(Bytes(In("TRAVO")), "program 2");
}

TEST_F(ProgramFolderTest, ARenewalThatWasKilledIsCompletedByTheNextOne) {
    Renew(First);
    QFile::remove(In("package-version"));
    QFile::remove(In("TRAVOLive"));
    PutFile(In("TRAVO.new"), "half a prog");
    EXPECT_EQ(Renew(First), Renewal::Renewed);
    EXPECT_EQ(Bytes(In("TRAVO")), "program 1");
    EXPECT_EQ(Bytes(In("TRAVOLive")), "camera 1");
    EXPECT_FALSE(QFile::exists(In("TRAVO.new")));
}

TEST_F(ProgramFolderTest, ASkinOfTheUsersOwnStays) {
    Renew(First);
    QFile::remove(In("skin"));
    PutFile(In("skin/pad-00.svg"), "the user's own picture");
    Renew(Second);
    EXPECT_EQ(Bytes(In("skin/pad-00.svg")), "the user's own picture");
}

TEST_F(ProgramFolderTest, AFileInTheFoldersPlaceIsToldAndStays) {
    PutFile(folder, "a file");
    EXPECT_THROW(Renew(First), std::runtime_error);
    EXPECT_EQ(Bytes(folder), "a file");
}

TEST_F(ProgramFolderTest, APackageWithoutTheProgramIsTold) {
    QFile::remove(package + QStringLiteral("/TRAVO"));
    EXPECT_THROW(Renew(First), std::runtime_error);
    EXPECT_FALSE(QFile::exists(folder));
}

TEST_F(ProgramFolderTest, APackageBuiltAnewUnderTheSameNumberIsAnotherVersion) {
    const QString before = VersionOf(package, QStringLiteral("1.0.0"));
    PutFile(package + QStringLiteral("/TRAVO"), "program of another size");
    EXPECT_NE(VersionOf(package, QStringLiteral("1.0.0")), before);
    EXPECT_NE(VersionOf(package, QStringLiteral("1.0.1")), VersionOf(package, QStringLiteral("1.0.0")));
}

}  // namespace

}  // namespace travo::launcher::test
