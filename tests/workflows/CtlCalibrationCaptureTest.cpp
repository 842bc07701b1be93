// What a press of a capture button records, tells and refuses, and the steps that follow.
#include "workflows/CtlCalibrationRig.h"

namespace travo::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CtlCalibrationCaptureTest : public CtlCalibrationRig {
protected:
    // A capture with a camera, up to what the camera is told last.
    static Journal Capture(const std::string& overlay) {
        return Joined({{"LiveActionStart"}, Requests, {"DriverGetPosition", "LiveActionEnd", overlay}});
    }
    // The failure's log line and box, and the camera's end.
    void ExpectCaptureFailed() {
        EXPECT_EQ(TakeBoxes(), QStringList{CaptureFailed});
        EXPECT_EQ(LogTexts(rig.log).last(), CaptureFailed);
        const Journal told = Take();
        ASSERT_GE(told.size(), 2U);
        EXPECT_EQ(told.at(told.size() - 2), "box " + CaptureFailed.toStdString());
        EXPECT_EQ(told.back(), "LiveActionEnd");
    }
};

// Magnification.

TEST_F(CtlCalibrationCaptureTest, APressAtAMagnificationOtherThanIndex2CapturesNothing) {
    for (const int mode : {Full, Re}) {
        Click(Mode(mode));
        const std::string before = OnShow();
        for (const std::int16_t magnification : std::initializer_list<std::int16_t>{0, 1, 3}) {
            rig.state.ClearMagnification();
            rig.state.CurrentMagnification(magnification);
            for (const int index : mode == Full ? std::vector{A, B, C} : std::vector{Centre}) {
                Take();
                Click(Point(index));
                EXPECT_EQ(OnShow(), before) << "the button is raised again";
                EXPECT_THAT(Take(), ElementsAre("box " + AdjustMagnification.toStdString()));
                EXPECT_EQ(TakeBoxes(), QStringList{AdjustMagnification});
                EXPECT_FALSE(Confirm(Set).Enabled());
            }
        }
        rig.state.CurrentMagnification(2);
    }
    EXPECT_EQ(LogTexts(rig.log), QStringList());
}

TEST_F(CtlCalibrationCaptureTest, TheMagnificationBoxIsAPlainOne) {
    rig.state.CurrentMagnification(3);
    Click(Point(A));
    EXPECT_EQ(rig.boxes.shown.at(0).buttons, platform::BoxButtons::OK);
    EXPECT_EQ(rig.boxes.shown.at(0).icon, platform::BoxIcon::None);
}

TEST_F(CtlCalibrationCaptureTest, AfterAPressAtTheWrongMagnificationThePointCanBeCaptured) {
    rig.state.CurrentMagnification(1);
    Click(Point(B));
    rig.state.CurrentMagnification(2);
    Take();
    Click(Point(B));
    EXPECT_EQ(OnShow(), "A [B] C picture 0");
    EXPECT_EQ(Take(), Capture("LiveCalibPoints"));
}

TEST_F(CtlCalibrationCaptureTest, ACapturedButtonPressedAtTheWrongMagnificationStaysDownAndCounts) {
    CaptureAt(A, Straight[0]);
    CaptureAt(B, Straight[1]);
    rig.state.CurrentMagnification(3);
    Click(Point(A));
    EXPECT_EQ(OnShow(), "[A] [B] C picture 0");
    EXPECT_EQ(TakeBoxes(), QStringList{AdjustMagnification});
    rig.state.CurrentMagnification(2);
    CaptureAt(C, Straight[2]);
    EXPECT_EQ(OnShow(), "Z picture 1");
}

// What is told, in order.

TEST_F(CtlCalibrationCaptureTest, EachCaptureButtonTellsTheCameraAsksAndReadsInOrder) {
    for (const int mark : {B, A}) {
        Click(Point(mark));
        EXPECT_EQ(Take(), Capture("LiveCalibPoints"));
    }
    Click(Point(C));
    EXPECT_EQ(Take(), Joined({Capture("LiveCalibPoints"),
                              {"port 3 > RELMOVEZ10000\r", "ControlONOFF 0", "box " + FocusBox.toStdString(),
                               "LiveCalibZ"}}));
    Click(Point(Z));
    EXPECT_EQ(Take(), Capture("LiveCalibPoints"));
    Click(Mode(Re));
    Take();
    Click(Point(Centre));
    EXPECT_EQ(Take(), Capture("LiveCalibCenter"));
}

