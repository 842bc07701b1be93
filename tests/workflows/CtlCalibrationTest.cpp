// How the calibration panel comes and goes, what can be used when, and its modes and needles.
#include "workflows/CtlCalibration.h"

#include "workflows/CtlCalibrationRig.h"

namespace travo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string Marks = "A B C picture 0";
const std::string CentreStep = "Centre picture 2";

class CtlCalibrationTest : public CtlCalibrationRig {
protected:
    // Capture buttons, RESET and ALLRESET.
    bool Usable() const {
        const bool usable = Point(A).Enabled();
        for (int index = 0; index < 5; ++index) {
            EXPECT_EQ(Point(index).Enabled(), usable) << index;
        }
        EXPECT_EQ(Confirm(Reset).Enabled(), usable);
        EXPECT_EQ(Confirm(AllReset).Enabled(), usable);
        return usable;
    }
};

TEST_F(CtlCalibrationTest, AtFirstAFullCalibrationIsChosenAndSetIsDisabled) {
    CtlCalibration fresh({rig.state, rig.communication, rig.needleMove, rig.ini, rig.live, rig.failures,
                          rig.clock, rig.timers, *this, *this},
                         rig.ProgramFolder());
    EXPECT_EQ(fresh.objectName(), QStringLiteral("CtlCalibration1"));
    EXPECT_TRUE(fresh.findChild<usrKVCheckButton*>(QStringLiteral("usrKVCheckButton2(0)"))->Value());
    EXPECT_FALSE(fresh.findChild<usrKVCheckButton*>(QStringLiteral("usrKVCheckButton2(1)"))->Value());
    EXPECT_FALSE(fresh.findChild<usrKVButton*>(QStringLiteral("usrKVButton1(0)"))->Enabled());
    EXPECT_TRUE(fresh.findChild<QLabel*>(QStringLiteral("lblWaring"))->isHidden());
    EXPECT_EQ(rig.timers.created.back()->interval, 1000);
    EXPECT_FALSE(rig.timers.created.back()->enabled);
    EXPECT_THAT(rig.journal, IsEmpty());
}

// Coming and going.

TEST_F(CtlCalibrationTest, ShowingEntersTheStepOfTheMode) {
    panel.Shown();
    EXPECT_EQ(OnShow(), Marks);
    EXPECT_THAT(Take(), ElementsAre("LiveCalibPoints"));
    Click(Mode(Re));
    Take();
    panel.Shown();
    EXPECT_EQ(OnShow(), CentreStep);
    EXPECT_THAT(Take(), ElementsAre("LiveCalibCenter"));
}

TEST_F(CtlCalibrationTest, ShowingForgetsTheCapturesOfTheStepThatWasLeft) {
    CaptureAt(A, Straight[0]);
    CaptureAt(B, Straight[1]);
    panel.Hidden();
    panel.Shown();
    EXPECT_EQ(OnShow(), Marks);
    CaptureAt(C, Straight[2]);
    EXPECT_EQ(OnShow(), "A B [C] picture 0") << "one point is not three";
}

TEST_F(CtlCalibrationTest, WithoutTheMagnescalePortOpenNothingOnThePanelCanBeUsed) {
    rig.communication.MagnescalePortClose();
    panel.Shown();
    EXPECT_FALSE(Usable());
    EXPECT_FALSE(Confirm(Set).Enabled());
    EXPECT_EQ(EnabledNeedles(), "----");
    Take();
    Click(Point(A));
    Click(Needle(1));
    Click(Confirm(Reset));
    EXPECT_THAT(rig.journal, IsEmpty());
    rig.communication.MagnescalePortOpen(2);
    panel.Shown();
    EXPECT_TRUE(Usable());
    EXPECT_EQ(EnabledNeedles(), "1234");
    EXPECT_FALSE(Confirm(Set).Enabled());
}

