// The synchronised mode: how it is entered and left.
#include <gmock/gmock.h>

#include "experiment/view/CtlExperiment2Rig.h"

namespace travo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Target = std::array<std::int32_t, 3>;

// Everything that is locked in the mode.
void ExpectLocked(const CtlExperiment2Rig& bench) {
    EXPECT_FALSE(bench.Escape(0).Enabled());
    EXPECT_FALSE(bench.Escape(1).Enabled());
    EXPECT_FALSE(bench.Direct().Enabled());
    EXPECT_FALSE(bench.Direct().Value());
    EXPECT_FALSE(bench.ViewMoves().Enabled());
    EXPECT_FALSE(bench.PresentView().Enabled());
    EXPECT_FALSE(bench.Move().Enabled());
    EXPECT_EQ(bench.EnabledCells(), "");
}

void ExpectOpen(const CtlExperiment2Rig& bench, const std::string& cells) {
    EXPECT_TRUE(bench.Escape(0).Enabled());
    EXPECT_TRUE(bench.Escape(1).Enabled());
    EXPECT_TRUE(bench.Direct().Enabled());
    EXPECT_TRUE(bench.ViewMoves().Enabled());
    EXPECT_TRUE(bench.PresentView().Enabled());
    EXPECT_TRUE(bench.Move().Enabled());
    EXPECT_EQ(bench.EnabledCells(), cells);
    EXPECT_FALSE(bench.Synchro().Value());
    EXPECT_TRUE(bench.Timer1.enabled);
    EXPECT_TRUE(bench.Image("Image2", 4).isHidden());
}

TEST(CtlExperiment2SynchroTest, PressedInThePanelLocksItself) {
    CtlExperiment2Rig bench;
    bench.Store(1);
    bench.Click(bench.Cell(1));
    bench.Click(bench.Direct());
    bench.Forget();
    bench.EnterSynchro();
    EXPECT_EQ(bench.State(), "Synchro 1");
    ExpectLocked(bench);
    // The needle buttons are the way out.
    EXPECT_EQ(bench.EnabledNeedles(), "1234");
    EXPECT_TRUE(bench.Synchro().Enabled());
    EXPECT_FALSE(bench.Timer1.enabled);
    EXPECT_EQ(bench.Arrow(), "4");
    EXPECT_EQ(bench.TargetLamp(), "8");
    EXPECT_EQ(bench.panel.intCellNo(), 1);
    EXPECT_EQ(bench.PressedTargets(), "B");
    EXPECT_THAT(bench.Take(), IsEmpty());
}

TEST(CtlExperiment2SynchroTest, ReleasedThePanelOpensAgain) {
    CtlExperiment2Rig bench;
    bench.Store(1);
    bench.Click(bench.Cell(1));
    bench.EnterSynchro();
    bench.Click(bench.Synchro());
    EXPECT_EQ(bench.State(), "Needle 1");
    ExpectOpen(bench, "B");
    EXPECT_EQ(bench.TargetLamp(), "1");
    EXPECT_EQ(bench.PressedTargets(), "B");
    // The arrow comes back with the next tick.
    EXPECT_EQ(bench.Arrow(), "");
    bench.Timer1.Fire();
    EXPECT_EQ(bench.Arrow(), "2");
}

TEST(CtlExperiment2SynchroTest, ReleasedWithTheMotorPortClosedTheObjectiveEscapeStaysDisabled) {
    CtlExperiment2Rig bench;
    bench.rig.communication.MotorPortClose();
    bench.EnterSynchro();
    bench.Click(bench.Synchro());
    EXPECT_FALSE(bench.Escape(0).Enabled());
    EXPECT_TRUE(bench.Escape(1).Enabled());
}

