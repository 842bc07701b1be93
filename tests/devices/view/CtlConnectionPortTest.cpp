// The connection panel: the buttons that open a port, and the way back when one of them fails.
#include <utility>

#include "devices/view/CtlConnectionRig.h"

namespace travo::test {
namespace {

using platform::PointerShape;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EachPortTest : public CtlConnectionRig, public ::testing::WithParamInterface<int> {
protected:
    EachPortTest() {
        rig.state.CurrentXYZ(0, 1);
        rig.state.CurrentXYZ(1, 2);
        rig.state.CurrentXYZ(2, 3);
        rig.state.bMotorONOFF = true;
    }

    // The view's axes and the motor's flag as a press leaves them: forgotten for the row alone.
    void ExpectForgotten(int row) {
        EXPECT_EQ(rig.state.CurrentXYZ(0), row == MirrorRow ? NoPositionValue : 1);
        EXPECT_EQ(rig.state.CurrentXYZ(1), row == MirrorRow ? NoPositionValue : 2);
        EXPECT_EQ(rig.state.CurrentXYZ(2), row == MagnescaleRow ? NoPositionValue : 3);
        EXPECT_EQ(rig.state.bMotorONOFF, row != MotorRow);
    }
};
INSTANTIATE_TEST_SUITE_P(Rows, EachPortTest, ::testing::Values(0, 1, 2), RowName);

TEST_P(EachPortTest, SetForgetsWhatTheInstrumentSaidOpensThePortOfTheBoxAndStartsItsWatch) {
    const int row = GetParam();
    Type(row, QStringLiteral("6"));
    Press(row);
    ExpectForgotten(row);
    EXPECT_TRUE(Port(row).open);
    EXPECT_EQ(Port(row).commPort, 6);
    for (int watch = 0; watch < 3; ++watch) {
        EXPECT_EQ(Watch(watch).enabled, watch == row);
    }
    EXPECT_EQ(State(row), QStringLiteral("Waiting for an answer"));
    EXPECT_EQ(Stored(row), QStringLiteral("none"));
    EXPECT_THAT(Shown(), IsEmpty());
}

TEST_P(EachPortTest, OnlyTheGaugePutsUpTheHourglass) {
    Press(GetParam());
    if (GetParam() == MagnescaleRow) {
        EXPECT_THAT(rig.pointer.screen, ElementsAre(PointerShape::Hourglass));
    } else {
        EXPECT_THAT(rig.pointer.screen, IsEmpty());
    }
}

TEST_P(EachPortTest, ANewPressInTheMiddleOfAWatchOpensThePortAnewAndTheCountGoesOn) {
    const int row = GetParam();
    StartWatch(row);
    Tick(row, 4);
    Type(row, QStringLiteral("9"));
    // The motor's buttons are locked until it answers.
    panel.ControlONOFF(true);
    rig.journal.clear();
    Press(row);
    EXPECT_EQ(rig.journal.at(0), "port 1 close");
    EXPECT_EQ(rig.journal.at(1), "port 9 open");
    EXPECT_TRUE(Watch(row).enabled);
    Tick(row, 2);
    EXPECT_THAT(Shown(), IsEmpty());
    Tick(row);
    EXPECT_EQ(Shown().size(), 1);
}

TEST_P(EachPortTest, APortThatDoesNotOpenIsRefusedByTheWatchAlone) {
    const int row = GetParam();
    rig.serialPorts.missing = {1};
    Press(row);
    EXPECT_FALSE(Port(row).open);
    EXPECT_THAT(Shown(), IsEmpty());
    EXPECT_EQ(State(row), QStringLiteral("Port cannot be opened"));
    Tick(row, 7);
    EXPECT_EQ(Shown().size(), 1);
    EXPECT_EQ(State(row), QStringLiteral("Port cannot be opened"));
    EXPECT_EQ(Stored(row), QStringLiteral("-1"));
}

TEST_P(EachPortTest, ANegativeNumberClosesThePortWithoutAWatch) {
    const int row = GetParam();
    OpenPorts();
    Force(row, QStringLiteral("-1"));
    Press(row);
    ExpectForgotten(row);
    EXPECT_FALSE(Port(row).open);
    EXPECT_FALSE(Watch(row).enabled);
    EXPECT_THAT(rig.journal, ElementsAre("port " + std::to_string(row + 1) + " close"));
    EXPECT_THAT(rig.pointer.screen, IsEmpty());
    EXPECT_EQ(Stored(row), QStringLiteral("none"));
    EXPECT_EQ(State(row), QStringLiteral("Not connected"));
}

TEST_P(EachPortTest, ANegativeNumberSetsTheCountTo0) {
    const int row = GetParam();
    StartWatch(row);
    Tick(row, 5);
    Force(row, QStringLiteral("-1"));
    panel.ControlONOFF(true);
    Press(row);
    Tick(row, 6);
    EXPECT_THAT(Shown(), IsEmpty());
    Tick(row);
    EXPECT_EQ(Shown().size(), 1);
}

// What a press of SET leaves behind when it fails.
struct FailureRow {
    int row;
    bool countIsCleared;
    bool pointerIsSetBack;
    bool buttonsAreUnlocked;
};

class EachFailureTest : public EachPortTest {};

constexpr FailureRow Failures[] = {
    {MirrorRow, false, false, false}, {MagnescaleRow, true, true, false}, {MotorRow, true, false, true}};
INSTANTIATE_TEST_SUITE_P(Rows, EachFailureTest, ::testing::Values(0, 1, 2), RowName);

TEST_P(EachFailureTest, ANumberBeyond16BitsStopsTheWatchClosesThePortAndIsReported) {
    const FailureRow& expected = Failures[GetParam()];
    const int row = expected.row;
    OpenPorts();
    panel.TimerONOFF(static_cast<std::int16_t>(row), true);
    panel.ControlONOFF(true);
    Button(TestOfRow(MotorRow)).Enabled(false);
    Type(row, QStringLiteral("32768"));
    Press(row);
    ExpectForgotten(row);
    EXPECT_FALSE(Watch(row).enabled);
    EXPECT_FALSE(Port(row).open);
    const QString message = NameOfRow(row) + QStringLiteral(" : Connection failed");
    EXPECT_THAT(Shown(), ElementsAre(message));
    EXPECT_THAT(Logged(), ElementsAre(message));
    EXPECT_EQ(rig.pointer.screen.size(), expected.pointerIsSetBack ? 1U : 0U);
    EXPECT_EQ(TestEnabled(MotorRow), expected.buttonsAreUnlocked);
    EXPECT_EQ(Stored(row), QStringLiteral("none"));
    EXPECT_EQ(State(row), QStringLiteral("Port cannot be opened"));
}

TEST_P(EachFailureTest, AllIsTakenBackBeforeTheBoxComesUp) {
    const int row = GetParam();
    OpenPorts();
    panel.TimerONOFF(static_cast<std::int16_t>(row), true);
    bool wasOpen = true;
    bool wasWatching = true;
    rig.boxes.whileShown = [&] {
        wasOpen = Port(row).open;
        wasWatching = Watch(row).enabled;
    };
    Type(row, QStringLiteral("99999"));
    Press(row);
    EXPECT_FALSE(wasOpen);
    EXPECT_FALSE(wasWatching);
}

TEST_P(EachFailureTest, ANumberBeyond32BitsIsReportedLikewise) {
    const int row = GetParam();
    panel.txtNoChange(static_cast<std::int16_t>(row), QStringLiteral("99999999999"));
    Press(row);
    EXPECT_THAT(Shown(), ElementsAre(NameOfRow(row) + QStringLiteral(" : Connection failed")));
    EXPECT_FALSE(Watch(row).enabled);
}

TEST_P(EachFailureTest, ABoxWithoutANumberIsReportedLikewise) {
    const int row = GetParam();
    Force(row, QString());
    Press(row);
    EXPECT_THAT(Shown(), ElementsAre(NameOfRow(row) + QStringLiteral(" : Connection failed")));
}

TEST_P(EachFailureTest, TheCountIsClearedForGaugeAndMotorOnly) {
    const FailureRow& expected = Failures[GetParam()];
    const int row = expected.row;
    StartWatch(row);
    Tick(row, 3);
    panel.ControlONOFF(true);
    Type(row, QStringLiteral("99999"));
    Press(row);
    ASSERT_EQ(Shown().size(), 1);
    panel.TimerONOFF(static_cast<std::int16_t>(row), true);
    Tick(row, expected.countIsCleared ? 6 : 3);
    EXPECT_EQ(Shown().size(), 1);
    Tick(row);
    EXPECT_EQ(Shown().size(), 2);
}

TEST_P(EachFailureTest, AFailureOnTheWayBackIsReportedOnItsOwn) {
    const int row = GetParam();
    OpenPorts();
    Port(row).failClose = true;
    Type(row, QStringLiteral("99999"));
    Press(row);
    // The link reports that its port does not close, the panel that the connection failed.
    ASSERT_EQ(Shown().size(), 2);
    EXPECT_EQ(Shown().back(), NameOfRow(row) + QStringLiteral(" : Connection failed"));
}

class EachFailureOfTheViewTest : public EachPortTest {};
INSTANTIATE_TEST_SUITE_P(Rows, EachFailureOfTheViewTest, ::testing::Values(0, 1), RowName);

TEST_P(EachFailureOfTheViewTest, WhatArrivesWhileThePortRefusesToCloseIsForgottenToo) {
    const int row = GetParam();
    OpenPorts();
    Port(row).failClose = true;
    rig.boxes.whileShown = [this, row, told = false]() mutable {
        if (!std::exchange(told, true)) {
            Answer(row);
        }
    };
    Type(row, QStringLiteral("99999"));
    Press(row);
    ExpectForgotten(row);
}

}  // namespace
}  // namespace travo::test
