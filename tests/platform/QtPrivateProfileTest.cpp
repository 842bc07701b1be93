#include "platform/qt/QtPrivateProfile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <string>

namespace travo::platform {
namespace {

constexpr int Size = 32767;

class QtPrivateProfileTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(folder.isValid()); }

    void Put(const QByteArray& bytes) const {
        QFile opened(file);
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
        ASSERT_EQ(opened.write(bytes), bytes.size());
    }

    std::string OnDisk() const {
        QFile opened(file);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll().toStdString() : "no file";
    }

    QString Get(const QString& wanted, int size = Size) {
        return profile.GetString(section, wanted, QStringLiteral("default"), size, file);
    }

    // Until then each call reads the file again.
    void WaitUntilSettled() const {
        while (!StampOf(file).settled) {
            QThread::yieldCurrentThread();
        }
    }

    // By this process, as the system counts.
    static qint64 BytesRead() {
        QFile counters(QStringLiteral("/proc/self/io"));
        EXPECT_TRUE(counters.open(QIODevice::ReadOnly));
        return counters.readLine().mid(qsizetype(qstrlen("rchar: "))).trimmed().toLongLong();
    }

    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("KVData.ini"));
    const QString section = QStringLiteral("S");
    const QString key = QStringLiteral("k");
    QtPrivateProfile profile;
};

TEST_F(QtPrivateProfileTest, AMissingFileBehavesAsAnEmptyOne) {
    EXPECT_EQ(Get(key), QStringLiteral("default"));
    EXPECT_EQ(profile.GetInt(section, key, -100000, file), -100000);
    EXPECT_EQ(profile.GetSectionNames(Size, file).count, 0);
    EXPECT_EQ(profile.GetKeyNames(section, Size, file).count, 0);
    EXPECT_EQ(OnDisk(), "no file");
}

TEST_F(QtPrivateProfileTest, EachCallReadsTheFileAgain) {
    Put("[S]\r\nk=1\r\n");
    EXPECT_EQ(Get(key), QStringLiteral("1"));
    Put("[S]\r\nk=2\r\n");
    EXPECT_EQ(Get(key), QStringLiteral("2"));
    EXPECT_EQ(profile.GetInt(section, key, 0, file), 2);
}

TEST_F(QtPrivateProfileTest, AFileThatStaysAsItIsIsReadOnceForManyKeys) {
    Put("[S]\r\nk=1\r\nl=2\r\n" + QByteArray(100000, 'x'));
    WaitUntilSettled();
    const qint64 before = BytesRead();
    EXPECT_EQ(Get(key), QStringLiteral("1"));
    const qint64 once = BytesRead();
    for (int times = 0; times < 50; ++times) {
        EXPECT_EQ(Get(QStringLiteral("l")), QStringLiteral("2"));
    }
    EXPECT_GT(once - before, 100000);
    EXPECT_LT(BytesRead() - once, 100000) << "read again";
}

TEST_F(QtPrivateProfileTest, AnEditFromOutsideIsSeenAtOnceAlsoOneOfTheSameSize) {
    Put("[S]\r\nk=1\r\n");
    WaitUntilSettled();
    EXPECT_EQ(Get(key), QStringLiteral("1"));
    Put("[S]\r\nk=2\r\n");
    EXPECT_EQ(Get(key), QStringLiteral("2"));
    Put("[S]\r\nk=3\r\n");
    WaitUntilSettled();
    EXPECT_EQ(Get(key), QStringLiteral("3"));
    Put("[S]\r\nk=4\r\n");
    WaitUntilSettled();
    EXPECT_EQ(Get(key), QStringLiteral("4"));
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(Get(key), QStringLiteral("default"));
}

TEST_F(QtPrivateProfileTest, TwoFilesInTurnAreNotTakenForEachOther) {
    const QString other = folder.filePath(QStringLiteral("Other.ini"));
    Put("[S]\r\nk=1\r\n");
    ASSERT_TRUE(QFile::copy(file, other));
    WaitUntilSettled();
    ASSERT_TRUE(profile.Write(section, key, QStringLiteral("2"), other));
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(profile.GetInt(section, key, 0, file), 1);
        EXPECT_EQ(profile.GetInt(section, key, 0, other), 2);
    }
}

