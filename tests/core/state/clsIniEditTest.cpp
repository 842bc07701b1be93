#include "core/state/clsIniEdit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <array>
#include <string>

#include "platform/qt/QtPrivateProfile.h"

namespace travo {
namespace {

QString Text(const char* text) { return QString::fromLatin1(text); }

class clsIniEditTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        ini.IniFilePath(path);
    }

    void Put(const QByteArray& bytes) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    std::string OnDisk() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no file";
    }

    // What the load finds where a key is missing or damaged, with the defaults that it passes.
    void ExpectDefaults() const {
        EXPECT_EQ(ini.GetInt(Text("User_Value"), Text("XYOffset"), -1), -1);
        EXPECT_EQ(ini.GetInt(Text("User_Value"), Text("ZOffset"), -1), -1);
        EXPECT_EQ(ini.GetInt(Text("FormMain_Position"), Text("Top"), -1), -1);
        EXPECT_EQ(ini.GetString(Text("FormBirdView_Shift"), Text("X"), Text("0")), Text("0"));
        EXPECT_EQ(ini.GetString(Text("Manipulator Calibration:0"), Text("Time"), Text("-1")), Text("-1"));
        EXPECT_EQ(ini.GetInt(Text("Manipulator Calibration:3"), Text("Index:3,XYZ:0"), -100000), -100000);
        for (const char* device : {"Mirror", "Magnescale", "Motor"}) {
            EXPECT_EQ(ini.GetInt(Text("COMPort"), Text(device), -1), -1);
        }
        for (const char* window : {"0", "1", "2", "3", "4"}) {
            EXPECT_EQ(ini.GetInt(Text("Window"), Text(window), 1), 1);
        }
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(Text("KVData.ini"));
    platform::QtPrivateProfile profile;
    clsIniEdit ini{profile};
};

TEST_F(clsIniEditTest, IniFilePathIsReadAsItWasWritten) {
    EXPECT_EQ(clsIniEdit(profile).IniFilePath(), QString());
    EXPECT_EQ(ini.IniFilePath(), path);
}

TEST_F(clsIniEditTest, WriteStringCreatesFileSectionAndKeyAndGivesAResultOtherThan0) {
    EXPECT_NE(ini.WriteString(Text("COMPort"), Text("Mirror"), Text("3")), 0);
    EXPECT_EQ(OnDisk(), "[COMPort]\r\nMirror=3\r\n");
}

TEST_F(clsIniEditTest, AWriteStringWithAnEmptyValueLeavesTheExistingKeyUnchangedAndReturns0) {
    Put("[S]\r\nk=1\r\n");
    EXPECT_EQ(ini.WriteString(Text("S"), Text("k"), QString()), 0);
    EXPECT_EQ(ini.WriteString(Text("S"), Text("k"), Text("")), 0);
    EXPECT_EQ(OnDisk(), "[S]\r\nk=1\r\n");
}

TEST_F(clsIniEditTest, AWriteStringWithAnEmptyKeyWritesNothingAndReturns0) {
    EXPECT_EQ(ini.WriteString(Text("S"), QString(), Text("1")), 0);
    EXPECT_EQ(ini.WriteString(Text("S"), Text(""), Text("1")), 0);
    EXPECT_EQ(OnDisk(), "no file");
}

TEST_F(clsIniEditTest, AnUnwritableFileShowsAsAResultOf0) {
    ini.IniFilePath(folder.filePath(Text("missing/KVData.ini")));
    EXPECT_EQ(ini.WriteString(Text("S"), Text("k"), Text("1")), 0);
    ini.IniFilePath(folder.path());
    EXPECT_EQ(ini.WriteString(Text("S"), Text("k"), Text("1")), 0);
    EXPECT_EQ(ini.DeleteKey(Text("S"), Text("k")), 0);
    EXPECT_EQ(ini.DeleteSection(Text("S")), 0);
    EXPECT_EQ(ini.GetInt(Text("S"), Text("k"), 7), 7);
}

TEST_F(clsIniEditTest, GetStringOfAMissingSectionOrKeyGivesTheDefault) {
    Put("[S]\r\nk=1\r\n");
    EXPECT_EQ(ini.GetString(Text("S"), Text("k"), Text("d")), Text("1"));
    EXPECT_EQ(ini.GetString(Text("S"), Text("l"), Text("d")), Text("d"));
    EXPECT_EQ(ini.GetString(Text("T"), Text("k"), Text("d")), Text("d"));
}

TEST_F(clsIniEditTest, GetStringReturnsAValueThatFillsThe32767CharacterBufferLessItsTerminatorWhole) {
    const QString whole = QString(32765, QChar(u'x')) + QChar(u'y');
    EXPECT_NE(ini.WriteString(Text("S"), Text("k"), whole), 0);
    EXPECT_EQ(ini.GetString(Text("S"), Text("k"), QString()), whole);
    EXPECT_NE(ini.WriteString(Text("S"), Text("k"), whole + QChar(u'z')), 0);
    EXPECT_EQ(ini.GetString(Text("S"), Text("k"), QString()), whole);
}

