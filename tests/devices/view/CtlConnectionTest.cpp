// The connection panel: its boxes, its test buttons, and what it does when it comes and goes.
#include "devices/view/CtlConnection.h"

#include "core/ground/Arithmetic.h"
#include "devices/view/CtlConnectionRig.h"
#include "devices/view/FormPortList.h"

namespace travo::test {
namespace {

using platform::PointerShape;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CtlConnectionTest : public CtlConnectionRig {};

const QString CameraLoad = QStringLiteral("Error : Camera Load");

TEST_F(CtlConnectionTest, TheButtonsBearTheirSkins) {
    const char* const skins[] = {"SET", "SET", "SET", "OPEN", "TEST", "TEST", "TEST", "TEST", "SET"};
    for (int index = 0; index < 9; ++index) {
        EXPECT_EQ(Button(index).path().toStdString(), skins[index]) << index;
    }
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(Down(row).path(), QStringLiteral("Down"));
        EXPECT_EQ(Up(row).path(), QStringLiteral("Up"));
        EXPECT_EQ(Box(row).text(), QStringLiteral("1"));
    }
}

TEST_F(CtlConnectionTest, AtFirstTheTestsOfMirrorMotorAndGaugeAreDisabledAndNothingElse) {
    for (int index = 0; index < 9; ++index) {
        EXPECT_EQ(Button(index).Enabled(), index != 4 && index != 5 && index != 7) << index;
    }
}

TEST_F(CtlConnectionTest, TheWatchesHaveAPeriodOf150MsAndAreOffAtFirst) {
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(Watch(row).interval, 150);
        EXPECT_FALSE(Watch(row).enabled);
    }
}

TEST_F(CtlConnectionTest, ShowingItWithClosedPortsForgetsViewAndMotor) {
    rig.state.CurrentXY(3, 4);
    rig.state.CurrentXYZ(2, 5);
    rig.state.bMotorONOFF = true;
    panel.Shown();
    EXPECT_THAT(rig.state.CurrentXYZ(), ElementsAre(NoPositionValue, NoPositionValue, NoPositionValue));
    EXPECT_FALSE(rig.state.bMotorONOFF);
    for (int row = 0; row < 3; ++row) {
        EXPECT_FALSE(TestEnabled(row));
    }
}

TEST_F(CtlConnectionTest, ShowingItWithOpenPortsUnlocksTheTestsAndForgetsNothing) {
    OpenPorts();
    rig.state.CurrentXY(3, 4);
    rig.state.CurrentXYZ(2, 5);
    rig.state.bMotorONOFF = true;
    panel.Shown();
    EXPECT_THAT(rig.state.CurrentXYZ(), ElementsAre(3, 4, 5));
    EXPECT_TRUE(rig.state.bMotorONOFF);
    for (int row = 0; row < 3; ++row) {
        EXPECT_TRUE(TestEnabled(row));
    }
}

class EachWatchTest : public CtlConnectionRig, public ::testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Rows, EachWatchTest, ::testing::Values(0, 1, 2), RowName);

TEST_P(EachWatchTest, HidingThePanelInTheMiddleOfAWatchStopsItAndStoresNothing) {
    const int row = GetParam();
    StartWatch(row);
    Tick(row, 3);
    panel.Hidden();
    Answer(row);
    Tick(row, 7);
    EXPECT_FALSE(Watch(row).enabled);
    EXPECT_EQ(Stored(row), QStringLiteral("none"));
    EXPECT_TRUE(Port(row).open);
    EXPECT_EQ(State(row), QStringLiteral("Not connected"));
    EXPECT_THAT(Shown(), IsEmpty());
}

TEST_P(EachWatchTest, ShowingThePanelStopsItAndCountsAnew) {
    const int row = GetParam();
    StartWatch(row);
    Tick(row, 5);
    panel.Shown();
    EXPECT_FALSE(Watch(row).enabled);
    panel.TimerONOFF(static_cast<std::int16_t>(row), true);
    Tick(row, 6);
    EXPECT_THAT(Shown(), IsEmpty());
    Tick(row);
    EXPECT_EQ(Shown().size(), 1);
}

TEST_F(CtlConnectionTest, ControlONOFFSetsButtons2And5AndNothingElse) {
    panel.ControlONOFF(true);
    for (int index = 0; index < 9; ++index) {
        EXPECT_EQ(Button(index).Enabled(), index != 4 && index != 7) << index;
    }
    panel.ControlONOFF(false);
    for (int index = 0; index < 9; ++index) {
        EXPECT_EQ(Button(index).Enabled(), index != 4 && index != 7 && index != 2 && index != 5) << index;
    }
}

TEST_F(CtlConnectionTest, AnIndexOutsideItsTableIsABoundsFailure) {
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{3}}) {
        EXPECT_THROW(panel.TimerONOFF(index, true), BoundsFailure);
    }
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{4}}) {
        EXPECT_THROW(panel.txtNoChange(index, QStringLiteral("1")), BoundsFailure);
    }
}

TEST_F(CtlConnectionTest, OpenShowsTheListOfSerialPorts) {
    list.entries = {{1, QStringLiteral("/dev/ttyS0"), QString(), QString()}};
    Press(3);
    const auto* const window = panel.findChild<FormPortList*>();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(window->isModal());
    Press(3);
    EXPECT_EQ(panel.findChildren<FormPortList*>().size(), 1);
    EXPECT_THAT(Shown(), IsEmpty());
    EXPECT_THAT(rig.journal, IsEmpty());
}