TEST_F(CtlCalibrationTest, AGaugeClosedWhileThePanelIsOpenLeavesItUsableUntilItIsShownAnew) {
    rig.communication.MagnescalePortClose();
    Take();
    CaptureAt(A, Straight[0]);
    EXPECT_THAT(Take(), ElementsAre("LiveActionStart", "port 1 > rD2R\r", "port 1 > rD1R\r",
                                    "DriverGetPosition", "LiveActionEnd", "LiveCalibPoints"));
    EXPECT_EQ(OnShow(), "[A] B C picture 0");
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
    panel.Shown();
    EXPECT_FALSE(Usable());
}

TEST_F(CtlCalibrationTest, ShowingEnablesTheNeedlesThatAreConnected) {
    const std::vector<std::pair<std::int16_t, std::string>> rows{
        {-1, "----"}, {0, "1---"}, {1, "12--"}, {2, "123-"}, {3, "1234"}};
    for (const auto& [highest, enabled] : rows) {
        rig.state.intTotalManipulatorNumber = highest;
        panel.Shown();
        EXPECT_EQ(EnabledNeedles(), enabled);
        EXPECT_TRUE(Usable());
    }
}

TEST_F(CtlCalibrationTest, ShowingDisablesSet) {
    CaptureAll();
    EXPECT_TRUE(Confirm(Set).Enabled());
    panel.Shown();
    EXPECT_FALSE(Confirm(Set).Enabled());
}

TEST_F(CtlCalibrationTest, TotalManipulatorNumberEnablesTheButtonsUpToIt) {
    const std::vector<std::pair<std::int16_t, std::string>> rows{
        {0, "1---"}, {3, "1234"}, {1, "12--"}, {2, "123-"}};
    for (const auto& [highest, enabled] : rows) {
        panel.TotalManipulatorNumber(highest);
        EXPECT_EQ(EnabledNeedles(), enabled);
        EXPECT_TRUE(Usable());
        EXPECT_TRUE(Mode(Full).Enabled());
        EXPECT_TRUE(Mode(Re).Enabled());
    }
}

TEST_F(CtlCalibrationTest, TotalManipulatorNumberOutside0To4DisablesModesCapturesAndConfirming) {
    CaptureAll();
    ASSERT_TRUE(Confirm(Set).Enabled());
    panel.TotalManipulatorNumber(-1);
    EXPECT_EQ(EnabledNeedles(), "----");
    EXPECT_FALSE(Usable());
    EXPECT_FALSE(Confirm(Set).Enabled());
    EXPECT_FALSE(Mode(Full).Enabled());
    EXPECT_FALSE(Mode(Re).Enabled());
}

TEST_F(CtlCalibrationTest, WithAFifthManipulatorTheFourButtonsThatThereAreAreEnabled) {
    panel.TotalManipulatorNumber(4);
    EXPECT_EQ(EnabledNeedles(), "1234");
    EXPECT_TRUE(Usable());
    rig.state.intTotalManipulatorNumber = 4;
    panel.Shown();
    EXPECT_EQ(EnabledNeedles(), "1234");
    panel.TotalManipulatorNumber(5);
    EXPECT_FALSE(Usable());
}

// The warning.

TEST_F(CtlCalibrationTest, TheWarningBlinksEachSecondWhileTheMagnificationIsNot2x) {
    EXPECT_EQ(Warning().text(), AdjustMagnification);
    EXPECT_EQ(Timer1().interval, 1000);
    for (const std::int16_t magnification : std::initializer_list<std::int16_t>{0, 1, 3}) {
        Magnification(magnification);
        EXPECT_TRUE(Timer1().enabled) << magnification;
        EXPECT_TRUE(Warning().isHidden()) << "the first period has to go by";
        Timer1().Fire();
        EXPECT_FALSE(Warning().isHidden());
        Timer1().Fire();
        EXPECT_TRUE(Warning().isHidden());
        Timer1().Fire();
        Magnification(2);
        EXPECT_FALSE(Timer1().enabled);
        EXPECT_TRUE(Warning().isHidden());
    }
}

