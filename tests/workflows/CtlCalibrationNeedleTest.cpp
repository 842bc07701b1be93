// The needle that is lit on the calibration panel is the one that is captured, kept and cleared.
#include "workflows/CtlCalibrationRig.h"

namespace travo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CtlCalibrationNeedleTest : public CtlCalibrationRig {
protected:
    CtlCalibrationNeedleTest() {
        panel.ManipulatorChange(0);
        Take();
    }
    // Needle 2 is clicked and the driver refuses it: its lamp is lit, needle 1 is selected.
    void ClickNeedleTwoInVain() {
        rig.driver.failing = {"DriverSelect"};
        Click(Needle(1));
        ASSERT_EQ(PressedNeedles(), "-2--");
        ASSERT_EQ(rig.driver.selected, 1);
        Take();
        TakeBoxes();
    }
    static std::ptrdiff_t Reads(const Journal& journal) {
        return std::count(journal.begin(), journal.end(), "read");
    }
};

TEST_F(CtlCalibrationNeedleTest, WhereTheLitNeedleWasReadLastNothingIsReadForAPress) {
    CaptureAll();
    Click(Confirm(Set));
    Click(Mode(Re));
    CaptureAt(Centre, Straight[0]);
    Click(Confirm(Set));
    Click(Confirm(Reset));
    Click(Confirm(AllReset));
    EXPECT_EQ(Reads(Take()), 0);
    EXPECT_EQ(TakeBoxes(), QStringList{FocusBox});
}

TEST_F(CtlCalibrationNeedleTest, ACaptureThatIsClickedAheadOfTheReadingIsThatOfTheLitNeedle) {
    Click(Needle(1));
    ASSERT_EQ(rig.state.intManipulatorNumber, 0);
    Take();
    CaptureAt(A, Straight[0]);
    EXPECT_EQ(Reads(Take()), 1);
    EXPECT_EQ(OnShow(), "[A] B C picture 0");
    EXPECT_EQ(PressedNeedles(), "-2--");
    CaptureAt(B, Straight[1]);
    CaptureAt(C, Straight[2]);
    CaptureAt(Z, Straight[3]);
    EXPECT_EQ(Reads(Take()), 0);
    Click(Confirm(Set));
    EXPECT_TRUE(rig.state.CalibrationON(1));
    EXPECT_FALSE(rig.state.CalibrationON(0));
    EXPECT_TRUE(Section(0).empty());
}

TEST_F(CtlCalibrationNeedleTest, AResetThatIsClickedAheadOfTheReadingClearsTheLitNeedle) {
    rig.state.CalibrationON(0, true);
    rig.state.CalibrationON(1, true);
    Click(Needle(1));
    Click(Confirm(Reset));
    EXPECT_TRUE(rig.state.CalibrationON(0));
    EXPECT_FALSE(rig.state.CalibrationON(1));
    EXPECT_THAT(TakeBoxes(), IsEmpty());
}

TEST_F(CtlCalibrationNeedleTest, AResetOfANeedleThatTheDriverRefusedClearsNothingAndTheLampGoesBack) {
    rig.state.CalibrationON(0, true);
    ClickNeedleTwoInVain();
    std::string behind;
    rig.boxes.whileShown = [this, &behind] { behind = PressedNeedles(); };
    Click(Confirm(Reset));
    EXPECT_THAT(Take(), ElementsAre("read", "DriverGetPosition", "LiveCalibPoints",
                                    "box " + SettingFailed.toStdString()));
    EXPECT_EQ(LogTexts(rig.log).last(), SettingFailed);
    EXPECT_EQ(behind, "1---");
    EXPECT_TRUE(rig.state.CalibrationON(0));
    EXPECT_TRUE(rig.Settings().isEmpty());
    Click(Confirm(Reset));
    EXPECT_FALSE(rig.state.CalibrationON(0)) << "now its lamp is lit";
}

