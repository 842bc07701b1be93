#include "core/state/DetailsLog.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "support/StandIns.h"

namespace travo {
namespace {

class DetailsLogTest : public testing::Test {
protected:
    DetailsLogTest() { log.Path(path); }

    static QByteArray OnDisk(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("travo-details.txt"));
    QString older = folder.filePath(QStringLiteral("travo-details.last.txt"));
    test::FakeClock clock;
    DetailsLog log{clock};
};

TEST_F(DetailsLogTest, EachLineHasItsDateAndTime) {
    log.Note(QStringLiteral("one"));
    log.Note(QStringLiteral("two"));
    EXPECT_EQ(OnDisk(path), "07-03-2008 14:05:33 - one\r\n07-03-2008 14:05:33 - two\r\n");
}

TEST_F(DetailsLogTest, TheNextRunGoesOn) {
    log.Note(QStringLiteral("one"));
    DetailsLog next(clock);
    next.Path(path);
    next.Note(QStringLiteral("two"));
    EXPECT_EQ(OnDisk(path).count('\n'), 2);
}

TEST_F(DetailsLogTest, ItNeverGrowsBeyondAMegabyteAndKeepsOneOlderPart) {
    const QString text(1000, u'x');
    for (int line = 0; line < 3000; ++line) {
        log.Note(text);
        ASSERT_LE(QFileInfo(path).size(), DetailsLog::MostBytes);
    }
    EXPECT_LE(QFileInfo(older).size(), DetailsLog::MostBytes);
    EXPECT_GT(QFileInfo(older).size(), DetailsLog::MostBytes / 2);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 2);
}

TEST_F(DetailsLogTest, WhereTheOlderPartCannotBeReplacedTheBoundHoldsAllTheSame) {
    ASSERT_TRUE(QDir().mkpath(older + QStringLiteral("/inside")));
    const QString text(1000, u'x');
    for (int line = 0; line < 1500; ++line) {
        log.Note(text);
    }
    EXPECT_LE(QFileInfo(path).size(), DetailsLog::MostBytes);
}

TEST_F(DetailsLogTest, AnEndlessTextIsCut) {
    log.Note(QString(5 * 1024 * 1024, u'x'));
    EXPECT_LT(QFileInfo(path).size(), 5000);
    EXPECT_TRUE(OnDisk(path).endsWith("\r\n"));
}

TEST_F(DetailsLogTest, APipeInItsPlaceHoldsNobodyUp) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    log.Note(QStringLiteral("one"));
    EXPECT_FALSE(QFileInfo(path).isFile());
}

TEST_F(DetailsLogTest, WhatCannotBeWrittenIsLostInSilence) {
    DetailsLog(clock).Note(QStringLiteral("no path yet"));
    ASSERT_TRUE(QDir().mkpath(path));
    log.Note(QStringLiteral("a folder"));
    log.Path(QStringLiteral("/nowhere/travo-details.txt"));
    log.Note(QStringLiteral("no folder"));
    EXPECT_TRUE(QFileInfo(path).isDir());
}

}  // namespace
}  // namespace travo
