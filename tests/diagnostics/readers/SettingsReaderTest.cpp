// Settings, log and calibrations as the files tell.
#include "diagnostics/readers/SettingsReader.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "diagnostics/readers/CalibrationReader.h"
#include "diagnostics/readers/CameraReader.h"
#include "diagnostics/readers/Rig.h"

namespace travo::diagnostics::test {

namespace {

class SettingsReaderTest : public ::testing::Test, protected Rig {
protected:
    SettingsFacts Facts() { return ReadSettings(folder, data, settings); }
    StateText Text(const SettingsFacts& facts) {
        return SettingsCard(facts, facts.writtenAt.addSecs(480), discretion).text;
    }
    NeedleCard Needle(std::size_t needle, const std::optional<QDateTime>& since = std::nullopt) {
        return CalibrationCards(settings, since).at(needle);
    }
};

const QDateTime LongAfter(QDate(2026, 3, 15), QTime(8, 0));
const QDateTime Before(QDate(2026, 3, 14), QTime(9, 0));

}  // namespace

TEST_F(SettingsReaderTest, WithoutAFileTheFirstSetWritesIt) {
    EXPECT_EQ(Text(Facts()).sentence,
              QStringLiteral("No settings yet: the first SET writes ~/program/KVData.ini."));
    EXPECT_EQ(Text(Facts()).mark, Mark::Works);
}

TEST_F(SettingsReaderTest, AFileIsKeptAndTellsItsAge) {
    Settings("[COMPort]\r\nMirror=1\r\n");
    EXPECT_EQ(Text(Facts()).sentence,
              QStringLiteral("Kept in ~/program/KVData.ini. Last written 8 min ago."));
}

TEST_F(SettingsReaderTest, AFolderThatCannotBeWrittenKeepsNothing) {
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
    const bool isRoot = ::geteuid() == 0;
    ASSERT_TRUE(!isRoot || ::seteuid(65534) == 0);
    const StateText text = Text(Facts());
    ASSERT_TRUE(!isRoot || ::seteuid(0) == 0);
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(text.sentence, QStringLiteral("Nothing you set is kept: ~/program cannot be written."));
}

TEST_F(SettingsReaderTest, ALogThatIsAFolderCannotBeWritten) {
    QDir().mkpath(data + QStringLiteral("/debugTRAVO.txt"));
    EXPECT_EQ(Text(Facts()).sentence, QStringLiteral("The log cannot be written to ~/data."));
}

TEST_F(SettingsReaderTest, AFullDiskAndOneThatIsNearlyFullAreTold) {
    SettingsFacts facts = Facts();
    facts.freeMegabytes = 0;
    EXPECT_EQ(Text(facts).sentence, QStringLiteral("Nothing you set is kept: the disk is full."));
    facts.freeMegabytes = 49;
    EXPECT_EQ(Text(facts).sentence, QStringLiteral("Only 49 MB are left on the disk of the settings."));
    facts.freeMegabytes = 50;
    EXPECT_EQ(Text(facts).mark, Mark::Works);
}

TEST_F(SettingsReaderTest, ValuesOutOfRangeAreListedWithWhatWasTaken) {
    Settings(
        "[COMPort]\r\nMirror=40000\r\nMotor=2\r\n[User_Value]\r\nXYOffset=-7\r\nOffsetOFF=5\r\nLineOFF=-3\r\n"
        "ZOffset=many\r\n[Window]\r\n2=9\r\n[FormMain_Position]\r\nTop=99999\r\nLeft=-40\r\n"
        "[Manipulator Calibration:3]\r\nZERO,XYZ:1=4294967301\r\n");
    const std::vector<OutOfRange> wanted{
        {QStringLiteral("COMPort, Mirror"), QStringLiteral("40000"), QStringLiteral("TRAVO does not start")},
        {QStringLiteral("User_Value, XYOffset"), QStringLiteral("-7"), QStringLiteral("100")},
        {QStringLiteral("User_Value, ZOffset"), QStringLiteral("many"), QStringLiteral("0")},
        {QStringLiteral("User_Value, OffsetOFF"), QStringLiteral("5"), QStringLiteral("1")},
        {QStringLiteral("User_Value, LineOFF"), QStringLiteral("-3"), QStringLiteral("0")},
        {QStringLiteral("Window, 2"), QStringLiteral("9"), QStringLiteral("closed")},
        {QStringLiteral("FormMain_Position, Top"), QStringLiteral("99999"),
         QStringLiteral("TRAVO does not start")},
        {QStringLiteral("Manipulator Calibration:3, ZERO,XYZ:1"), QStringLiteral("4294967301"),
         QStringLiteral("5")}};
    EXPECT_EQ(Facts().outOfRange, wanted);
    EXPECT_EQ(Text(Facts()).sentence, QStringLiteral("8 values were out of range; TRAVO took others."));
    const LinkCard card = SettingsCard(Facts(), LongAfter, discretion);
    EXPECT_EQ(card.details[3].value, QStringLiteral("COMPort, Mirror: 40000, taken: TRAVO does not start"));
}

TEST_F(SettingsReaderTest, NothingIsWritten) {
    Facts();
    EXPECT_FALSE(QFileInfo::exists(data));
    EXPECT_TRUE(QDir(folder).isEmpty());
}

TEST_F(SettingsReaderTest, TheEndOfTheLogIsReadWithoutNamesAndAtMostTwoHundredLines) {
    EXPECT_TRUE(LogTail(data, discretion).isEmpty());
    QByteArray log;
    for (int line = 1; line <= 250; ++line) {
        log += "10:00:00 - line " + QByteArray::number(line) + "\r\n";
    }
    Put(data + QStringLiteral("/debugTRAVO.txt"), log + "10:00:01 - of ada, 5 \xB5m\r\n");
    const QStringList tail = LogTail(data, discretion);
    EXPECT_EQ(tail.size(), 200);
    EXPECT_EQ(tail.first(), QStringLiteral("10:00:00 - line 52"));
    EXPECT_EQ(tail.last(), QStringLiteral("10:00:01 - of USER, 5 µm"));
}

TEST_F(SettingsReaderTest, ANeedleWithoutPointsIsNotCalibrated) {
    EXPECT_EQ(Needle(2).word, QStringLiteral("Not calibrated"));
    EXPECT_EQ(Needle(2).text.remedy, QStringLiteral("Calibrate needle 3."));
    EXPECT_EQ(Needle(2).full, QStringLiteral("none"));
}

TEST_F(SettingsReaderTest, ACompleteCalibrationIsGood) {
    Settings(RightCalibration(0) + Centre(12500) + "ReTime=26/03/14    09:58\r\n");
    EXPECT_EQ(Needle(0).word, QStringLiteral("Good"));
    EXPECT_EQ(Needle(0).text.sentence, QStringLiteral("Lengths and angles fit."));
    EXPECT_EQ(Needle(0).full, QStringLiteral("26/03/14    09:41"));
    EXPECT_EQ(Needle(0).centre, QStringLiteral("26/03/14    09:58"));
}

TEST_F(SettingsReaderTest, ACentreThatIsMissingUnsetOrClearedIsNoCentre) {
    for (const QByteArray& centre : {QByteArray(), Centre(-100000), Centre(0)}) {
        Settings(RightCalibration(1) + centre);
        EXPECT_EQ(Needle(1).text.sentence, QStringLiteral("After the next start its positions are wrong."));
        EXPECT_EQ(Needle(1).word, QStringLiteral("No centre"));
        EXPECT_EQ(Needle(1, LongAfter).text.sentence,
                  QStringLiteral("Its positions are wrong since this start."));
        EXPECT_EQ(Needle(1, Before).text.sentence,
                  QStringLiteral("After the next start its positions are wrong."));
        EXPECT_EQ(Needle(1).centre, QStringLiteral("not recorded"));
    }
}

TEST_F(SettingsReaderTest, ACentreOlderThanTheCalibrationIsOldAndOneOfTheSameMinuteIsNot) {
    Settings(RightCalibration(1) + Centre(12500) + "ReTime=26/03/13    18:00\r\n");
    EXPECT_EQ(Needle(1).word, QStringLiteral("Old centre"));
    EXPECT_EQ(Needle(1).centre, QStringLiteral("26/03/13    18:00 older"));
    EXPECT_EQ(Needle(1, LongAfter).text.sentence,
              QStringLiteral("Older than the calibration: its positions are off since this start."));
    Settings(RightCalibration(1) + Centre(12500) + "ReTime=26/03/14    09:41\r\n");
    EXPECT_EQ(Needle(1).word, QStringLiteral("Good"));
}

TEST_F(SettingsReaderTest, ACrookedCalibrationIsPoorAndNamesItsRemedy) {
    Settings(RightCalibration(0).replace("Index:3,XYZ:2=12400", "Index:3,XYZ:2=12458") + Centre(12500));
    EXPECT_EQ(Needle(0).word, QStringLiteral("Poor"));
    EXPECT_EQ(Needle(0).text.sentence,
              QStringLiteral("The raise measures 42; the motor gives 100. Point Z was not in focus."));
    EXPECT_EQ(Needle(0).text.remedy, QStringLiteral("Calibrate needle 1."));
}

TEST(CameraCardTest, WhoHasNoCameraIsNotTroubledAndWhoHadOneIsToldWhatIsMissing) {
    const auto sentence = [](const CameraFacts& facts, bool isTravoRunning) {
        return CameraCard(facts, isTravoRunning).text.sentence.toStdString();
    };
    EXPECT_EQ(sentence({}, false), "The camera is not started.");
    EXPECT_EQ(sentence({.stoodOpen = true}, false), "There is no session bus, so no camera can be reached.");
    EXPECT_EQ(sentence({.stoodOpen = true, .hasBus = true}, false),
              "No camera program is known to the session bus.");
    EXPECT_EQ(sentence({.stoodOpen = true, .hasBus = true, .isKnown = true}, false),
              "The camera is not started.");
    EXPECT_EQ(sentence({.isRunning = true}, true),
              "The camera is used by TRAVO. Its calls show there, with F2.");
    EXPECT_EQ(sentence({.stoodOpen = true}, true), "The camera is not started.");
}

}  // namespace travo::diagnostics::test