TEST_F(CtlCalibrationTest, ShowingStartsTheTimerAndHidingStopsItWhenTheMagnificationIsNot2x) {
    rig.state.CurrentMagnification(2);
    panel.Shown();
    EXPECT_FALSE(Timer1().enabled);
    rig.state.CurrentMagnification(3);
    panel.Shown();
    EXPECT_TRUE(Timer1().enabled);
    panel.Hidden();
    EXPECT_FALSE(Timer1().enabled);
}

TEST_F(CtlCalibrationTest, HidingAt2xLeavesTheTimerAsItIs) {
    Timer1().Enabled(true);
    panel.Hidden();
    EXPECT_TRUE(Timer1().enabled);
}

// Modes.

TEST_F(CtlCalibrationTest, AModeButtonIsShownAloneAsPressedAndEntersItsStep) {
    for (const int mode : {Re, Re, Full, Full, Re}) {
        rig.journal.clear();
        Click(Mode(mode));
        EXPECT_TRUE(Mode(mode).Value());
        EXPECT_FALSE(Mode(1 - mode).Value());
        EXPECT_EQ(OnShow(), mode == Full ? Marks : CentreStep);
        EXPECT_THAT(Take(), ElementsAre(mode == Full ? "LiveCalibPoints" : "LiveCalibCenter"));
    }
}

TEST_F(CtlCalibrationTest, EveryStepIsLeftByAModeButtonWithNothingMovedAndNothingToSet) {
    for (const int mode : {Full, Re}) {
        for (const int reached : {A, C, Z}) {
            Click(Mode(Full));
            CaptureAt(A, Straight[0]);
            if (reached >= C) {
                CaptureAt(B, Straight[1]);
                CaptureAt(C, Straight[2]);
            }
            if (reached == Z) {
                CaptureAt(Z, Straight[3]);
            }
            Take();
            Click(Mode(mode));
            EXPECT_EQ(OnShow(), mode == Full ? Marks : CentreStep);
            EXPECT_FALSE(Confirm(Set).Enabled());
            EXPECT_THAT(Take(), ElementsAre(mode == Full ? "LiveCalibPoints" : "LiveCalibCenter"));
        }
    }
}

TEST_F(CtlCalibrationTest, WithoutACameraModesTellNobody) {
    rig.state.LiveOpen = false;
    Click(Mode(Re));
    Click(Mode(Full));
    panel.Shown();
    EXPECT_THAT(rig.journal, IsEmpty());
}

TEST_F(CtlCalibrationTest, AnIllCameraDisturbsNoChangeOfStep) {
    rig.camera.failing = {"LiveCalibPoints", "LiveCalibCenter"};
    Click(Mode(Re));
    rig.camera.TellFailure();
    EXPECT_EQ(OnShow(), CentreStep);
    EXPECT_FALSE(rig.state.LiveOpen);
    rig.OpenCamera();
    panel.ManipulatorChange(2);
    EXPECT_EQ(PressedNeedles(), "--3-");
    rig.OpenCamera();
    panel.Shown();
    EXPECT_THAT(rig.boxes.Texts(), IsEmpty());
    EXPECT_EQ(LogTexts(rig.log), QStringList());
}

// Needles.

TEST_F(CtlCalibrationTest, ManipulatorChangeAsksShowsTheNeedleAndEntersTheStepOfTheMode) {
    for (const std::int16_t needle : std::initializer_list<std::int16_t>{2, 0, 3, 1}) {
        CaptureAt(A, Straight[0]);
        Take();
        panel.ManipulatorChange(needle);
        EXPECT_EQ(PressedNeedles().find(static_cast<char>('1' + needle)), static_cast<std::size_t>(needle));
        EXPECT_EQ(OnShow(), Marks);
        EXPECT_EQ(Take(), Joined({Requests, {"LiveCalibPoints"}}));
    }
    Click(Mode(Re));
    CaptureAt(Centre, Straight[0]);
    Take();
    panel.ManipulatorChange(0);
    EXPECT_EQ(OnShow(), CentreStep);
    EXPECT_FALSE(Confirm(Set).Enabled());
    EXPECT_EQ(Take(), Joined({Requests, {"LiveCalibCenter"}}));
}

