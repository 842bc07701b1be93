// The escape panel, worked as the operator works it.
#include "workflows/CtlEscapeRig.h"

namespace travo::test {
namespace {

class CtlEscapeTest : public CtlEscapeRig {};

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Creation and showing.

TEST_F(CtlEscapeTest, AfterAStartEveryPositionIsUnsetAndEveryLabelReadsNA) {
    EXPECT_EQ(panel.objectName(), QStringLiteral("CtlEscape1"));
    for (int needle = 0; needle < NeedleCount; ++needle) {
        EXPECT_EQ(Texts(needle), NoTexts);
        EXPECT_EQ(Home(needle), Unset);
    }
    EXPECT_EQ(ObjectiveLabel().text(), NotSet);
    EXPECT_EQ(rig.escape.ZEscapePosition(), NoPositionValue);
}

TEST_F(CtlEscapeTest, LabelsAreHiddenAndButtonsDisabledUntilTheirNeedleIsShownAsConnected) {
    EXPECT_EQ(Connected(), "----");
    EXPECT_TRUE(Button(ObjectiveButton).Enabled());
    EXPECT_FALSE(ObjectiveLabel().isHidden());
}

TEST_F(CtlEscapeTest, ShowingOpensTheRowsOfTheConnectedNeedles) {
    const std::vector<std::pair<std::int16_t, std::string>> rows{
        {-1, "----"}, {0, "1---"}, {1, "12--"}, {2, "123-"}, {3, "1234"}};
    for (const auto& [highest, connected] : rows) {
        Show(highest);
        EXPECT_EQ(Connected(), connected) << highest;
    }
}

TEST_F(CtlEscapeTest, ANeedleThatIsLostKeepsItsRow) {
    Show(1);
    Show(-1);
    EXPECT_EQ(Connected(), "12--");
}

TEST_F(CtlEscapeTest, WithAFifthManipulatorTheFourRowsThatThereAreOpen) {
    Show(4);
    EXPECT_EQ(Connected(), "1234");
}

TEST_F(CtlEscapeTest, WithAFifthManipulatorAChangeOfZeroReachesFourNeedlesAndTheObjective) {
    Show(4);
    Needle(3, {1, 2, 700});
    Click(3);
    rig.escape.ZEscapePosition(1000);
    Zero(300);
    EXPECT_EQ(Home(3), (PositionXYZ{1, 2, 400}));
    EXPECT_EQ(rig.escape.ZEscapePosition(), 700);
}

TEST_F(CtlEscapeTest, ADisabledButtonRecordsNothing) {
    Show(0);
    Needle(1, {1, 2, 3});
    Click(1);
    EXPECT_EQ(Home(1), Unset);
    EXPECT_THAT(rig.journal, IsEmpty());
}

// Recording.

TEST_F(CtlEscapeTest, EachButtonRecordsItsOwnNeedleAlone) {
    Show(3);
    for (int needle = 0; needle < NeedleCount; ++needle) {
        const std::int32_t base = 1000 * (needle + 1);
        Needle(needle, {base, base + 1, base + 2});
        Click(needle);
        EXPECT_EQ(Home(needle), (PositionXYZ{base, base + 1, base + 2}));
        EXPECT_EQ(Texts(needle), (QStringList{QString::number(base), QString::number(-base - 1),
                                              QString::number(base + 2)}));
        for (int later = needle + 1; later < NeedleCount; ++later) {
            EXPECT_EQ(Home(later), Unset);
            EXPECT_EQ(Texts(later), NoTexts);
        }
    }
    EXPECT_EQ(rig.escape.ZEscapePosition(), NoPositionValue);
    EXPECT_EQ(ObjectiveLabel().text(), NotSet);
}

TEST_F(CtlEscapeTest, TheYLabelShowsTheOppositeSignToTheStoredValueAndOnlyTheYLabel) {
    Show(0);
    for (const std::int32_t value : {-5000, -1, 0, 1, 5000}) {
        Needle(0, {value, value, value});
        Click(0);
        EXPECT_EQ(Home(0), (PositionXYZ{value, value, value}));
        EXPECT_EQ(Texts(0),
                  (QStringList{QString::number(value), QString::number(-value), QString::number(value)}));
    }
}

TEST_F(CtlEscapeTest, ANeedleWhosePositionIsUnsetRecords0NotMinus100000SoItCountsAsSetAtEscapeTime) {
    Show(3);
    for (int axis = 0; axis < AxisCount; ++axis) {
        PositionXYZ tip{10, 20, 30};
        tip.at(static_cast<std::size_t>(axis)) = NoPositionValue;
        Needle(2, tip);
        Click(2);
        tip.at(static_cast<std::size_t>(axis)) = 0;
        EXPECT_EQ(Home(2), tip) << axis;
        EXPECT_EQ(Label(2, axis).text(), QStringLiteral("0")) << axis;
    }
    // No refusal: the home counts as set, and the move is tried.
    Needle(0, Unset);
    Click(0);
    rig.state.intManipulatorNumber = 0;
    std::int32_t z = 0;
    rig.escape.ZEscapePosition(0);
    rig.escape.HomePositionEscape({0, 0, 0}, z, 3);
    EXPECT_FALSE(
        rig.boxes.Texts().contains(QStringLiteral("Escape : Please set manipulator escape position.")));
}

TEST_F(CtlEscapeTest, ANeedleNeverReadRecordsItsStartValue0) {
    Show(0);
    Click(0);
    EXPECT_EQ(Home(0), (PositionXYZ{0, 0, 0}));
    EXPECT_EQ(Texts(0), (QStringList{QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0")}));
}

TEST_F(CtlEscapeTest, TheObjectiveTakesThePresentZAlsoWithNoNeedleConnected) {
    rig.state.CurrentXYZ(2, 18400);
    Click(ObjectiveButton);
    EXPECT_EQ(rig.escape.ZEscapePosition(), 18400);
    EXPECT_EQ(ObjectiveLabel().text(), QStringLiteral("18400"));
    for (int needle = 0; needle < NeedleCount; ++needle) {
        EXPECT_EQ(Home(needle), Unset);
    }
}

TEST_F(CtlEscapeTest, TheObjectiveRecords0WhileTheGaugeHasNeverReported) {
    Click(ObjectiveButton);
    EXPECT_EQ(rig.escape.ZEscapePosition(), 0);
    EXPECT_EQ(ObjectiveLabel().text(), QStringLiteral("0"));
}

TEST_F(CtlEscapeTest, WhatIsRecordedIsWhatWasKnownBeforeTheReplies) {
    rig.state.CurrentXYZ(2, 30);
    Click(ObjectiveButton);
    rig.GaugePort().Receive("A+00.099", platform::ClearToSendEvent);
    EXPECT_EQ(rig.state.CurrentXYZ(2), 99);
    EXPECT_EQ(rig.escape.ZEscapePosition(), 30);
}

TEST_F(CtlEscapeTest, AYWithoutAnOppositePassesToTheCallerWithTheValueStored) {
    Show(0);
    Needle(0, {5, INT32_MIN, 6});
    // A press by the operator would bring the failure to the application.
    EXPECT_THROW(Button(0).click(), OverflowFailure);
    EXPECT_EQ(Home(0), (PositionXYZ{5, INT32_MIN, NoPositionValue}));
}

// The camera and the wires, in order.

TEST_F(CtlEscapeTest, EveryButtonTellsTheCameraAndAsksGaugeThenMirror) {
    rig.OpenCamera();
    Show(3);
    for (int index = 0; index < 5; ++index) {
        rig.journal.clear();
        Click(index);
        EXPECT_THAT(rig.journal, ElementsAre("LiveActionStart", "port 2 > Ar\r\n", "port 1 > rD2R\r",
                                             "port 1 > rD1R\r", "LiveActionEnd"))
            << index;
    }
}

TEST_F(CtlEscapeTest, TheCameraIsToldWithNoTestOfLiveOpen) {
    rig.OpenCamera();
    rig.state.LiveOpen = false;
    Click(ObjectiveButton);
    EXPECT_EQ(rig.journal.front(), "LiveActionStart");
    EXPECT_EQ(rig.journal.back(), "LiveActionEnd");
}

TEST_F(CtlEscapeTest, WithoutACameraAPressRecordsAllTheSame) {
    rig.state.CurrentXYZ(2, 7);
    Click(ObjectiveButton);
    EXPECT_EQ(rig.escape.ZEscapePosition(), 7);
    EXPECT_THAT(rig.journal, ElementsAre("port 2 > Ar\r\n", "port 1 > rD2R\r", "port 1 > rD1R\r"));
}

TEST_F(CtlEscapeTest, ACameraThatDiesAtAPressDisturbsNothing) {
    rig.OpenCamera();
    rig.camera.failing = {"LiveActionStart"};
    rig.state.CurrentXYZ(2, 7);
    Click(ObjectiveButton);
    EXPECT_EQ(rig.escape.ZEscapePosition(), 7);
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
}

TEST_F(CtlEscapeTest, ThePanelHasNoMessagesOfItsOwnAndSettingsStayUntouched) {
    Show(3);
    for (int index = 0; index < 5; ++index) {
        Click(index);
    }
    Zero(5);
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
    EXPECT_TRUE(rig.Log().isEmpty());
    EXPECT_TRUE(rig.Settings().isEmpty());
}

// The zero point.

TEST_F(CtlEscapeTest, AChangeOfZeroLeavesXAndYAlone) {
    Show(1);
    Needle(0, {100, 200, 500});
    Needle(1, {-100, -200, 300});
    Click(0);
    Click(1);
    Zero(300);
    EXPECT_EQ(Home(0), (PositionXYZ{100, 200, 200}));
    EXPECT_EQ(Home(1), (PositionXYZ{-100, -200, 0}));
    EXPECT_EQ(Texts(0), (QStringList{QStringLiteral("100"), QStringLiteral("-200"), QStringLiteral("200")}));
    EXPECT_EQ(Texts(1), (QStringList{QStringLiteral("-100"), QStringLiteral("200"), QStringLiteral("0")}));
}

TEST_F(CtlEscapeTest, AChangeOfZeroFromAnotherPanelRebasesTheHeightsWhileThisOneIsNotOnShow) {
    Show(0);
    Needle(0, {1, 2, 500});
    Click(0);
    rig.state.CurrentXYZ(2, 900);
    Click(ObjectiveButton);
    panel.Hidden();
    panel.hide();
    Zero(-25);
    EXPECT_EQ(Home(0), (PositionXYZ{1, 2, 525}));
    EXPECT_EQ(Label(0, 2).text(), QStringLiteral("525"));
    EXPECT_EQ(rig.escape.ZEscapePosition(), 925);
    EXPECT_EQ(ObjectiveLabel().text(), QStringLiteral("925"));
}

TEST_F(CtlEscapeTest, WithZEscapePositionUnsetAChangeOfZeroDoesNotTouchIt) {
    Show(0);
    Click(0);
    Zero(300);
    EXPECT_EQ(rig.escape.ZEscapePosition(), NoPositionValue);
    EXPECT_EQ(ObjectiveLabel().text(), NotSet);
    EXPECT_EQ(Home(0)[2], -300);
}

TEST_F(CtlEscapeTest, AHeightThatIsUnsetAndOneWhoseLabelIsHiddenStayAsTheyAre) {
    Show(0);
    rig.state.intTotalManipulatorNumber = 1;
    rig.escape.NeedleEscape(1, 2, 700);
    Zero(300);
    EXPECT_EQ(Home(0), Unset);
    EXPECT_EQ(Texts(0), NoTexts);
    EXPECT_EQ(rig.escape.NeedleEscape(1, 2), 700) << "its row has never been opened";
}

TEST_F(CtlEscapeTest, ANeedleBeyondTheHighestConnectedIndexStaysAsItIs) {
    Show(1);
    Needle(1, {1, 2, 700});
    Click(1);
    rig.state.intTotalManipulatorNumber = 0;
    Zero(300);
    EXPECT_EQ(Home(1), (PositionXYZ{1, 2, 700}));
    rig.state.intTotalManipulatorNumber = -1;
    rig.escape.ZEscapePosition(1000);
    Zero(300);
    EXPECT_EQ(rig.escape.ZEscapePosition(), 700) << "the objective follows with no needle connected";
}

TEST_F(CtlEscapeTest, AZeroThatTakesAHeightBeyond32BitsIsAFailureWithTheHeightsBeforeItDone) {
    Show(1);
    rig.escape.NeedleEscape(0, 2, 10);
    rig.escape.NeedleEscape(1, 2, INT32_MIN);
    rig.state.StoreZeroXYZ(2, 1);
    EXPECT_THROW(panel.ChangeZeroPosition(), OverflowFailure);
    EXPECT_EQ(rig.escape.NeedleEscape(0, 2), 9);
    EXPECT_EQ(rig.escape.NeedleEscape(1, 2), INT32_MIN);
}

// What a screen reader says of a value is the value.
TEST_F(CtlEscapeTest, AHeightThatIsNotSetIsReadAsSuch) {
    Show(3);
    EXPECT_EQ(Label(0, 0).accessibleName(), NotSet);
}

}  // namespace
}  // namespace travo::test