TEST_F(CtlCalibrationNeedleTest, ACaptureOfANeedleThatTheDriverRefusedRecordsNothingAndTheLampGoesBack) {
    for (const int mode : {Full, Re}) {
        Click(Mode(mode));
        ClickNeedleTwoInVain();
        Click(Point(mode == Full ? B : Centre));
        EXPECT_EQ(TakeBoxes(), QStringList{SettingFailed});
        EXPECT_EQ(PressedNeedles(), "1---");
        EXPECT_EQ(OnShow(), mode == Full ? "A B C picture 0" : "Centre picture 2");
        EXPECT_FALSE(Confirm(Set).Enabled());
        const Journal told = Take();
        EXPECT_EQ(std::count(told.begin(), told.end(), "LiveActionStart"), 0);
        Click(Point(mode == Full ? B : Centre));
        EXPECT_EQ(OnShow(), mode == Full ? "A [B] C picture 0" : "[Centre] picture 2");
    }
}

// Clicked there and back before the next reading: the second click selects nothing, since needle 1 is known.
TEST_F(CtlCalibrationNeedleTest, ATipThatIsAnotherNeedlesThanTheLitOneIsNotRecorded) {
    Click(Needle(1));
    Click(Needle(0));
    ASSERT_EQ(PressedNeedles(), "1---");
    ASSERT_EQ(rig.driver.selected, 2);
    Take();
    CaptureAt(A, Straight[0]);
    EXPECT_EQ(TakeBoxes(), QStringList{SettingFailed});
    EXPECT_EQ(rig.journal.back(), "LiveActionEnd");
    EXPECT_EQ(PressedNeedles(), "-2--");
    EXPECT_EQ(OnShow(), "A B C picture 0");
    CaptureAll();
    Click(Confirm(Set));
    EXPECT_TRUE(rig.state.CalibrationON(1));
    EXPECT_TRUE(Section(0).empty());
}

TEST_F(CtlCalibrationNeedleTest, AReadingThatFailsLeavesLampAndCalibrationsAndIsReported) {
    rig.state.CalibrationON(0, true);
    ClickNeedleTwoInVain();
    rig.driver.failing = {"DriverGetPosition"};
    Click(Confirm(Reset));
    EXPECT_EQ(TakeBoxes(),
              (QStringList{QStringLiteral("Manipulator : Communication failed"), SettingFailed}));
    EXPECT_EQ(PressedNeedles(), "1---") << "the one that was read last";
    EXPECT_TRUE(rig.state.CalibrationON(0));
}

TEST_F(CtlCalibrationNeedleTest, AfterAReconnectionTheLitNeedleIsReadBeforeItIsCaptured) {
    rig.state.intManipulatorNumber = -1;
    CaptureAt(A, Straight[0]);
    EXPECT_EQ(Reads(Take()), 1);
    EXPECT_EQ(OnShow(), "[A] B C picture 0");
    rig.state.intManipulatorNumber = -1;
    rig.driver.failing = {"DriverGetPosition"};
    Click(Point(B));
    EXPECT_EQ(TakeBoxes(), (QStringList{QStringLiteral("Manipulator : Communication failed"), CaptureFailed}))
        << "no needle is known: the capture's own words";
    EXPECT_EQ(OnShow(), "[A] B C picture 0");
}

TEST_F(CtlCalibrationNeedleTest, AReadingThatEndsTheRaisedStepLeavesNoZPoint) {
    CaptureMarks();
    TakeBoxes();
    rig.state.intManipulatorNumber = -1;
    CaptureAt(Z, Straight[3]);
    EXPECT_EQ(OnShow(), "A B C picture 0");
    EXPECT_EQ(TakeBoxes(), QStringList{CaptureFailed});
    EXPECT_FALSE(Confirm(Set).Enabled());
}

TEST_F(CtlCalibrationNeedleTest, AllResetConcernsAllNeedlesWhicheverIsLit) {
    rig.state.CalibrationON(0, true);
    ClickNeedleTwoInVain();
    Click(Confirm(AllReset));
    EXPECT_EQ(Reads(Take()), 0);
    EXPECT_FALSE(rig.state.CalibrationON(0));
    EXPECT_THAT(TakeBoxes(), IsEmpty());
    EXPECT_EQ(PressedNeedles(), "-2--");
}

}  // namespace
}  // namespace travo::test
