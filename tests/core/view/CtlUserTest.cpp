// The user panel's settings, worked as the operator works them.
#include "CtlUserRig.h"

namespace travo::test {
namespace {

class CtlUserTest : public CtlUserRig {};

using ::testing::IsEmpty;

const QString XYTold = QStringLiteral("XY Offset changes to minimum value");
const QString ZTold = QStringLiteral("Z Offset changes to minimum value");

// Construction and the end.

TEST_F(CtlUserTest, StartsInTabModeWithBothSwitchesRaised) {
    EXPECT_EQ(Panel().objectName(), QStringLiteral("CtlUser1"));
    EXPECT_TRUE(Mode(0).Value());
    EXPECT_FALSE(Mode(1).Value());
    EXPECT_EQ(Panel().OffsetONOff(), 0);
    EXPECT_EQ(Panel().ContactONOff(), 0);
    EXPECT_THAT(rig.journal, IsEmpty());
}

TEST_F(CtlUserTest, TheVersionHasMajorAndMinorNumberOnly) {
    EXPECT_EQ(Find<NumberLabel>(QStringLiteral("lblVersion")).text(),
              QStringLiteral("Version " TRAVO_VERSION));
}

TEST_F(CtlUserTest, WithoutASettingsFileEveryWindowButtonIsRaised) {
    for (int index = 0; index < 5; ++index) {
        EXPECT_FALSE(Window(index).Value()) << index;
    }
}

TEST_F(CtlUserTest, AKeyOfZeroPressesItsButtonAndAnyOtherRaisesItAndNothingIsOpened) {
    StoreWindow(0, QStringLiteral("0"));
    StoreWindow(1, QStringLiteral("1"));
    StoreWindow(2, QStringLiteral("0"));
    StoreWindow(3, QStringLiteral("-1"));
    StoreWindow(4, QStringLiteral("open"));  // reads as 0
    EXPECT_TRUE(Window(0).Value());
    EXPECT_FALSE(Window(1).Value());
    EXPECT_TRUE(Window(2).Value());
    EXPECT_FALSE(Window(3).Value());
    EXPECT_TRUE(Window(4).Value());
    EXPECT_THAT(rig.journal, IsEmpty());
    EXPECT_EQ(live.State(), LiveLink::Object::None);
}

TEST_F(CtlUserTest, AWindowButtonPressedAtTheEndOfTheRunGivesZeroAndTheWindowOpensAtTheNextStart) {
    Click(Window(1));
    Click(Window(4));
    CloseProgram();
    EXPECT_EQ(rig.Settings(), QByteArray("[Window]\r\n0=1\r\n1=0\r\n2=1\r\n3=1\r\n4=0\r\n"));
    EXPECT_TRUE(Window(1).Value());
    EXPECT_TRUE(Window(4).Value());
    EXPECT_FALSE(Window(2).Value());
}

TEST_F(CtlUserTest, AProgramFolderWithASeparatorAtItsEndIsTheSameFolder) {
    { const CtlUser other(System(), rig.ProgramFolder() + QLatin1Char('/')); }
    EXPECT_EQ(Setting(QStringLiteral("0")), QStringLiteral("1"));
}

TEST_F(CtlUserTest, ARunThatNeverCameToLoadLeavesTheSettingsFileUntouched) {
    StoreWindow(0, QStringLiteral("0"));
    const QByteArray before = rig.Settings();
    Click(Window(1));
    Panel().SaveWindowsAtEnd(false);
    CloseProgram();
    EXPECT_EQ(rig.Settings(), before);
}

// Offsets.

TEST_F(CtlUserTest, EachTimeItIsShownTheBoxesAndTheMinimumStandAsTheVariables) {
    Panel();
    rig.needleMove.lngXYOffset = 250;
    rig.objective.lngOffset = 175;
    rig.objective.lngMinimumOffset = 120;
    EXPECT_EQ(Offset(0).text(), QStringLiteral("0"));
    Panel().Shown();
    EXPECT_EQ(Offset(0).text(), QStringLiteral("250"));
    EXPECT_EQ(Offset(1).text(), QStringLiteral("175"));
    EXPECT_EQ(Find<NumberLabel>(QStringLiteral("lblMinVal")).text(), QStringLiteral("120"));
}

TEST_F(CtlUserTest, AnOffsetOfTenDigitsFromTheSettingsIsShownWhole) {
    rig.objective.lngOffset = 2147483647;
    Panel();
    EXPECT_EQ(Offset(1).text(), QStringLiteral("2147483647"));
    Apply();
    EXPECT_EQ(rig.objective.lngOffset, 2147483647);
    rig.objective.lngOffset = 100;
    Panel().Shown();
    Type(1, QStringLiteral("1234567890"));
    EXPECT_EQ(Offset(1).text(), QStringLiteral("123456789"));
}

TEST_F(CtlUserTest, TheApplyButtonStoresBothOffsets) {
    Type(0, QStringLiteral("300"));
    Type(1, QStringLiteral("150"));
    Apply();
    EXPECT_EQ(rig.needleMove.lngXYOffset, 300);
    EXPECT_EQ(rig.objective.lngOffset, 150);
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlUserTest, TypingAloneChangesNothing) {
    Type(0, QStringLiteral("300"));
    Type(1, QStringLiteral("150"));
    EXPECT_EQ(rig.needleMove.lngXYOffset, 0);
    EXPECT_EQ(rig.objective.lngOffset, 100);
}

TEST_F(CtlUserTest, AnXYOffsetOfZeroIsAcceptedWithoutAnyMessage) {
    rig.needleMove.lngXYOffset = 70;
    Panel();
    Type(0, QStringLiteral("0"));
    Apply();
    EXPECT_EQ(rig.needleMove.lngXYOffset, 0);
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlUserTest, AZOffsetOf99WithTheSwitchRaisedGivesTheMessageAndTheBoxShows100) {
    rig.objective.lngOffset = 500;
    Panel();
    Type(1, QStringLiteral("99"));
    Apply();
    EXPECT_EQ(rig.objective.lngOffset, 100);
    EXPECT_EQ(Offset(1).text(), QStringLiteral("100"));
    ASSERT_EQ(rig.boxes.shown.size(), 1U);
    EXPECT_EQ(rig.boxes.shown[0].text, ZTold);
    EXPECT_EQ(rig.boxes.shown[0].buttons, platform::BoxButtons::OK);
    EXPECT_EQ(rig.boxes.shown[0].icon, platform::BoxIcon::None);
    EXPECT_TRUE(rig.Log().isEmpty());
}

TEST_F(CtlUserTest, AZOffsetOfTheMinimumItselfIsAccepted) {
    Type(1, QStringLiteral("100"));
    Apply();
    EXPECT_EQ(rig.objective.lngOffset, 100);
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlUserTest, TheBoxShowsTheMinimumBeforeTheMessageIsSeenAndXYComesFirst) {
    rig.needleMove.lngMinimumXYOffset = 10;
    Panel();
    QStringList seen;
    rig.boxes.whileShown = [&] { seen << Offset(0).text() + QLatin1Char(' ') + Offset(1).text(); };
    Type(0, QStringLiteral("9"));
    Type(1, QStringLiteral("5"));
    Apply();
    EXPECT_EQ(rig.boxes.Texts(), (QStringList{XYTold, ZTold}));
    EXPECT_EQ(seen, (QStringList{QStringLiteral("10 5"), QStringLiteral("10 100")}));
    EXPECT_EQ(rig.needleMove.lngXYOffset, 10);
    EXPECT_EQ(rig.objective.lngOffset, 100);
}

TEST_F(CtlUserTest, AFractionIsRoundedToNearestWithTiesToEven) {
    const std::vector<std::pair<QString, std::int32_t>> rows{{QStringLiteral("120.5"), 120},
                                                             {QStringLiteral("121.5"), 122},
                                                             {QStringLiteral("121.49"), 121},
                                                             {QStringLiteral("+121"), 121},
                                                             {QStringLiteral(" 130 "), 130}};
    for (const auto& [text, value] : rows) {
        Offset(1).setText(text);
        // A whole number is taken without its plus and its blanks.
        EXPECT_EQ(Offset(1).text(), text.contains(u'.') ? text : QString::number(value));
        Apply();
        EXPECT_EQ(rig.objective.lngOffset, value) << text.toStdString();
    }
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlUserTest, AFractionBelowTheMinimumIsBelowItThoughItRoundsToIt) {
    Offset(1).setText(QStringLiteral("99.9"));
    Apply();
    EXPECT_EQ(rig.boxes.Texts(), QStringList{ZTold});
    EXPECT_EQ(Offset(1).text(), QStringLiteral("100"));
}

// The offset switch.

TEST_F(CtlUserTest, OffsetOFFReadAtLoadPressesTheSwitchAndZOffsetsBelow100AreAcceptedUntilItIsRaised) {
    Panel().OffsetONOff(1);
    EXPECT_TRUE(Switch(0).Value());
    EXPECT_EQ(Panel().OffsetONOff(), 1);
    Type(1, QStringLiteral("7"));
    Apply();
    EXPECT_EQ(rig.objective.lngOffset, 7);
    EXPECT_EQ(Offset(1).text(), QStringLiteral("7"));
    Click(Switch(0));
    EXPECT_EQ(Panel().OffsetONOff(), 0);
    EXPECT_EQ(rig.objective.lngOffset, 100);
    EXPECT_EQ(Offset(1).text(), QStringLiteral("100"));
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
    Type(1, QStringLiteral("7"));
    Apply();
    EXPECT_EQ(rig.boxes.Texts(), QStringList{ZTold});
}

TEST_F(CtlUserTest, PressingTheOffsetSwitchChangesNoValue) {
    Type(0, QStringLiteral("300"));
    Type(1, QStringLiteral("7"));
    Click(Switch(0));
    EXPECT_EQ(Panel().OffsetONOff(), 1);
    EXPECT_EQ(rig.needleMove.lngXYOffset, 0);
    EXPECT_EQ(rig.objective.lngOffset, 100);
    EXPECT_EQ(Offset(1).text(), QStringLiteral("7"));
    Apply();
    EXPECT_EQ(rig.objective.lngOffset, 7);
}

TEST_F(CtlUserTest, RaisingTheOffsetSwitchStoresWhatStandsInTheBoxesAsTheApplyButtonDoesButSilently) {
    rig.needleMove.lngMinimumXYOffset = 10;
    Panel();
    Click(Switch(0));
    Type(0, QStringLiteral("9"));
    Type(1, QStringLiteral("222"));
    Click(Switch(0));
    EXPECT_EQ(rig.needleMove.lngXYOffset, 10);
    EXPECT_EQ(Offset(0).text(), QStringLiteral("10"));
    EXPECT_EQ(rig.objective.lngOffset, 222);
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlUserTest, WritingOffsetONOffChecksNoOffset) {
    rig.objective.lngOffset = 5;
    Panel().OffsetONOff(-1);
    EXPECT_EQ(Panel().OffsetONOff(), 1);
    Panel().OffsetONOff(0);
    EXPECT_EQ(Panel().OffsetONOff(), 0);
    EXPECT_EQ(rig.objective.lngOffset, 5);
    Type(1, QStringLiteral("5"));
    Apply();
    EXPECT_EQ(rig.boxes.Texts(), QStringList{ZTold});
}

// The contact switch.

TEST_F(CtlUserTest, TheContactSwitchPressedLetsANeedlePassAndRaisedStopsIt) {
    PlaceNeedlesInTheWay();
    EXPECT_FALSE(MoveThroughTheWay());
    Click(Switch(1));
    EXPECT_EQ(Panel().ContactONOff(), 1);
    EXPECT_TRUE(MoveThroughTheWay());
    Click(Switch(1));
    EXPECT_EQ(Panel().ContactONOff(), 0);
    EXPECT_FALSE(MoveThroughTheWay());
}

TEST_F(CtlUserTest, WritingContactONOffPressesTheSwitchAndTellsTheNeedleMoves) {
    PlaceNeedlesInTheWay();
    Panel().ContactONOff(5);
    EXPECT_TRUE(Switch(1).Value());
    EXPECT_EQ(Panel().ContactONOff(), 1);
    EXPECT_TRUE(MoveThroughTheWay());
    Panel().ContactONOff(0);
    EXPECT_FALSE(Switch(1).Value());
    EXPECT_FALSE(MoveThroughTheWay());
}

TEST_F(CtlUserTest, TheContactSwitchDoesNotTouchTheOffsets) {
    Click(Switch(0));
    Type(1, QStringLiteral("7"));
    Click(Switch(1));
    Click(Switch(1));
    EXPECT_EQ(Panel().OffsetONOff(), 1);
    EXPECT_EQ(Offset(1).text(), QStringLiteral("7"));
    EXPECT_EQ(rig.objective.lngOffset, 100);
}

// What the boxes let through.

TEST_F(CtlUserTest, AKeyOtherThanBackspaceAndTheDigitsIsDropped) {
    for (int index = 0; index < 2; ++index) {
        Type(index, QStringLiteral("1a2-3.4+ 5e6,789"));
        EXPECT_EQ(Offset(index).text(), QStringLiteral("123456789"));
        QTest::keyClick(&Offset(index), Qt::Key_Backspace);
        EXPECT_EQ(Offset(index).text(), QStringLiteral("12345678"));
    }
}

TEST_F(CtlUserTest, ABoxTakesNineDigits) {
    Type(0, QStringLiteral("9999999999"));
    EXPECT_EQ(Offset(0).text(), QStringLiteral("999999999"));
    Apply();
    EXPECT_EQ(rig.needleMove.lngXYOffset, 999999999);
}

TEST_F(CtlUserTest, AnEmptyTextBoxShowsZeroAtOnce) {
    Type(0, QStringLiteral("42"));
    QTest::keyClick(&Offset(0), Qt::Key_Backspace);
    QTest::keyClick(&Offset(0), Qt::Key_Backspace);
    EXPECT_EQ(Offset(0).text(), QStringLiteral("0"));
    QTest::keyClick(&Offset(0), Qt::Key_Backspace);
    EXPECT_EQ(Offset(0).text(), QStringLiteral("0"));
    Apply();
    EXPECT_EQ(rig.needleMove.lngXYOffset, 0);
}

TEST_F(CtlUserTest, ATextThatIsNegativeOrNoNumberIsReplacedByZeroAtOnce) {
    for (const char* const text : {"-1", "-0.6", "abc", "12x", "nan", "inf", "--1", "0x10", "1e300", "9e9"}) {
        Offset(1).setText(QStringLiteral("500"));
        Offset(1).setText(QLatin1String(text));
        EXPECT_EQ(Offset(1).text(), QStringLiteral("0")) << text;
    }
}

TEST_F(CtlUserTest, ATextThatRoundsToANonNegativeNumberStays) {
    for (const char* const text : {"-0.5", "0.5", "12.75", "1e3", "007"}) {
        Offset(1).setText(QLatin1String(text));
        EXPECT_EQ(Offset(1).text(), QLatin1String(text));
    }
}

}  // namespace
}  // namespace travo::test