TEST_F(CtlCalibrationCaptureTest, WithoutLiveOpenNoCaptureTellsTheCameraAnything) {
    rig.state.LiveOpen = false;
    const Journal told = Joined({Requests, {"DriverGetPosition"}});
    Click(Point(A));
    Click(Point(B));
    Take();
    Click(Point(C));
    EXPECT_EQ(
        Take(),
        Joined({told, {"port 3 > RELMOVEZ10000\r", "ControlONOFF 0", "box " + FocusBox.toStdString()}}));
    Click(Point(Z));
    EXPECT_EQ(Take(), told);
    Click(Mode(Re));
    Click(Point(Centre));
    EXPECT_EQ(Take(), told);
}

TEST_F(CtlCalibrationCaptureTest, ASecondPressOfACapturedButtonChangesNothing) {
    CaptureAt(A, Straight[0]);
    Take();
    Tip({1, 2, 3});
    View({7, 8, 9});
    Click(Point(A));
    EXPECT_EQ(OnShow(), "[A] B C picture 0");
    EXPECT_THAT(Take(), IsEmpty());
    CaptureAt(B, Straight[1]);
    CaptureAt(C, Straight[2]);
    CaptureAt(Z, Straight[3]);
    Take();
    Click(Point(Z));
    EXPECT_EQ(OnShow(), "[Z] picture 1");
    EXPECT_TRUE(Confirm(Set).Enabled());
    EXPECT_THAT(Take(), IsEmpty());
    Click(Confirm(Set));
    EXPECT_EQ(rig.needleMove.ManipulatorCalibrationPosXYZ(0, 0, 0), Straight[0][0]);
}

// Steps.

TEST_F(CtlCalibrationCaptureTest, PressingPositionZIsPossibleOnlyAfterAllOfPositionAPositionBPositionC) {
    for (const std::array<int, 3>& order : {std::array{A, B, C}, std::array{C, A, B}, std::array{B, C, A}}) {
        Click(Mode(Full));
        for (const int mark : order) {
            EXPECT_TRUE(Point(Z).isHidden());
            Click(Point(mark));
        }
        EXPECT_EQ(OnShow(), "Z picture 1");
        EXPECT_TRUE(Point(Z).Enabled());
    }
}

TEST_F(CtlCalibrationCaptureTest, TheMotorRaiseAndLoweringHappenOnlyWithTheMotorPortOpen) {
    for (const bool open : {true, false}) {
        if (!open) {
            rig.communication.MotorPortClose();
        }
        rig.MotorPort().TakeOutput();
        CaptureMarks();
        EXPECT_EQ(rig.MotorPort().TakeOutput(), open ? "RELMOVEZ10000\r" : "");
        EXPECT_EQ(TakeBoxes(), QStringList{open ? FocusBox : RaiseBox});
        EXPECT_EQ(OnShow(), "Z picture 1");
        CaptureAt(Z, Straight[3]);
        EXPECT_EQ(rig.MotorPort().TakeOutput(), "");
        Click(Confirm(Set));
        EXPECT_EQ(rig.MotorPort().TakeOutput(), open ? "RELMOVEZ-10000\r" : "");
        EXPECT_EQ(OnShow(), "A B C picture 0");
        EXPECT_THAT(TakeBoxes(), IsEmpty());
    }
}

TEST_F(CtlCalibrationCaptureTest, WithTheMotorPortClosedTheOperatorIsToldAndThenTheCamera) {
    rig.communication.MotorPortClose();
    CaptureAt(A, Straight[0]);
    CaptureAt(B, Straight[1]);
    Take();
    CaptureAt(C, Straight[2]);
    EXPECT_EQ(Take(), Joined({Capture("LiveCalibPoints"), {"box " + RaiseBox.toStdString(), "LiveCalibZ"}}));
}

TEST_F(CtlCalibrationCaptureTest, EachRaiseAndLoweringByTheMotorTellsWhetherTheObjectiveStandsRaised) {
    CaptureMarks();
    EXPECT_THAT(objectiveRaised, ElementsAre(true));
    Click(Mode(Full));
    CaptureAll();
    EXPECT_THAT(objectiveRaised, ElementsAre(true, true)) << "leaving the step lowers nothing";
    Click(Confirm(Set));
    EXPECT_THAT(objectiveRaised, ElementsAre(true, true, true)) << "raised twice, lowered once";
    CaptureAll();
    Click(Confirm(Set));
    objectiveRaised.clear();
    CaptureAll();
    rig.communication.MotorPortClose();
    Click(Confirm(Set));
    EXPECT_THAT(objectiveRaised, ElementsAre(true)) << "nothing was lowered";
}

TEST_F(CtlCalibrationCaptureTest, AnObjectiveThatIsLoweredAsOftenAsItWasRaisedStandsRaisedNoMore) {
    for (int round = 0; round < 2; ++round) {
        CaptureAll();
        Click(Confirm(Set));
    }
    EXPECT_THAT(objectiveRaised, ElementsAre(true, false, true, false));
    objectiveRaised.clear();
    rig.communication.MotorPortClose();
    CaptureAll();
    EXPECT_THAT(objectiveRaised, IsEmpty()) << "raised by hand";
}