TEST_F(QtPrivateProfileTest, WhatIsWrittenTogetherReplacesTheFileOnceAndIsReadAtOnce) {
    Put("; mine\r\n[S]\r\nk=1\r\n");
    profile.BeginTogether();
    profile.BeginTogether();
    EXPECT_TRUE(profile.Write(section, key, QStringLiteral("2"), file));
    EXPECT_TRUE(profile.EndTogether());
    EXPECT_TRUE(profile.Write(QStringLiteral("New"), key, QStringLiteral("3"), file));
    EXPECT_EQ(profile.GetInt(section, key, 0, file), 2);
    EXPECT_EQ(profile.GetInt(QStringLiteral("New"), key, 0, file), 3);
    EXPECT_EQ(OnDisk(), "; mine\r\n[S]\r\nk=1\r\n");
    EXPECT_TRUE(profile.EndTogether());
    EXPECT_EQ(OnDisk(), "; mine\r\n[S]\r\nk=2\r\n[New]\r\nk=3\r\n");
    EXPECT_EQ(profile.GetInt(section, key, 0, file), 2);
}

TEST_F(QtPrivateProfileTest, WrittenTogetherOrOneByOneTheBytesAreTheSame) {
    const QString other = folder.filePath(QStringLiteral("Other.ini"));
    const QByteArray before = "[s]\r\nK = 1 ;x\r\n\r\n[Last]\r\ny=2";
    Put(before);
    ASSERT_TRUE(QFile::copy(file, other));
    const auto write = [&](const QString& target) {
        for (const char* const name : {"k", "l", "K", "m"}) {
            EXPECT_TRUE(profile.Write(section, QString::fromLatin1(name), QString::fromLatin1(name), target));
            EXPECT_TRUE(profile.Write(QStringLiteral("New"), QString::fromLatin1(name), section, target));
        }
        EXPECT_TRUE(profile.Write(section, QStringLiteral("l"), std::nullopt, target));
    };
    write(other);
    profile.BeginTogether();
    write(file);
    EXPECT_TRUE(profile.EndTogether());
    QFile one(other);
    ASSERT_TRUE(one.open(QIODevice::ReadOnly));
    EXPECT_EQ(OnDisk(), one.readAll().toStdString());
}

TEST_F(QtPrivateProfileTest, AFileThatCannotBeReplacedFailsTheEndOfWritingTogether) {
    profile.BeginTogether();
    EXPECT_TRUE(profile.Write(section, key, QStringLiteral("2"), folder.filePath(QStringLiteral("no/file"))));
    EXPECT_FALSE(profile.EndTogether());
}

TEST_F(QtPrivateProfileTest, BlanksRoundTheNamesAskedForDoNotCount) {
    Put("[S]\r\nk=1\r\n");
    EXPECT_EQ(profile.GetInt(QStringLiteral(" S\t"), QStringLiteral(" k "), 0, file), 1);
}

TEST_F(QtPrivateProfileTest, TextsAreHeldInTheSystemsSingleByteCodePage) {
    EXPECT_TRUE(profile.Write(QStringLiteral(u"\u00dcber"), QStringLiteral(u"\u20ac"),
                              QStringLiteral(u"5 \u00b5m \u03a9"), file));
    EXPECT_EQ(OnDisk(),
              "[\xDC"
              "ber]\r\n\x80=5 \xB5m ?\r\n");
    EXPECT_EQ(
        profile.GetString(QStringLiteral(u"\u00dcBER"), QStringLiteral(u"\u20ac"), QString(), Size, file),
        QStringLiteral(u"5 \u00b5m ?"));
    EXPECT_EQ(profile.GetString(section, key, QStringLiteral(u"\u03a9"), Size, file), QStringLiteral("?"));
}

TEST_F(QtPrivateProfileTest, ATextEndsAtItsFirstNul) {
    const QString cut = QString(QStringLiteral("k")) + QChar(u'\0') + QStringLiteral("x");
    EXPECT_TRUE(profile.Write(section, cut, cut, file));
    EXPECT_EQ(OnDisk(), "[S]\r\nk=k\r\n");
}

