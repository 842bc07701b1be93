// The connection panel: its number boxes and their arrows.
#include <QClipboard>
#include <QGuiApplication>

#include "devices/view/CtlConnectionRig.h"

namespace travo::test {
namespace {

using ::testing::IsEmpty;

class CtlConnectionBoxTest : public CtlConnectionRig {};

TEST_F(CtlConnectionBoxTest, ClearingBox0Writes1IntoIt) {
    Type(0, QStringLiteral("7"));
    EXPECT_EQ(Box(0).text(), QStringLiteral("7"));
    QTest::keyClick(&Box(0), Qt::Key_Backspace);
    EXPECT_EQ(Box(0).text(), QStringLiteral("1"));
    QTest::keyClick(&Box(0), Qt::Key_4);
    EXPECT_EQ(Box(0).text(), QStringLiteral("4"));
}

TEST_F(CtlConnectionBoxTest, TypingALetterInAnyBoxDoesNothing) {
    for (int row = 0; row < 4; ++row) {
        Type(row, QStringLiteral("3"));
        QTest::keyClicks(&Box(row), QStringLiteral("aZ-+. ,"));
        EXPECT_EQ(Box(row).text(), QStringLiteral("3")) << row;
    }
}

TEST_F(CtlConnectionBoxTest, ABoxTakesFiveFigures) {
    Type(1, QStringLiteral("987654"));
    EXPECT_EQ(Box(1).text(), QStringLiteral("98765"));
}

TEST_F(CtlConnectionBoxTest, AWholeNumberThatIsPastedWithAPlusOrBlanksIsMeant) {
    const std::pair<const char*, const char*> texts[] = {
        {"+5", "5"},         {" 5", "5"},         {"5 ", "5"},
        {"\t5\n", "5"},      {"  +5", "5"},       {"      12345", "12345"},
        {"+12345", "12345"}, {"123456", "12345"}, {"1.5", "1"},
        {"++5", "1"},        {"+", "1"},          {"+ 5", "1"},
        {" ", "1"},          {"-5", "1"},         {"5 6", "1"},
        {"0x5", "1"},        {"+0", "1"}};
    for (int row = 0; row < 3; ++row) {
        for (const auto& [text, kept] : texts) {
            Type(row, QStringLiteral("7"));
            Box(row).selectAll();
            QGuiApplication::clipboard()->setText(QString::fromLatin1(text));
            Box(row).paste();
            EXPECT_EQ(Box(row).text().toStdString(), kept) << text;
        }
    }
}

TEST_F(CtlConnectionBoxTest, APastedNumberOpensItsPort) {
    Box(0).selectAll();
    QGuiApplication::clipboard()->setText(QStringLiteral("+5"));
    Box(0).paste();
    Press(0);
    EXPECT_EQ(rig.MirrorPort().commPort, 5);
    EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(CtlConnectionBoxTest, AFigureTypedIntoAFullBoxChangesNothing) {
    Type(1, QStringLiteral("98765"));
    QTest::keyClick(&Box(1), Qt::Key_Home);
    QTest::keyClick(&Box(1), Qt::Key_1);
    EXPECT_EQ(Box(1).text(), QStringLiteral("98765"));
}

TEST_F(CtlConnectionBoxTest, ATypedZeroBecomes1) {
    Type(2, QStringLiteral("0"));
    EXPECT_EQ(Box(2).text(), QStringLiteral("1"));
}

TEST_F(CtlConnectionBoxTest, WhatIsPutIntoABoxIsFiltered) {
    const std::pair<const char*, const char*> texts[] = {{"", "1"},
                                                         {"abc", "1"},
                                                         {"2.5", "1"},
                                                         {"-5", "1"},
                                                         {"0", "1"},
                                                         {"12", "12"},
                                                         {"007", "007"},
                                                         {"32767", "32767"},
                                                         {"99999999999", "99999999999"},
                                                         {"-99999999999", "1"}};
    for (const auto& [text, kept] : texts) {
        panel.txtNoChange(1, QStringLiteral("5"));
        panel.txtNoChange(1, QString::fromLatin1(text));
        EXPECT_EQ(Box(1).text().toStdString(), kept) << text;
    }
}

TEST_F(CtlConnectionBoxTest, PuttingATextIntoABoxDoesNothingElse) {
    panel.txtNoChange(0, QStringLiteral("4"));
    EXPECT_THAT(rig.journal, IsEmpty());
    EXPECT_FALSE(Watch(0).enabled);
    EXPECT_EQ(Stored(0), QStringLiteral("none"));
}

TEST_F(CtlConnectionBoxTest, AtATotalOfTwoManipulatorsTheText3IsAcceptedAnd4ChangesTo1) {
    rig.state.intTotalManipulatorNumber = 2;
    Type(3, QStringLiteral("3"));
    EXPECT_EQ(Box(3).text(), QStringLiteral("3"));
    Type(3, QStringLiteral("4"));
    EXPECT_EQ(Box(3).text(), QStringLiteral("1"));
}

TEST_F(CtlConnectionBoxTest, WithNoManipulatorEveryNumberInBox3Becomes1) {
    rig.state.intTotalManipulatorNumber = -1;
    for (const char* const figure : {"1", "2", "4"}) {
        Type(3, QString::fromLatin1(figure));
        EXPECT_EQ(Box(3).text(), QStringLiteral("1"));
    }
}

TEST_F(CtlConnectionBoxTest, UpArrowAtBox3WithValue4DoesNothing) {
    rig.state.intTotalManipulatorNumber = 4;
    Type(3, QStringLiteral("4"));
    Click(Up(3));
    EXPECT_EQ(Box(3).text(), QStringLiteral("4"));
}

TEST_F(CtlConnectionBoxTest, UpArrowAtBox3AboveTheConnectedManipulatorsGoesBackTo1) {
    rig.state.intTotalManipulatorNumber = 1;
    Click(Up(3));
    EXPECT_EQ(Box(3).text(), QStringLiteral("2"));
    Click(Up(3));
    EXPECT_EQ(Box(3).text(), QStringLiteral("1"));
}

TEST_F(CtlConnectionBoxTest, DownArrowGoesDownTo1) {
    for (int row = 0; row < 4; ++row) {
        Type(row, QStringLiteral("3"));
        Click(Down(row));
        EXPECT_EQ(Box(row).text(), QStringLiteral("2"));
        Click(Down(row));
        Click(Down(row));
        EXPECT_EQ(Box(row).text(), QStringLiteral("1"));
    }
}

TEST_F(CtlConnectionBoxTest, UpArrowOfAPortHasNoUpperLimit) {
    for (int row = 0; row < 3; ++row) {
        Type(row, QStringLiteral("99999"));
        Click(Up(row));
        EXPECT_EQ(Box(row).text(), QStringLiteral("100000"));
        Click(Down(row));
        EXPECT_EQ(Box(row).text(), QStringLiteral("99999"));
    }
}

}  // namespace
}  // namespace travo::test