TEST(CtlExperiment2SynchroTest, DirectModeStaysOffAfterTheMode) {
    CtlExperiment2Rig bench;
    bench.Store(1);
    bench.Click(bench.Direct());
    bench.EnterSynchro();
    bench.Click(bench.Synchro());
    bench.EnterView();
    bench.Forget();
    bench.Click(bench.Cell(1));
    EXPECT_THAT(bench.Take(), IsEmpty());
}

TEST(CtlExperiment2SynchroTest, LeavingByCodeWithThePresentViewMovesTheTargetLampToCellA) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.Click(bench.PresentView());
    bench.EnterSynchro();
    bench.panel.SynchroFalse();
    EXPECT_EQ(bench.TargetLamp(), "0");
    EXPECT_EQ(bench.panel.intCellNo(), 0);
    EXPECT_EQ(bench.PressedTargets(), "A");
    ExpectOpen(bench, "A");
}

TEST(CtlExperiment2SynchroTest, ReleasingTheButtonWithThePresentViewLeavesTheLampThere) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.Click(bench.PresentView());
    bench.EnterSynchro();
    bench.Click(bench.Synchro());
    EXPECT_EQ(bench.TargetLamp(), "8");
    EXPECT_EQ(bench.panel.intCellNo(), CtlExperiment2::PresentView);
    EXPECT_EQ(bench.PressedTargets(), "V");
}

TEST(CtlExperiment2SynchroTest, LeavingByCodeWithThePresentViewAndCellANotSetSendsTheNeedleTo000InSilence) {
    CtlExperiment2Rig bench;
    bench.Click(bench.PresentView());
    bench.EnterSynchro();
    bench.panel.SynchroFalse();
    EXPECT_EQ(bench.TargetLamp(), "0");
    EXPECT_FALSE(bench.Cell(0).Value());
    EXPECT_FALSE(bench.Cell(0).Enabled());
    EXPECT_TRUE(bench.PresentView().Value());
    bench.Forget();
    bench.Click(bench.Move());
    // (0, 0, 0) of the common frame, and the Z stand-off of 100 above it.
    EXPECT_THAT(bench.rig.driver.moves, ElementsAre(Target{12000, 12000, 12100}));
    EXPECT_THAT(bench.rig.boxes.Texts(), IsEmpty());
}

TEST(CtlExperiment2SynchroTest, LeavingByCodeKeepsACellThatIsPressedIn) {
    CtlExperiment2Rig bench;
    bench.Store(3);
    bench.Click(bench.Cell(3));
    bench.EnterSynchro();
    bench.panel.SynchroFalse();
    EXPECT_EQ(bench.PressedTargets(), "D");
    EXPECT_EQ(bench.TargetLamp(), "3");
}

TEST(CtlExperiment2SynchroTest, EnteredInTheViewWhereTheButtonIsEnabledAllTheSameTheSelectedNeedleFollows) {
    CtlExperiment2Rig bench;
    bench.rig.state.intManipulatorNumber = 2;
    bench.EnterView();
    bench.Synchro().Enabled(true);
    bench.EnterSynchro();
    EXPECT_EQ(bench.State(), "Synchro 3");
    EXPECT_EQ(bench.PressedMoves(), "3");
    bench.OnlyCalibrated(2);
    bench.Step({11, -5, 300});
    EXPECT_EQ(bench.rig.driver.moves.size(), 1U);
}

TEST(CtlExperiment2SynchroTest, AnotherNeedleIsTheWayOut) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.EnterSynchro();
    bench.Forget();
    bench.Click(bench.Needle(3));
    EXPECT_EQ(bench.State(), "Needle 4");
    ExpectOpen(bench, "A");
    EXPECT_THAT(bench.Take(), ElementsAre("DriverSelect 4"));
}

TEST(CtlExperiment2SynchroTest, TheModeNeverSurvivesAChangeOfPanel) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.EnterSynchro();
    bench.panel.Hidden();
    EXPECT_EQ(bench.State(), "Needle 1");
    ExpectOpen(bench, "A");
}