TEST_F(clsIniEditTest, ATimeWithFourBlanksInItComesBackWhole) {
    ini.WriteString(Text("Manipulator Calibration:2"), Text("Time"), Text("08/07/03    14:05"));
    EXPECT_EQ(ini.GetString(Text("Manipulator Calibration:2"), Text("Time"), Text("-1")),
              Text("08/07/03    14:05"));
}

TEST_F(clsIniEditTest, TextsGoThroughTheCodePageInAndOut) {
    ini.WriteString(Text("S"), Text("k"), QStringLiteral(u"\u00b5\u20ac\u03a9"));
    EXPECT_EQ(OnDisk(), "[S]\r\nk=\xB5\x80?\r\n");
    EXPECT_EQ(ini.GetString(Text("S"), Text("k"), QString()), QStringLiteral(u"\u00b5\u20ac?"));
}

TEST_F(clsIniEditTest, GetIntOfAMissingKeyWithDefaultMinus100000ReturnsMinus100000) {
    Put("[Manipulator Calibration:0]\r\nZERO,XYZ:0=5\r\n");
    EXPECT_EQ(ini.GetInt(Text("Manipulator Calibration:0"), Text("ZERO,XYZ:1"), -100000), -100000);
    EXPECT_EQ(ini.GetInt(Text("Manipulator Calibration:1"), Text("ZERO,XYZ:0"), -100000), -100000);
}

TEST_F(clsIniEditTest, GetIntOfAbcReturns0SoThatADamagedCalibrationValueCountsAsMeasuredAt0) {
    Put("[Manipulator Calibration:0]\r\nIndex:0,XYZ:0=abc\r\n");
    EXPECT_EQ(ini.GetInt(Text("Manipulator Calibration:0"), Text("Index:0,XYZ:0"), -100000), 0);
}

TEST_F(clsIniEditTest, GetIntGivesTheNumberThatAValueBeginsWith) {
    Put("[S]\na=-1\nb=40000\nc=99999999999\nd=+5\ne=12 mm\nf=-\ng=0x10\nh=\n");
    const std::array<std::pair<const char*, std::int32_t>, 8> expected{
        {{"a", -1}, {"b", 40000}, {"c", 1215752191}, {"d", 5}, {"e", 12}, {"f", 0}, {"g", 0}, {"h", 0}}};
    for (const auto& [key, value] : expected) {
        EXPECT_EQ(ini.GetInt(Text("S"), Text(key), 77), value) << key;
    }
}

TEST_F(clsIniEditTest, AStoredTopOfMinus1AndOfMinus30ReadsAsNegativeSoThatTheLoadTakes0) {
    Put("[FormMain_Position]\r\nTop=-1\r\n[FormMirror_Position]\r\nTop=-30\r\n");
    EXPECT_EQ(ini.GetInt(Text("FormMain_Position"), Text("Top"), -1), -1);
    EXPECT_EQ(ini.GetInt(Text("FormMirror_Position"), Text("Top"), -1), -30);
}

TEST_F(clsIniEditTest, AnEmptyFileGivesTheDefaultsForOffsetsPortsAndClosedWindows) {
    Put("");
    ExpectDefaults();
}

TEST_F(clsIniEditTest, AMissingFileBehavesAsAnEmptyOne) {
    ExpectDefaults();
    EXPECT_EQ(OnDisk(), "no file");
}

TEST_F(clsIniEditTest, ABinaryFileBehavesAsAnEmptyOne) {
    QByteArray bytes;
    for (int i = 0; i < 100000; ++i) {
        bytes.append(static_cast<char>(i * 131 % 256));
    }
    Put(bytes);
    ExpectDefaults();
}

TEST_F(clsIniEditTest, SectionAndKeyMatchWithoutRegardToCase) {
    Put("[comport]\r\nMIRROR=3\r\n");
    EXPECT_EQ(ini.GetInt(Text("COMPort"), Text("Mirror"), -1), 3);
    ini.WriteString(Text("COMPort"), Text("Mirror"), Text("4"));
    EXPECT_EQ(OnDisk(), "[comport]\r\nMIRROR=4\r\n");
}

TEST_F(clsIniEditTest, TwoInstancesWorkOnTheSameFile) {
    clsIniEdit other(profile);
    other.IniFilePath(path);
    ini.WriteString(Text("Window"), Text("0"), Text("1"));
    other.WriteString(Text("Window"), Text("0"), Text("0"));
    other.WriteString(Text("Window"), Text("1"), Text("1"));
    EXPECT_EQ(ini.GetInt(Text("Window"), Text("0"), 1), 0);
    EXPECT_EQ(OnDisk(), "[Window]\r\n0=0\r\n1=1\r\n");
}

