// The cell position panel, worked as the operator works it.
#include <gmock/gmock.h>

#include "experiment/view/CtlCellPositionRig.h"

namespace travo::test {
namespace {

class CtlCellPositionTest : public CtlCellPositionRig {};

using ::testing::IsEmpty;

// Creation and showing.

TEST_F(CtlCellPositionTest, All24LabelsReadNAAtCreationAndPageOneIsOnShow) {
    EXPECT_EQ(panel.objectName(), QStringLiteral("CtlCellPosition1"));
    for (int index = 0; index < 24; ++index) {
        EXPECT_EQ(Label(index).text(), NotSet) << index;
    }
    EXPECT_FALSE(PageSwitch().Value());
    ExpectPage(false);
}

TEST_F(CtlCellPositionTest, TheZFieldExistsAndStaysHidden) {
    auto& field = Find<NumberBox>(QStringLiteral("txtCellZPos"));
    EXPECT_TRUE(field.isHidden());
    Click(PageSwitch());
    panel.Shown();
    SetRow(0);
    Click(Button(ResetButton));
    EXPECT_TRUE(field.isHidden());
}

TEST_F(CtlCellPositionTest, WithTheMirrorPortClosedNothingCanBeStoredAndResetStaysUsable) {
    for (const bool open : {false, true, false}) {
        if (open) {
            rig.communication.MirrorPortOpen(1);
        } else {
            rig.communication.MirrorPortClose();
        }
        panel.Shown();
        for (int index = 0; index < 24; ++index) {
            EXPECT_EQ(Label(index).isEnabled(), open) << index;
        }
        EXPECT_EQ(PageSwitch().Enabled(), open);
        for (int row = 0; row < 4; ++row) {
            EXPECT_EQ(Button(row).Enabled(), open) << row;
        }
        EXPECT_TRUE(Button(ResetButton).Enabled());
    }
    View(1, 2, 3);
    SetRow(0);
    EXPECT_EQ(Cell(0), Unset);
    Click(Button(ResetButton));
    EXPECT_EQ(rig.state.ZeroXYZ(2), 3);
}

TEST_F(CtlCellPositionTest, ResetIsNotTouchedByShowing) {
    Button(ResetButton).Enabled(false);
    panel.Shown();
    EXPECT_FALSE(Button(ResetButton).Enabled());
}

// Storing.

TEST_F(CtlCellPositionTest, ALabelShowsTheValueInCommonUnitsWhileTheRowKeepsTheRawValue) {
    View(-100, 1000, 1250);
    SetRow(0);
    // -5 times -100, and a half, to even; -12500 times the tangent of 0.4014 radian is -5305.3.
    EXPECT_EQ(Texts(0, 3),
              (QStringList{QStringLiteral("500"), QStringLiteral("5305"), QStringLiteral("1250")}));
    EXPECT_EQ(Cell(0), (PositionXYZ{-100, 1000, 1250}));
}

TEST_F(CtlCellPositionTest, TheYLabelShowsTheOppositeSignOfTheCommonFrame) {
    for (const std::int32_t y : {-1500, -1, 0, 1, 7, 1500}) {
        View(0, y, 0);
        SetRow(1);
        EXPECT_EQ(Label(4).text(), QString::number(-MirrorYToCommon(y))) << y;
    }
    View(0, 1500, 0);
    SetRow(1);
    EXPECT_FALSE(Label(4).text().startsWith(QLatin1Char('-')));
}

TEST_F(CtlCellPositionTest, RawX1ShowsMinus4AndRawX2ShowsMinus10ByTheRoundingOfTheRule) {
    View(1, 0, 0);
    SetRow(0);
    EXPECT_EQ(Label(0).text(), QStringLiteral("-4"));
    View(2, 0, 0);
    SetRow(0);
    EXPECT_EQ(Label(0).text(), QStringLiteral("-10"));
}

TEST_F(CtlCellPositionTest, PressingSetTwiceAtOneViewPositionGivesIdenticalResults) {
    View(17, -23, 640);
    SetRow(2);
    const QStringList texts = Texts(0, 24);
    const PositionXYZ cell = Cell(2);
    SetRow(2);
    EXPECT_EQ(Texts(0, 24), texts);
    EXPECT_EQ(Cell(2), cell);
}

TEST_F(CtlCellPositionTest, EachRowOfEachPageFillsItsOwnCellAndLabelsAlone) {
    View(10, 20, 30);
    for (int cell = 0; cell < 8; ++cell) {
        if (cell == 4) {
            Click(PageSwitch());
        }
        EXPECT_EQ(Texts(cell * 3, 3), NoTexts);
        EXPECT_EQ(Cell(cell), Unset);
        SetRow(cell % 4);
        EXPECT_EQ(Label(cell * 3).text(), QString::number(MirrorXToCommon(10)));
        EXPECT_EQ(Label(cell * 3 + 1).text(), QString::number(-MirrorYToCommon(20)));
        EXPECT_EQ(Label(cell * 3 + 2).text(), QStringLiteral("30"));
        EXPECT_EQ(Cell(cell), (PositionXYZ{10, 20, 30}));
        for (int later = cell + 1; later < 8; ++later) {
            EXPECT_EQ(Cell(later), Unset) << later;
        }
    }
}

TEST_F(CtlCellPositionTest, APressOfSetOnTheSecondPageWithIndex0FillsCellEAndLabels12To14) {
    View(2, 0, 77);
    Click(PageSwitch());
    SetRow(0);
    EXPECT_EQ(Texts(12, 3), (QStringList{QStringLiteral("-10"), QString::number(-MirrorYToCommon(0)),
                                         QStringLiteral("77")}));
    EXPECT_EQ(Cell(4), (PositionXYZ{2, 0, 77}));
    EXPECT_EQ(Texts(0, 12), QStringList(12, NotSet));
    EXPECT_EQ(Cell(0), Unset);
}

TEST_F(CtlCellPositionTest, ARowCanBeOverwritten) {
    View(10, 20, 30);
    SetRow(0);
    View(11, 20, 31);
    SetRow(0);
    EXPECT_EQ(Cell(0), (PositionXYZ{11, 20, 31}));
    EXPECT_EQ(Label(2).text(), QStringLiteral("31"));
}

TEST_F(CtlCellPositionTest, AnAxisThatIsNotKnownKeepsTheOldValueOfTheRowAndTheOldTextOfItsLabel) {
    View(10, 20, 30);
    SetRow(0);
    const QStringList before = Texts(0, 3);
    for (int axis = 0; axis < 3; ++axis) {
        PositionXYZ view{50, 60, 70};
        view.at(static_cast<std::size_t>(axis)) = NoPositionValue;
        View(10, 20, 30);
        SetRow(0);
        View(view[0], view[1], view[2]);
        SetRow(0);
        for (int other = 0; other < 3; ++other) {
            const auto index = static_cast<std::size_t>(other);
            const PositionXYZ old{10, 20, 30};
            EXPECT_EQ(Cell(0).at(index), other == axis ? old.at(index) : view.at(index)) << axis << other;
            EXPECT_EQ(Label(other).text() == before.at(other), other == axis) << axis << other;
        }
    }
}

TEST_F(CtlCellPositionTest, ASetPressWhileTheMirrorHasNeverReportedLeavesTheRowUnsetInXAndY) {
    rig.state.CurrentXYZ(2, 400);
    SetRow(3);
    EXPECT_EQ(Cell(3), (PositionXYZ{NoPositionValue, NoPositionValue, 400}));
    EXPECT_EQ(Texts(9, 3), (QStringList{NotSet, NotSet, QStringLiteral("400")}));
}

TEST_F(CtlCellPositionTest, ASetPressWhileTheGaugeIsNotConnectedKeepsTheRowUnsetInZ) {
    rig.state.CurrentXY(1, 0);
    SetRow(3);
    EXPECT_EQ(Cell(3), (PositionXYZ{1, 0, NoPositionValue}));
    EXPECT_EQ(Label(11).text(), NotSet);
}

TEST_F(CtlCellPositionTest, WhatIsStoredIsWhatWasKnownBeforeTheRepliesToTheRequests) {
    View(10, 20, 30);
    SetRow(0);
    rig.GaugePort().Receive("A+00.099", platform::ClearToSendEvent);
    EXPECT_EQ(rig.state.CurrentXYZ(2), 99);
    EXPECT_EQ(Cell(0), (PositionXYZ{10, 20, 30}));
}

TEST_F(CtlCellPositionTest, NoMessageIsEverShown) {
    SetRow(0);
    View(1, 2, 3);
    SetRow(1);
    Click(Button(ResetButton));
    Click(PageSwitch());
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
    EXPECT_TRUE(rig.Log().isEmpty());
}

TEST_F(CtlCellPositionTest, AValueBeyond32BitsPassesToTheCallerWithTheAxesBeforeItStored) {
    View(5, 0, 0);
    SetRow(0);
    // A press by the operator would bring the failure to the application.
    View(INT32_MAX, 0, 0);
    EXPECT_THROW(Button(0).click(), OverflowFailure);
    EXPECT_EQ(Cell(0), (PositionXYZ{5, 0, 0}));
}

// Pages.

TEST_F(CtlCellPositionTest, ThePageSwitchShowsItsPageAndTheValuesGoOnBeingKeptInBoth) {
    View(2, 0, 1);
    SetRow(0);
    Click(PageSwitch());
    ExpectPage(true);
    View(4, 0, 2);
    SetRow(0);
    Click(PageSwitch());
    ExpectPage(false);
    EXPECT_EQ(Label(0).text(), QStringLiteral("-10"));
    EXPECT_EQ(Label(12).text(), QStringLiteral("-20"));
}

// The zero point.

TEST_F(CtlCellPositionTest, ChangeZeroPositionTakesTheZeroFromEachStoredZAndLeavesXAndY) {
    View(10, 20, 500);
    SetRow(0);
    const QStringList before = Texts(0, 2);
    View(10, 20, 300);
    Click(Button(ResetButton));
    EXPECT_EQ(Cell(0), (PositionXYZ{10, 20, 200}));
    EXPECT_EQ(Label(2).text(), QStringLiteral("200"));
    EXPECT_EQ(Texts(0, 2), before);
}

TEST_F(CtlCellPositionTest, ChangeZeroPositionWithAZOfMinus100000LeavesThatRowsZAndItsNA) {
    rig.state.CurrentXY(10, 20);
    SetRow(0);
    rig.state.CurrentXYZ(2, 300);
    Click(Button(ResetButton));
    for (int cell = 0; cell < 8; ++cell) {
        EXPECT_EQ(rig.state.CellPosition(cell, 2), NoPositionValue);
        EXPECT_EQ(Label(cell * 3 + 2).text(), NotSet);
    }
    EXPECT_EQ(rig.state.CellPosition(0, 0), 10);
}

TEST_F(CtlCellPositionTest, AfterChangeZeroPositionTheLabelsOfPageTwoAreUpdatedAlsoWhilePageOneIsShowing) {
    View(10, 20, 500);
    Click(PageSwitch());
    SetRow(3);
    Click(PageSwitch());
    SetRow(0);
    rig.state.StoreZeroXYZ(2, -25);
    panel.ChangeZeroPosition();
    ExpectPage(false);
    EXPECT_EQ(Label(23).text(), QStringLiteral("525"));
    EXPECT_EQ(Label(2).text(), QStringLiteral("525"));
    EXPECT_EQ(rig.state.CellPosition(7, 2), 525);
}

TEST_F(CtlCellPositionTest, ARowWithoutXButWithZFollowsTheZeroAsWell) {
    rig.state.CurrentXYZ(2, 400);
    SetRow(1);
    rig.state.StoreZeroXYZ(2, 400);
    panel.ChangeZeroPosition();
    EXPECT_EQ(Cell(1), (PositionXYZ{NoPositionValue, NoPositionValue, 0}));
    EXPECT_EQ(Label(5).text(), QStringLiteral("0"));
}

TEST_F(CtlCellPositionTest, AZeroThatTakesZBeyond32BitsIsAFailure) {
    View(0, 0, INT32_MIN);
    SetRow(0);
    rig.state.StoreZeroXYZ(2, 1);
    EXPECT_THROW(panel.ChangeZeroPosition(), OverflowFailure);
    EXPECT_EQ(rig.state.CellPosition(0, 2), INT32_MIN);
}

}  // namespace
}  // namespace travo::test