TEST(CtlExperiment2SynchroTest, AMagnificationChangeCannotBreakTheMode) {
    CtlExperiment2Rig bench;
    bench.EnterSynchro();
    bench.Magnification(1);
    EXPECT_EQ(bench.State(), "Synchro 1");
    EXPECT_TRUE(bench.Synchro().Value());
    EXPECT_TRUE(bench.Synchro().Enabled());
    bench.Magnification(3);
    ExpectLocked(bench);
}

TEST(CtlExperiment2SynchroTest, WhatTheMotorsAndThePanelOpenedAgainIsLockedByTheNextStep) {
    CtlExperiment2Rig bench;
    bench.EnterSynchro();
    bench.panel.Shown();
    EXPECT_TRUE(bench.ViewMoves().Enabled());
    bench.Click(bench.Direct());
    EXPECT_TRUE(bench.Direct().Value());
    bench.Step(CtlExperiment2Rig::TheView);
    EXPECT_FALSE(bench.ViewMoves().Enabled());
    EXPECT_FALSE(bench.PresentView().Enabled());
    EXPECT_FALSE(bench.Direct().Enabled());
    EXPECT_FALSE(bench.Direct().Value());
    EXPECT_FALSE(bench.Escape(0).Enabled());
    EXPECT_FALSE(bench.Escape(1).Enabled());
    EXPECT_EQ(bench.State(), "Synchro 1");
}

TEST(CtlExperiment2SynchroTest, MirrorMotorsInTheModeTouchTheCellsAlone) {
    CtlExperiment2Rig bench;
    bench.SetCell(0);
    bench.EnterSynchro();
    bench.panel.checkMotor(true);
    EXPECT_EQ(bench.EnabledCells(), "A");
    EXPECT_FALSE(bench.ViewMoves().Enabled());
    EXPECT_FALSE(bench.PresentView().Enabled());
    EXPECT_FALSE(bench.Direct().Enabled());
}

TEST(CtlExperiment2SynchroTest, NeedlesThatAreLostInTheModeLeaveAPanelThatStillMovesTheView) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.EnterSynchro();
    bench.EnterViewOnly();
    EXPECT_EQ(bench.State(), "ViewOnly");
    EXPECT_FALSE(bench.Synchro().Value());
    EXPECT_TRUE(bench.Image("Image2", 4).isHidden());
    EXPECT_TRUE(bench.Timer1.enabled);
    EXPECT_TRUE(bench.Move().Enabled());
    EXPECT_TRUE(bench.ViewMoves().Enabled());
    EXPECT_TRUE(bench.ViewMoves().Value());
    EXPECT_TRUE(bench.PresentView().isHidden());
    EXPECT_TRUE(bench.Direct().Enabled());
    EXPECT_TRUE(bench.Escape(0).Enabled());
    EXPECT_EQ(bench.EnabledCells(), "A");
    EXPECT_EQ(bench.TargetLamp(), "0");
    // What would act on a needle is off.
    EXPECT_EQ(bench.EnabledNeedles(), "");
    EXPECT_FALSE(bench.Synchro().Enabled());
    EXPECT_FALSE(bench.Escape(1).Enabled());
    bench.Forget();
    bench.Click(bench.Move());
    const Journal journal = bench.Take();
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "port 1 > cD2A500\r"), 1);
    EXPECT_THAT(bench.rig.driver.moves, IsEmpty());
}

TEST(CtlExperiment2SynchroTest, AfterTheLossNoStepIsMadeAndANewNeedleOpensThePanel) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.EnterSynchro();
    bench.EnterViewOnly();
    bench.Forget();
    bench.Step({11, -5, 300});
    EXPECT_THAT(bench.rig.driver.moves, IsEmpty());
    bench.Connected(1);
    bench.panel.TotalManipulatorNumber(1);
    EXPECT_EQ(bench.State(), "Needle 1");
    ExpectOpen(bench, "A");
}

}  // namespace
}  // namespace travo::test