TEST_F(CtlCalibrationCaptureTest, ARaiseThatThePortRefusesIsNone) {
    rig.MotorPort().failOutput = true;
    CaptureMarks();
    EXPECT_EQ(TakeBoxes(), QStringList{CaptureFailed});
    EXPECT_THAT(objectiveRaised, IsEmpty());
}

TEST_F(CtlCalibrationCaptureTest, TheRaiseIsToldBeforeItsBox) {
    std::size_t told = 0;
    rig.boxes.whileShown = [this, &told] { told = objectiveRaised.size(); };
    CaptureMarks();
    EXPECT_EQ(told, 1U);
}

TEST_F(CtlCalibrationCaptureTest, TheStepIsOnShowBehindItsBox) {
    std::string behind;
    rig.boxes.whileShown = [this, &behind] { behind = OnShow(); };
    CaptureMarks();
    EXPECT_EQ(behind, "Z picture 1");
}

TEST_F(CtlCalibrationCaptureTest, ACameraThatGoesWhileTheBoxStandsIsNotToldTheStep) {
    rig.boxes.whileShown = [this] { rig.camera.TellWindowClose(); };
    CaptureMarks();
    EXPECT_EQ(TakeBoxes(), QStringList{FocusBox});
    EXPECT_EQ(rig.journal.back(), "Live_WindowClose");
}

TEST_F(CtlCalibrationCaptureTest, SetIsEnabledByTheZPointAndByTheCentreAlone) {
    for (const int mark : {A, B, C}) {
        Click(Point(mark));
        EXPECT_FALSE(Confirm(Set).Enabled()) << mark;
    }
    Click(Point(Z));
    EXPECT_TRUE(Confirm(Set).Enabled());
    Click(Mode(Re));
    EXPECT_FALSE(Confirm(Set).Enabled());
    Click(Point(Centre));
    EXPECT_TRUE(Confirm(Set).Enabled());
}

// Failures.

TEST_F(CtlCalibrationCaptureTest, ADriverThatFailsIsReportedTwiceAndTheButtonIsRaised) {
    rig.driver.failing = {"DriverGetPosition"};
    Click(Point(A));
    EXPECT_EQ(OnShow(), "A B C picture 0");
    EXPECT_EQ(TakeBoxes(),
              (QStringList{QStringLiteral("Manipulator : Communication failed"), CaptureFailed}));
    EXPECT_EQ(Take(), Joined({{"LiveActionStart"},
                              Requests,
                              {"DriverGetPosition", "box Manipulator : Communication failed",
                               "box " + CaptureFailed.toStdString(), "LiveActionEnd"}}));
    EXPECT_EQ(LogTexts(rig.log),
              (QStringList{QStringLiteral("Manipulator : Communication failed"), CaptureFailed}));
}

TEST_F(CtlCalibrationCaptureTest, AReadingOutOfRangeAndThenAGuardThatIsTakenFailTheCapture) {
    CaptureAt(A, {25001, 0, 0});
    ExpectCaptureFailed();
    EXPECT_EQ(OnShow(), "A B C picture 0");
    // The guard that the reading left taken: the link gives an empty record and frees it.
    CaptureAt(B, Straight[1]);
    ExpectCaptureFailed();
    EXPECT_EQ(OnShow(), "A B C picture 0");
    CaptureAt(C, Straight[2]);
    EXPECT_EQ(OnShow(), "A B [C] picture 0");
    EXPECT_THAT(TakeBoxes(), IsEmpty());
}

TEST_F(CtlCalibrationCaptureTest, ARecordOfAFifthNeedleFailsTheCapture) {
    rig.driver.selected = 5;
    Click(Point(A));
    ExpectCaptureFailed();
    Click(Mode(Re));
    Click(Point(Centre));
    ExpectCaptureFailed();
    EXPECT_EQ(OnShow(), "Centre picture 2");
    EXPECT_FALSE(Confirm(Set).Enabled());
}

TEST_F(CtlCalibrationCaptureTest, AViewBeyond32BitsFailsTheCapture) {
    View({INT32_MAX, 0, 0});
    Click(Point(A));
    ExpectCaptureFailed();
    EXPECT_EQ(OnShow(), "A B C picture 0");
}