TEST_F(QtPrivateProfileTest, GetStringReturnsAValueThatFillsTheBufferLessItsTerminatorWhole) {
    Put("[S]\r\nfull=" + QByteArray(32765, 'x') + "y\r\nlong=" + QByteArray(32766, 'x') + "y\r\n");
    EXPECT_EQ(Get(QStringLiteral("full")), QString(32765, QChar(u'x')) + QChar(u'y'));
    EXPECT_EQ(Get(QStringLiteral("long")), QString(32766, QChar(u'x')));
}

TEST_F(QtPrivateProfileTest, ValuesAndDefaultsAreCutToTheBuffer) {
    Put("[S]\r\nk=abcd\r\n");
    EXPECT_EQ(Get(key, 5), QStringLiteral("abcd"));
    EXPECT_EQ(Get(key, 4), QStringLiteral("abc"));
    EXPECT_EQ(Get(QStringLiteral("l"), 4), QStringLiteral("def"));
    for (const int size : {1, 0, -1, INT32_MIN}) {
        EXPECT_EQ(Get(key, size), QString());
    }
}

TEST_F(QtPrivateProfileTest, GetIntReadsAQuotedNumber) {
    Put("[S]\r\nk=\" -12\"\r\n");
    EXPECT_EQ(profile.GetInt(section, key, 5, file), -12);
}

TEST_F(QtPrivateProfileTest, GetIntOfAnEmptyValueIs0AndOfAMissingOneTheDefault) {
    Put("[S]\r\nk=\r\n");
    EXPECT_EQ(profile.GetInt(section, key, 5, file), 0);
    EXPECT_EQ(profile.GetInt(section, QStringLiteral("l"), INT32_MIN, file), INT32_MIN);
}

TEST_F(QtPrivateProfileTest, NamesEndInNulAndTheListInAnother) {
    Put("[A]\r\nx=1\r\nyy=2\r\n[BC]\r\n");
    const PrivateProfile::Names sections = profile.GetSectionNames(Size, file);
    EXPECT_EQ(sections.buffer, QString::fromLatin1("A\0BC\0\0", 6));
    EXPECT_EQ(sections.count, 5);
    const PrivateProfile::Names keys = profile.GetKeyNames(QStringLiteral("a"), Size, file);
    EXPECT_EQ(keys.buffer, QString::fromLatin1("x\0yy\0\0", 6));
    EXPECT_EQ(keys.count, 5);
}

TEST_F(QtPrivateProfileTest, NamesThatFillTheBufferComeWhole) {
    Put("[A]\r\n[BC]\r\n");
    const PrivateProfile::Names names = profile.GetSectionNames(6, file);
    EXPECT_EQ(names.buffer, QString::fromLatin1("A\0BC\0\0", 6));
    EXPECT_EQ(names.count, 5);
}

TEST_F(QtPrivateProfileTest, NamesBeyondTheBufferAreCutAndTheCountIsItsSizeLess2) {
    Put("[A]\r\n[BC]\r\n");
    const PrivateProfile::Names names = profile.GetSectionNames(5, file);
    EXPECT_EQ(names.buffer, QString::fromLatin1("A\0B\0\0", 5));
    EXPECT_EQ(names.count, 3);
    EXPECT_EQ(profile.GetSectionNames(2, file).buffer, QString::fromLatin1("\0\0", 2));
    for (const int size : {2, 1, 0, -1}) {
        EXPECT_EQ(profile.GetSectionNames(size, file).count, 0);
    }
}

TEST_F(QtPrivateProfileTest, AnEmptyNameDoesNotEndTheListEarly) {
    Put("[]\r\n[A]\r\n=1\r\nx=2\r\n");
    EXPECT_EQ(profile.GetSectionNames(Size, file).buffer, QString::fromLatin1("A\0\0", 3));
    EXPECT_EQ(profile.GetKeyNames(QStringLiteral("A"), Size, file).buffer, QString::fromLatin1("x\0\0", 3));
}

TEST_F(QtPrivateProfileTest, NoNamesAreOneNulAndACountOf0) {
    Put("; nothing\r\n");
    EXPECT_EQ(profile.GetSectionNames(Size, file).buffer, QString(QChar(u'\0')));
    EXPECT_EQ(profile.GetSectionNames(Size, file).count, 0);
}

