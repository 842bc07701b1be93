// The connection panel: ports that close by themselves, and what an answer that never comes leaves behind.
#include "devices/view/CtlConnectionRig.h"

namespace travo::test {
namespace {

using platform::PointerShape;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QString Lost = QStringLiteral("Connection lost");
const QString Connected = QStringLiteral("Connected");

class EachLossTest : public CtlConnectionRig, public ::testing::WithParamInterface<int> {
protected:
    // All three instruments have been proved.
    void ConnectAll() {
        for (int row = 0; row < 3; ++row) {
            Type(row, QString::number(row + 1));
            StartWatch(row);
            Answer(row);
            Tick(row);
            ASSERT_EQ(State(row), Connected);
        }
        rig.journal.clear();
        rig.pointer.screen.clear();
    }
};
INSTANTIATE_TEST_SUITE_P(Rows, EachLossTest, ::testing::Values(0, 1, 2), RowName);

TEST_P(EachLossTest, WhatTheInstrumentToldIsForgottenAndNothingOfTheOthers) {
    const int row = GetParam();
    ConnectAll();
    Port(row).Vanish();
    EXPECT_EQ(rig.state.CurrentXYZ(0), row == MirrorRow ? NoPositionValue : 5);
    EXPECT_EQ(rig.state.CurrentXYZ(1), row == MirrorRow ? NoPositionValue : 7);
    EXPECT_EQ(rig.state.CurrentXYZ(2), row == MagnescaleRow ? NoPositionValue : 1234);
    EXPECT_EQ(rig.state.bMotorONOFF, row != MotorRow);
    EXPECT_THAT(Shown(), IsEmpty());
    EXPECT_THAT(rig.pointer.screen, IsEmpty());
}

TEST_P(EachLossTest, TheRowSaysSoAtOnceAndItsTestGoesOff) {
    ConnectAll();
    Port(GetParam()).Vanish();
    for (int row = 0; row < 3; ++row) {
        const bool isLost = row == GetParam();
        EXPECT_EQ(State(row), isLost ? Lost : Connected);
        EXPECT_EQ(TestEnabled(row), !isLost);
        EXPECT_TRUE(Button(row).Enabled());
    }
}

TEST_P(EachLossTest, ThePortStaysStoredForTheNextStart) {
    const int row = GetParam();
    ConnectAll();
    Port(row).Vanish();
    EXPECT_EQ(Stored(row), QString::number(row + 1));
}

TEST_P(EachLossTest, AnotherPanelAndBackLeavesTheRowAndItsTestAsTheyAre) {
    const int row = GetParam();
    ConnectAll();
    Port(row).Vanish();
    panel.Hidden();
    panel.Shown();
    EXPECT_EQ(State(row), Lost);
    EXPECT_FALSE(TestEnabled(row));
    EXPECT_TRUE(Button(row).Enabled());
}

TEST_P(EachLossTest, SetBringsTheInstrumentBack) {
    const int row = GetParam();
    ConnectAll();
    Port(row).Vanish();
    StartWatch(row);
    EXPECT_EQ(State(row), QStringLiteral("Waiting for an answer"));
    Answer(row);
    Tick(row);
    EXPECT_EQ(State(row), Connected);
    EXPECT_TRUE(TestEnabled(row));
    EXPECT_THAT(Shown(), IsEmpty());
}

class CtlConnectionLossTest : public EachLossTest {};

TEST_F(CtlConnectionLossTest, OnlyALostMirrorTakesTheViewFromTheBirdsEyeView) {
    ConnectAll();
    rig.GaugePort().Vanish();
    rig.MotorPort().Vanish();
    EXPECT_THAT(rig.journal, testing::Not(testing::Contains("chkMirror false")));
    rig.MirrorPort().Vanish();
    EXPECT_THAT(rig.journal, testing::Contains("chkMirror false"));
}

TEST_F(CtlConnectionLossTest, AMotorThatVanishesUnderACommandUnlocksItsSetAndNotItsTest) {
    ConnectAll();
    Press(TestOfRow(MotorRow));
    ASSERT_FALSE(Button(MotorRow).Enabled());
    rig.MotorPort().TakeOutput();
    rig.MotorPort().Vanish();
    EXPECT_TRUE(Button(MotorRow).Enabled());
    EXPECT_FALSE(TestEnabled(MotorRow));
    Press(MotorRow);
    EXPECT_TRUE(rig.MotorPort().open);
    EXPECT_EQ(rig.MotorPort().TakeOutput(), "WHO\r");
}

TEST_F(CtlConnectionLossTest, SetOnAWrongPortAndAnotherPanelWithinTheSecondLeaveAWayBack) {
    StartWatch(MotorRow);
    ASSERT_FALSE(Button(MotorRow).Enabled());
    Tick(MotorRow, 3);
    panel.Hidden();
    panel.Shown();
    EXPECT_TRUE(Button(MotorRow).Enabled());
    EXPECT_TRUE(TestEnabled(MotorRow));
}

TEST_F(CtlConnectionLossTest, ThePanelOpenedDuringTheFirstWatchOfAMotorThatIsOffLeavesAWayBack) {
    rig.communication.MotorPortOpen(3);
    panel.TimerONOFF(MotorRow, true);
    Tick(MotorRow, 2);
    ASSERT_FALSE(Button(MotorRow).Enabled());
    panel.Shown();
    EXPECT_TRUE(Button(MotorRow).Enabled());
}

TEST_F(CtlConnectionLossTest, ShowingThePanelWithTheMotorsPortClosedUnlocksItsSetAlone) {
    panel.ControlONOFF(false);
    panel.Shown();
    EXPECT_TRUE(Button(MotorRow).Enabled());
    EXPECT_FALSE(TestEnabled(MotorRow));
}

TEST_F(CtlConnectionLossTest, LeavingThePanelDuringTheGaugesWatchTakesTheHourglassDown) {
    StartWatch(MagnescaleRow);
    ASSERT_THAT(rig.pointer.screen, ElementsAre(PointerShape::Hourglass));
    panel.Hidden();
    EXPECT_THAT(rig.pointer.screen, ElementsAre(PointerShape::Hourglass, PointerShape::Default));
}

TEST_F(CtlConnectionLossTest, LeavingThePanelDuringAnotherWatchLeavesThePointerAlone) {
    StartWatch(MirrorRow);
    StartWatch(MotorRow);
    panel.Hidden();
    EXPECT_THAT(rig.pointer.screen, IsEmpty());
}

TEST_F(CtlConnectionLossTest, AStoredPortThatDoesNotOpenAtTheStartIsSaidAtOnce) {
    rig.serialPorts.missing = {4};
    rig.communication.MirrorPortOpen(4);
    panel.txtNoChange(MirrorRow, QStringLiteral("4"));
    panel.TimerONOFF(MirrorRow, true);
    EXPECT_EQ(State(MirrorRow), QStringLiteral("Port cannot be opened"));
}

}  // namespace
}  // namespace travo::test