TEST_F(clsIniEditTest, GetSectionNamesWithAnArrayOfThreeElementsOnAFileOfFiveSectionsFillsThreeAndStops) {
    Put("[One]\r\n[Two]\r\nk=1\r\n[Three]\r\n[Four]\r\n[Five]\r\n");
    std::array<QString, 5> names;
    names.fill(Text("untouched"));
    EXPECT_EQ(ini.GetSectionNames(std::span(names).first(3)), 24);
    EXPECT_THAT(names, testing::ElementsAre(Text("One"), Text("Two"), Text("Three"), Text("untouched"),
                                            Text("untouched")));
}

TEST_F(clsIniEditTest, GetSectionNamesLeavesElementsBehindTheLastNameAsTheyAre) {
    Put("[One]\r\n[Two]\r\n");
    std::array<QString, 3> names{QString(), QString(), Text("untouched")};
    EXPECT_EQ(ini.GetSectionNames(names), 8);
    EXPECT_THAT(names, testing::ElementsAre(Text("One"), Text("Two"), Text("untouched")));
}

TEST_F(clsIniEditTest, GetSectionNamesOfNoSectionsIs0AndFillsNothing) {
    std::array<QString, 1> names{Text("untouched")};
    EXPECT_EQ(ini.GetSectionNames(names), 0);
    EXPECT_EQ(names[0], Text("untouched"));
}

TEST_F(clsIniEditTest, GetSectionNamesWithAnEmptyArrayStillGivesTheCount) {
    Put("[One]\r\n");
    EXPECT_EQ(ini.GetSectionNames({}), 4);
}

TEST_F(clsIniEditTest, GetSectionNamesBeyondTheBufferGivesItsSizeLess2AndACutLastName) {
    Put("[One]\r\n[" + QByteArray(40000, 'x') + "]\r\n[Three]\r\n");
    std::array<QString, 3> names;
    EXPECT_EQ(ini.GetSectionNames(names), 32765);
    EXPECT_EQ(names[1], QString(32761, QChar(u'x')));
    EXPECT_EQ(names[2], QString());
}

TEST_F(clsIniEditTest, GetKeyNamesFillsTheArrayWithTheKeysOfTheSection) {
    Put("[S]\r\nTop=1\r\n;c=2\r\nLeft=3\r\n[T]\r\nWidth=4\r\n");
    std::array<QString, 3> names{QString(), QString(), Text("untouched")};
    EXPECT_EQ(ini.GetKeyNames(Text("s"), names), 9);
    EXPECT_THAT(names, testing::ElementsAre(Text("Top"), Text("Left"), Text("untouched")));
    EXPECT_EQ(ini.GetKeyNames(Text("missing"), names), 0);
}

TEST_F(clsIniEditTest, GetKeyNamesStopsWhenTheArrayIsFull) {
    Put("[S]\r\na=1\r\nb=2\r\nc=3\r\n");
    std::array<QString, 1> names;
    EXPECT_EQ(ini.GetKeyNames(Text("S"), names), 6);
    EXPECT_EQ(names[0], Text("a"));
}

TEST_F(clsIniEditTest, DeleteSectionRemovesTheWholeSection) {
    Put("[S]\r\nk=1\r\n[T]\r\nk=2\r\n");
    EXPECT_NE(ini.DeleteSection(Text("S")), 0);
    EXPECT_EQ(OnDisk(), "[T]\r\nk=2\r\n");
}

TEST_F(clsIniEditTest, DeleteKeyRemovesTheKey) {
    Put("[S]\r\nk=1\r\nl=2\r\n");
    EXPECT_NE(ini.DeleteKey(Text("S"), Text("k")), 0);
    EXPECT_EQ(OnDisk(), "[S]\r\nl=2\r\n");
}

TEST_F(clsIniEditTest, DeleteKeyWithAnEmptyKeyDoesNothingAndGives0) {
    Put("[S]\r\nk=1\r\n");
    EXPECT_EQ(ini.DeleteKey(Text("S"), QString()), 0);
    EXPECT_EQ(ini.DeleteKey(Text("S"), Text("")), 0);
    EXPECT_EQ(OnDisk(), "[S]\r\nk=1\r\n");
}

TEST_F(clsIniEditTest, UnknownSectionsKeysAndCommentsSurviveAWrite) {
    const std::string before = "; laboratory 3\r\n[Other]\r\nx = \"1\"\r\n\r\n[Window]\r\n9=1\r\n";
    Put(QByteArray::fromStdString(before));
    ini.WriteString(Text("Window"), Text("0"), Text("0"));
    EXPECT_EQ(OnDisk(), before + "0=0\r\n");
}

}  // namespace
}  // namespace travo