TEST_F(CtlConnectionTest, OpenTellsWhereTheSystemGivesNoList) {
    list.absent = true;
    Press(3);
    EXPECT_THAT(Shown(), ElementsAre(QStringLiteral("Device Manager is Not found")));
    EXPECT_THAT(Logged(), IsEmpty());
    EXPECT_FALSE(panel.findChild<FormPortList*>()->isVisible());
}

TEST_F(CtlConnectionTest, Button4CyclesTheMagnification1231) {
    OpenPorts();
    panel.Shown();
    for (const char* const sent : {"cMAG1\r", "cMAG2\r", "cMAG3\r", "cMAG1\r"}) {
        Press(4);
        const std::string command = rig.MirrorPort().TakeOutput();
        EXPECT_EQ(command, sent);
        rig.state.CurrentMagnification(static_cast<std::int16_t>(command.at(4) - '0'));
    }
}

TEST_F(CtlConnectionTest, Buttons4And5SendNothingWhileTheirPortsAreClosed) {
    OpenPorts();
    panel.Shown();
    rig.MirrorPort().open = false;
    rig.MotorPort().open = false;
    Press(4);
    Press(5);
    EXPECT_THAT(rig.journal, IsEmpty());
}

TEST_F(CtlConnectionTest, Button5MovesTheFocusBy1000AndLocksTheMotorsButtons) {
    OpenPorts();
    panel.Shown();
    Press(5);
    EXPECT_EQ(rig.MotorPort().TakeOutput(), "RELMOVEZ1000\r");
    EXPECT_FALSE(Button(2).Enabled());
    EXPECT_FALSE(Button(5).Enabled());
    rig.MotorPort().Receive("A\r");
    EXPECT_TRUE(Button(2).Enabled());
    EXPECT_TRUE(Button(5).Enabled());
}

TEST_F(CtlConnectionTest, Button6JogsTheManipulatorOfBox3AndTheBoxKeepsItsText) {
    Type(3, QStringLiteral("3"));
    rig.journal.clear();
    Press(6);
    EXPECT_THAT(rig.journal,
                ElementsAre("DriverSelect 3", "DriverGetPosition", "DriverMoveTo", "DriverMoveTo"));
    EXPECT_EQ(Box(3).text(), QStringLiteral("3"));
    EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(CtlConnectionTest, Button7WithAValueOf1234ShowsTheTextDirectlyFollowedBy1234) {
    OpenPorts();
    panel.Shown();
    rig.state.CurrentXYZ(2, 1234);
    Press(7);
    EXPECT_THAT(Shown(), ElementsAre(QStringLiteral("The value of Magnescal is1234")));
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(CtlConnectionTest, Button7BeforeAnyValueShowsWhatStandsForNone) {
    OpenPorts();
    panel.Shown();
    Press(7);
    EXPECT_THAT(Shown(), ElementsAre(QStringLiteral("The value of Magnescal is-100000")));
}

TEST_F(CtlConnectionTest, Button8AttachesToTheCameraThatIsOpen) {
    rig.OpenCamera();
    Press(8);
    EXPECT_THAT(rig.journal, ElementsAre("LiveAttach"));
    EXPECT_TRUE(rig.state.LiveOpen);
    EXPECT_EQ(State(CameraRow), QStringLiteral("Connected"));
}

TEST_F(CtlConnectionTest, Button8CreatesTheCameraThatIsNotOpenAndShowsNoWindow) {
    Press(8);
    EXPECT_THAT(rig.journal, ElementsAre("live created", "LiveAttach"));
    EXPECT_TRUE(rig.state.LiveOpen);
    EXPECT_EQ(State(CameraRow), QStringLiteral("Connected"));
}

TEST_F(CtlConnectionTest, ACameraThatCannotBeCreatedIsReportedAndALaterPressTriesAgain) {
    rig.camera.absent = true;
    Press(8);
    EXPECT_THAT(Shown(), ElementsAre(CameraLoad));
    EXPECT_THAT(Logged(), ElementsAre(CameraLoad));
    EXPECT_FALSE(rig.state.LiveOpen);
    EXPECT_EQ(State(CameraRow), QStringLiteral("No answer"));
    rig.camera.absent = false;
    Press(8);
    EXPECT_TRUE(rig.state.LiveOpen);
    EXPECT_EQ(Shown().size(), 1);
}

TEST_F(CtlConnectionTest, ACameraThatDoesNotAnswerTheAttachIsReportedAndNotOpen) {
    rig.camera.failing.insert("LiveAttach");
    Press(8);
    EXPECT_THAT(Shown(), ElementsAre(CameraLoad));
    EXPECT_FALSE(rig.state.LiveOpen);
    EXPECT_FALSE(rig.live.Living());
}

TEST_F(CtlConnectionTest, RowsOfCameraAndManipulatorsFollowWhatTheOwnerTells) {
    rig.state.LiveOpen = true;
    panel.StateChange();
    EXPECT_EQ(State(CameraRow), QStringLiteral("Connected"));
    EXPECT_EQ(State(ManipulatorRow), QStringLiteral("Connected"));
    rig.state.LiveOpen = false;
    rig.state.intTotalManipulatorNumber = -1;
    panel.StateChange();
    EXPECT_EQ(State(CameraRow), QStringLiteral("Not connected"));
    EXPECT_EQ(State(ManipulatorRow), QStringLiteral("Not connected"));
}

}  // namespace
}  // namespace travo::test