TEST_F(CtlCalibrationTest, ManipulatorChangeWhileThePanelIsHiddenReleasesTheMarksAndEntersNoStep) {
    CaptureAll();
    Click(Mode(Full));
    CaptureAt(A, Straight[0]);
    panel.Hidden();
    panel.hide();
    Take();
    panel.ManipulatorChange(1);
    EXPECT_EQ(PressedNeedles(), "-2--");
    EXPECT_EQ(OnShow(), Marks);
    EXPECT_EQ(Take(), Requests);
}

TEST_F(CtlCalibrationTest, ThePanelsOwnFlagDecidesWhetherItIsVisible) {
    QWidget window;
    panel.setParent(&window);
    panel.show();
    ASSERT_FALSE(panel.isVisible());
    Take();
    panel.ManipulatorChange(1);
    EXPECT_EQ(Take(), Joined({Requests, {"LiveCalibPoints"}}));
    panel.setParent(nullptr);
}

TEST_F(CtlCalibrationTest, ManipulatorChangeToANeedleWithoutAButtonIsABoundsFailure) {
    EXPECT_THROW(panel.ManipulatorChange(4), BoundsFailure);
    EXPECT_THROW(panel.ManipulatorChange(-1), BoundsFailure);
}

TEST_F(CtlCalibrationTest, ASelectButtonSelectsItsNeedleAtTheHardwareWhoseNumberingStartsAt1) {
    for (int needle = 1; needle < 4; ++needle) {
        Take();
        Click(Needle(needle));
        EXPECT_EQ(PressedNeedles().find(static_cast<char>('1' + needle)), static_cast<std::size_t>(needle));
        EXPECT_EQ(
            Take(),
            Joined({Requests,
                    {"LiveCalibPoints", "DriverSelect " + std::to_string(needle + 1), "LiveCalibPoints"}}));
        EXPECT_EQ(rig.state.intManipulatorNumber, 0) << "the position loop will notice";
    }
}

TEST_F(CtlCalibrationTest, ASelectButtonOfTheSelectedNeedleSelectsNothingAndStaysDown) {
    Click(Mode(Re));
    for (int press = 0; press < 2; ++press) {
        Take();
        Click(Needle(0));
        EXPECT_EQ(PressedNeedles(), "1---");
        EXPECT_EQ(OnShow(), CentreStep);
        EXPECT_EQ(Take(), Joined({Requests, {"LiveCalibCenter", "LiveCalibCenter"}}));
    }
}

// Pictures.

TEST_F(CtlCalibrationTest, ControlsBearTheirSkins) {
    EXPECT_EQ(Point(A).path(), QStringLiteral("PositionA"));
    EXPECT_EQ(Point(C).path(), QStringLiteral("PositionC"));
    EXPECT_EQ(Point(Z).path(), QStringLiteral("PositionZ"));
    EXPECT_EQ(Point(Centre).path(), QStringLiteral("PositionCenter"));
    EXPECT_EQ(Mode(Full).path(), QStringLiteral("CalibrationMode1"));
    EXPECT_EQ(Mode(Re).path(), QStringLiteral("CalibrationMode2"));
    EXPECT_EQ(Needle(3).path(), QStringLiteral("SelectManipulator4"));
    EXPECT_EQ(Confirm(AllReset).path(), QStringLiteral("ALLRESET"));
    EXPECT_EQ(Picture(1).path(), QStringLiteral("calibpos-1"));
}

}  // namespace
}  // namespace travo::test