TEST_F(QtPrivateProfileTest, WritingCreatesFileSectionAndKey) {
    EXPECT_TRUE(profile.Write(section, key, QStringLiteral("1"), file));
    EXPECT_TRUE(profile.Write(section, QStringLiteral("l"), QStringLiteral("2"), file));
    EXPECT_TRUE(profile.Write(QStringLiteral("T"), key, QStringLiteral("3"), file));
    EXPECT_EQ(OnDisk(), "[S]\r\nk=1\r\nl=2\r\n[T]\r\nk=3\r\n");
}

TEST_F(QtPrivateProfileTest, WithoutAValueTheKeyIsRemovedAndWithoutAKeyTheSection) {
    Put("[S]\r\nk=1\r\nl=2\r\n[T]\r\nk=3\r\n");
    EXPECT_TRUE(profile.Write(section, key, std::nullopt, file));
    EXPECT_EQ(OnDisk(), "[S]\r\nl=2\r\n[T]\r\nk=3\r\n");
    EXPECT_TRUE(profile.Write(section, std::nullopt, std::nullopt, file));
    EXPECT_EQ(OnDisk(), "[T]\r\nk=3\r\n");
    EXPECT_TRUE(profile.Write(QStringLiteral("t"), std::nullopt, QStringLiteral("unused"), file));
    EXPECT_EQ(OnDisk(), "");
}

TEST_F(QtPrivateProfileTest, RemovingWhatIsNotThereIsASuccessAndLeavesTheFileAlone) {
    EXPECT_TRUE(profile.Write(section, key, std::nullopt, file));
    EXPECT_TRUE(profile.Write(section, std::nullopt, std::nullopt, file));
    EXPECT_EQ(OnDisk(), "no file");
}

TEST_F(QtPrivateProfileTest, WhatTheFileCannotHoldIsNotWritten) {
    Put("[S]\r\nk=1\r\n");
    EXPECT_FALSE(profile.Write(section, key, QStringLiteral("2\r\n[T]"), file));
    EXPECT_FALSE(profile.Write(section, QStringLiteral("a=b"), QStringLiteral("2"), file));
    EXPECT_FALSE(profile.Write(QStringLiteral("T]\n"), QStringLiteral(";k"), QStringLiteral("2"), file));
    EXPECT_FALSE(profile.Write(section, QString(QStringLiteral("")), QStringLiteral("2"), file));
    EXPECT_EQ(OnDisk(), "[S]\r\nk=1\r\n");
}

TEST_F(QtPrivateProfileTest, AnUnwritablePathGivesFalse) {
    for (const QString& path :
         {QString(), folder.path(), folder.filePath(QStringLiteral("missing/KVData.ini")),
          QStringLiteral("/dev/null"), QStringLiteral("/proc/KVData.ini"),
          folder.filePath(QString(300, QChar(u'x')))}) {
        EXPECT_FALSE(profile.Write(section, key, QStringLiteral("1"), path)) << path.toStdString();
        EXPECT_EQ(profile.GetInt(section, key, -1, path), -1);
    }
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(QtPrivateProfileTest, ABinaryFileGivesDefaultsAndKeepsItsBytes) {
    QByteArray bytes;
    for (int i = 0; i < 100000; ++i) {
        bytes.append(static_cast<char>(i * 131 % 256));
    }
    Put(bytes);
    EXPECT_EQ(Get(key), QStringLiteral("default"));
    EXPECT_TRUE(profile.Write(section, key, QStringLiteral("1"), file));
    EXPECT_TRUE(OnDisk() == bytes.toStdString() + "\r\n[S]\r\nk=1\r\n");
    EXPECT_EQ(Get(key), QStringLiteral("1"));
}

TEST_F(QtPrivateProfileTest, ALineOf10MBIsReadCutAndKept) {
    const QByteArray line = "[S]\r\nbig=" + QByteArray(10 * 1024 * 1024, '7') + "\r\n";
    Put(line);
    EXPECT_EQ(Get(QStringLiteral("big")), QString(32766, QChar(u'7')));
    EXPECT_TRUE(profile.Write(section, key, QStringLiteral("1"), file));
    EXPECT_TRUE(OnDisk() == line.toStdString() + "k=1\r\n");
}

}  // namespace
}  // namespace travo::platform