TEST_F(CtlCalibrationCaptureTest, AfterAFailureTheNextPressCapturesAndThePointsTrulyCapturedCount) {
    for (const int lost : {A, B, C}) {
        Click(Mode(Full));
        rig.driver.failing = {"DriverGetPosition"};
        CaptureAt(lost, {1, 2, 3});
        rig.driver.failing.clear();
        Take();
        CaptureMarks();
        EXPECT_EQ(OnShow(), "Z picture 1") << lost;
    }
    CaptureAt(Z, Straight[3]);
    Click(Confirm(Set));
    EXPECT_EQ(rig.needleMove.ManipulatorCalibrationPosXYZ(0, 0, C), Straight[2][0]);
}

TEST_F(CtlCalibrationCaptureTest, ACaptureThatWasLostDoesNotCountTowardsTheThree) {
    CaptureAt(A, {25001, 0, 0});
    CaptureAt(A, Straight[0]);
    EXPECT_EQ(OnShow(), "A B C picture 0") << "the guard was still taken";
    CaptureAt(B, Straight[1]);
    CaptureAt(C, Straight[2]);
    EXPECT_EQ(OnShow(), "A [B] [C] picture 0") << "two points, and the third can be seen to be missing";
    CaptureAt(A, Straight[0]);
    EXPECT_EQ(OnShow(), "Z picture 1");
}

TEST_F(CtlCalibrationCaptureTest, ALostZPointAndALostCentreAreCapturedByTheNextPress) {
    CaptureMarks();
    for (const int point : {Z, Centre}) {
        if (point == Centre) {
            Click(Mode(Re));
        }
        rig.driver.failing = {"DriverGetPosition"};
        Click(Point(point));
        EXPECT_FALSE(Confirm(Set).Enabled());
        rig.driver.failing.clear();
        Click(Point(point));
        EXPECT_TRUE(Confirm(Set).Enabled());
    }
}

TEST_F(CtlCalibrationCaptureTest, AFailedZPointAndAFailedCentreDoNotEnableSet) {
    CaptureMarks();
    rig.driver.failing = {"DriverGetPosition"};
    Click(Point(Z));
    EXPECT_EQ(OnShow(), "Z picture 1");
    EXPECT_FALSE(Confirm(Set).Enabled());
    Click(Mode(Re));
    Click(Point(Centre));
    EXPECT_EQ(OnShow(), "Centre picture 2");
    EXPECT_FALSE(Confirm(Set).Enabled());
}

TEST_F(CtlCalibrationCaptureTest, TheButtonIsRaisedBeforeTheFailureIsShown) {
    std::string behind;
    rig.boxes.whileShown = [this, &behind] { behind = OnShow(); };
    CaptureAt(A, {-1, 0, 0});
    EXPECT_EQ(behind, "A B C picture 0");
}

TEST_F(CtlCalibrationCaptureTest, ALogThatCannotBeWrittenKeepsNoFailureFromTheOperator) {
    rig.log.LogFilePath(rig.folder.filePath(QStringLiteral("missing/debugTRAVO.txt")));
    CaptureAt(A, {-1, 0, 0});
    EXPECT_EQ(TakeBoxes(), QStringList{CaptureFailed});
    EXPECT_EQ(rig.journal.back(), "LiveActionEnd");
}

TEST_F(CtlCalibrationCaptureTest, ACameraThatDiesAtTheStartOfACaptureDisturbsNothing) {
    rig.camera.failing = {"LiveActionStart"};
    Click(Point(A));
    rig.camera.TellFailure();
    EXPECT_EQ(Take(), Joined({{"LiveActionStart"}, Requests, {"DriverGetPosition", "LiveDied"}}));
    EXPECT_EQ(OnShow(), "[A] B C picture 0");
    EXPECT_FALSE(rig.state.LiveOpen);
    EXPECT_THAT(TakeBoxes(), IsEmpty());
}

TEST_F(CtlCalibrationCaptureTest, ACameraThatDiesAtTheOverlayTakesNoPointThatIsRecorded) {
    rig.camera.failing = {"LiveCalibPoints"};
    CaptureAt(A, Straight[0]);
    rig.camera.TellFailure();
    EXPECT_THAT(TakeBoxes(), IsEmpty());
    EXPECT_EQ(OnShow(), "[A] B C picture 0");
    EXPECT_FALSE(rig.state.LiveOpen);
    CaptureAt(B, Straight[1]);
    CaptureAt(C, Straight[2]);
    EXPECT_EQ(OnShow(), "Z picture 1");
}

TEST_F(CtlCalibrationCaptureTest, ACameraThatDiesAtTheRaisedStepDisturbsNothing) {
    rig.camera.failing = {"LiveCalibZ"};
    CaptureMarks();
    rig.camera.TellFailure();
    EXPECT_EQ(TakeBoxes(), QStringList{FocusBox});
    EXPECT_EQ(OnShow(), "Z picture 1");
    CaptureAt(Z, Straight[3]);
    EXPECT_TRUE(Confirm(Set).Enabled());
}

}  // namespace
}  // namespace travo::test
