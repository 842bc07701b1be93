#include "core/state/clsDebugLog.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <csignal>

#include "core/ground/Arithmetic.h"
#include "support/StandIns.h"

namespace travo {
namespace {

class clsDebugLogTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        log.LogFilePath(path);
    }

    std::string OnDisk() const {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("debugTRAVO.txt"));
    test::FakeClock clock;
    clsDebugLog log{clock};
};

TEST_F(clsDebugLogTest, LogFilePathIsReadAsItWasWritten) {
    EXPECT_EQ(clsDebugLog(clock).LogFilePath(), QString());
    EXPECT_EQ(log.LogFilePath(), path);
}

TEST_F(clsDebugLogTest, TheFirstLineIsTheDateAsMonthDayYearJoinedByHyphens) {
    log.WriteDate();
    EXPECT_EQ(OnDisk(), "07-03-2008\r\n");
}

TEST_F(clsDebugLogTest, EveryOtherLineIsTheTimeOfDayAndTheText) {
    log.WriteDate();
    log.WriteString(QStringLiteral("Mirror : Communication failed"));
    EXPECT_EQ(OnDisk(), "07-03-2008\r\n14:05:33 - Mirror : Communication failed\r\n");
}

TEST_F(clsDebugLogTest, TimesAreOfTwoDigitsEachOnA24HourClock) {
    clock.now = QDateTime(QDate(2026, 12, 31), QTime(0, 0, 9, 999));
    log.WriteDate();
    log.WriteString(QStringLiteral("a"));
    clock.now = QDateTime(QDate(2027, 1, 1), QTime(23, 59, 59));
    log.WriteString(QStringLiteral("b"));
    EXPECT_EQ(OnDisk(), "12-31-2026\r\n00:00:09 - a\r\n23:59:59 - b\r\n");
}

TEST_F(clsDebugLogTest, DateAndTimeDoNotFollowTheOperatorsLanguage) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    log.WriteDate();
    log.WriteString(QStringLiteral("a"));
    QLocale::setDefault(before);
    EXPECT_EQ(OnDisk(), "07-03-2008\r\n14:05:33 - a\r\n");
}

TEST_F(clsDebugLogTest, EachStartEmptiesTheLogBeforeAnythingElseCanBeWritten) {
    log.WriteDate();
    log.WriteString(QStringLiteral("Error : Load"));
    clsDebugLog next(clock);
    next.LogFilePath(path);
    next.WriteDate();
    EXPECT_EQ(OnDisk(), "07-03-2008\r\n");
}

TEST_F(clsDebugLogTest, TwoFailuresInOneSecondGiveTwoLinesWithTheSameTimeInOrder) {
    log.WriteString(QStringLiteral("Needle move failed"));
    log.WriteString(QStringLiteral("Calibration calculation failed"));
    EXPECT_EQ(OnDisk(), "14:05:33 - Needle move failed\r\n14:05:33 - Calibration calculation failed\r\n");
}

TEST_F(clsDebugLogTest, ATextOfAnyLengthGoesOnOneLine) {
    log.WriteString(QString());
    log.WriteString(QString(1000000, QChar(u'x')));
    EXPECT_EQ(OnDisk(), "14:05:33 - \r\n14:05:33 - " + std::string(1000000, 'x') + "\r\n");
}

TEST_F(clsDebugLogTest, ATextWithLineBreaksInItIsNotAltered) {
    log.WriteString(QStringLiteral("a\r\nb\nc\rd\t e "));
    EXPECT_EQ(OnDisk(), "14:05:33 - a\r\nb\nc\rd\t e \r\n");
}

TEST_F(clsDebugLogTest, TheTextOfAMirrorErrorRowKeepsTheReceivedLineInFrontWithNoFurtherSeparator) {
    log.WriteString(QStringLiteral("E1") + QStringLiteral(" : Mirror : Command Error"));
    EXPECT_EQ(OnDisk(), "14:05:33 - E1 : Mirror : Command Error\r\n");
}

TEST_F(clsDebugLogTest, TextsAreWrittenInTheSystemsSingleByteCodePage) {
    log.WriteString(QStringLiteral(u"\u00b5m \u20ac \u03a9"));
    EXPECT_EQ(OnDisk(), "14:05:33 - \xB5m \x80 ?\r\n");
}

TEST_F(clsDebugLogTest, WriteStringCreatesAMissingFileAndItsResultIsAlwaysFalse) {
    EXPECT_FALSE(log.WriteString(QStringLiteral("a")));
    EXPECT_FALSE(log.WriteString(QStringLiteral("b")));
    EXPECT_EQ(OnDisk(), "14:05:33 - a\r\n14:05:33 - b\r\n");
}

TEST_F(clsDebugLogTest, NoFileIsHeldOpenBetweenCalls) {
    log.WriteDate();
    ASSERT_TRUE(QFile::rename(path, path + QStringLiteral(".kept")));
    log.WriteString(QStringLiteral("a"));
    EXPECT_EQ(OnDisk(), "14:05:33 - a\r\n");
}

TEST_F(clsDebugLogTest, WritingWithAnEmptyPathFails) {
    log.LogFilePath(QString());
    EXPECT_THROW(log.WriteDate(), Failure);
    EXPECT_THROW(log.WriteString(QStringLiteral("Error : Initialize")), Failure);
}

TEST_F(clsDebugLogTest, AMissingFolderPassesToTheCaller) {
    log.LogFilePath(folder.filePath(QStringLiteral("missing/debugTRAVO.txt")));
    EXPECT_THROW(log.WriteDate(), Failure);
    EXPECT_THROW(log.WriteString(QStringLiteral("a")), Failure);
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(QStringLiteral("missing"))));
}

TEST_F(clsDebugLogTest, AFolderInPlaceOfTheFilePassesToTheCaller) {
    ASSERT_TRUE(QDir().mkpath(path));
    EXPECT_THROW(log.WriteDate(), Failure);
    EXPECT_THROW(log.WriteString(QStringLiteral("a")), Failure);
}

TEST_F(clsDebugLogTest, AFullDiskPassesToTheCaller) {
    log.WriteDate();
    // A file cannot grow beyond its first line, as on a disk that is full.
    rlimit previous{};
    getrlimit(RLIMIT_FSIZE, &previous);
    const rlimit limited{static_cast<rlim_t>(OnDisk().size()), previous.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limited);
    EXPECT_THROW(log.WriteString(QStringLiteral("a")), Failure);
    setrlimit(RLIMIT_FSIZE, &previous);
    std::signal(SIGXFSZ, handler);
}

TEST_F(clsDebugLogTest, APipeInPlaceOfTheFileIsNotWaitedForAndPassesToTheCaller) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_THROW(log.WriteDate(), Failure);
    EXPECT_THROW(log.WriteString(QStringLiteral("a")), Failure);
}

TEST_F(clsDebugLogTest, ADeviceIsNoLog) {
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/null"), path));
    EXPECT_THROW(log.WriteDate(), Failure);
    EXPECT_THROW(log.WriteString(QStringLiteral("a")), Failure);
}

TEST_F(clsDebugLogTest, ALinkToAFileIsALog) {
    ASSERT_TRUE(QFile::link(QStringLiteral("elsewhere.txt"), path));
    log.WriteDate();
    log.WriteString(QStringLiteral("a"));
    EXPECT_TRUE(OnDisk().ends_with("14:05:33 - a\r\n"));
}

}  // namespace
}  // namespace travo
