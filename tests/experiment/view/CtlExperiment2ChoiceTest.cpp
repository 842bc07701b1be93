// What is chosen to move and where to: the buttons, the lamps, the number of needles.
#include <gmock/gmock.h>

#include "core/ground/Arithmetic.h"
#include "experiment/view/CtlExperiment2Rig.h"

namespace travo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What moves.

TEST(CtlExperiment2ChoiceTest, ANeedleButtonMovesTheLampAndSelectsTheNeedleInTheDriver) {
    CtlExperiment2Rig bench;
    bench.Click(bench.Needle(1));
    EXPECT_EQ(bench.State(), "Needle 2");
    EXPECT_EQ(bench.PressedMoves(), "2");
    EXPECT_THAT(bench.Take(), ElementsAre("DriverSelect 2"));
    // The index follows with the next read of the needle.
    EXPECT_EQ(bench.rig.state.intManipulatorNumber, 0);
}

TEST(CtlExperiment2ChoiceTest, APressOfNeedle1WhileNeedle1IsAlreadySelectedSendsNothingToTheDriver) {
    CtlExperiment2Rig bench;
    bench.Click(bench.Needle(0));
    EXPECT_THAT(bench.Take(), IsEmpty());
    EXPECT_EQ(bench.PressedMoves(), "1");
}

TEST(CtlExperiment2ChoiceTest, ANeedleButtonAfterTheViewOpensPresentViewSynchroAndNeedleEscape) {
    CtlExperiment2Rig bench;
    bench.EnterView();
    EXPECT_TRUE(bench.PresentView().isHidden());
    EXPECT_FALSE(bench.Synchro().Enabled());
    EXPECT_FALSE(bench.Escape(1).Enabled());
    bench.Click(bench.Needle(2));
    EXPECT_FALSE(bench.PresentView().isHidden());
    EXPECT_TRUE(bench.Synchro().Enabled());
    EXPECT_TRUE(bench.Escape(1).Enabled());
    EXPECT_EQ(bench.PressedMoves(), "3");
}

TEST(CtlExperiment2ChoiceTest, ANeedleButtonAt035xLeavesSynchroDisabled) {
    CtlExperiment2Rig bench;
    bench.EnterView();
    bench.Magnification(1);
    bench.Click(bench.Needle(0));
    EXPECT_FALSE(bench.Synchro().Enabled());
}

TEST(CtlExperiment2ChoiceTest, ManipulatorChangeInTheViewMovesTheLampAndNothingElse) {
    CtlExperiment2Rig bench;
    bench.EnterView();
    bench.Forget();
    bench.panel.ManipulatorChange(3);
    EXPECT_EQ(bench.State(), "Needle 4");
    EXPECT_EQ(bench.PressedMoves(), "4");
    EXPECT_TRUE(bench.PresentView().isHidden());
    EXPECT_FALSE(bench.Synchro().Enabled());
    EXPECT_FALSE(bench.Escape(1).Enabled());
    EXPECT_THAT(bench.Take(), IsEmpty());
}

TEST(CtlExperiment2ChoiceTest, ManipulatorChangeToAnIndexWithoutALampIsAFailure) {
    CtlExperiment2Rig bench;
    EXPECT_THROW(bench.panel.ManipulatorChange(-1), BoundsFailure);
    EXPECT_THROW(bench.panel.ManipulatorChange(5), BoundsFailure);
}

TEST(CtlExperiment2ChoiceTest, TheViewButtonTellsTheCameraAndAsksForFreshValues) {
    CtlExperiment2Rig bench;
    bench.Click(bench.ViewMoves());
    EXPECT_EQ(bench.Take(), Joined({bench.Start, {bench.End}}));
    EXPECT_EQ(bench.State(), "View");
    EXPECT_EQ(bench.PressedMoves(), "V");
    // Pressed again it stays pressed in.
    bench.Click(bench.ViewMoves());
    EXPECT_EQ(bench.PressedMoves(), "V");
}

TEST(CtlExperiment2ChoiceTest, WithoutACameraTheViewButtonAsksForFreshValuesAlone) {
    CtlExperiment2Rig bench;
    bench.rig.camera.TellWindowClose();
    bench.Forget();
    bench.Click(bench.ViewMoves());
    EXPECT_THAT(bench.Take(), ElementsAre("port 2 > Ar\r\n", "port 1 > rD2R\r", "port 1 > rD1R\r"));
    EXPECT_EQ(bench.State(), "View");
}

TEST(CtlExperiment2ChoiceTest, TheViewWithThePresentViewAsTargetFallsToCellAWhetherOrNotItIsSet) {
    for (const bool isSet : {false, true}) {
        CtlExperiment2Rig bench;
        if (isSet) {
            bench.Store(0);
        }
        bench.Click(bench.PresentView());
        bench.Click(bench.ViewMoves());
        EXPECT_EQ(bench.TargetLamp(), "0");
        EXPECT_EQ(bench.PressedTargets(), "A");
        EXPECT_EQ(bench.panel.intCellNo(), 0);
    }
}

TEST(CtlExperiment2ChoiceTest, TheViewKeepsACellAsItsTarget) {
    CtlExperiment2Rig bench;
    bench.Store(5);
    bench.Click(bench.Cell(5));
    bench.Click(bench.ViewMoves());
    EXPECT_EQ(bench.TargetLamp(), "5");
    EXPECT_EQ(bench.PressedTargets(), "F");
}

// How many needles there are.

TEST(CtlExperiment2ChoiceTest, TotalManipulatorNumber0EnablesExactlyOneNeedleButton) {
    CtlExperiment2Rig bench;
    bench.Connected(0);
    bench.panel.TotalManipulatorNumber(0);
    EXPECT_EQ(bench.EnabledNeedles(), "1");
    EXPECT_EQ(bench.State(), "Needle 1");
    EXPECT_EQ(bench.PressedMoves(), "1");
}

TEST(CtlExperiment2ChoiceTest, TotalManipulatorNumber3EnablesAllNeedleButtonsAndSelectsNeedle1) {
    CtlExperiment2Rig bench;
    bench.rig.state.intManipulatorNumber = -1;
    bench.Click(bench.Needle(3));
    bench.Forget();
    bench.panel.TotalManipulatorNumber(3);
    EXPECT_EQ(bench.EnabledNeedles(), "1234");
    EXPECT_EQ(bench.State(), "Needle 1");
    EXPECT_THAT(bench.Take(), ElementsAre("DriverSelect 1"));
}

TEST(CtlExperiment2ChoiceTest, TotalManipulatorNumber4EnablesTheFourButtonsThatThereAreAndSelectsNeedle1) {
    CtlExperiment2Rig bench;
    bench.rig.driver.count = 5;
    bench.rig.state.intManipulatorNumber = 4;
    bench.EnterView();
    bench.Connected(4);
    bench.Forget();
    bench.panel.TotalManipulatorNumber(4);
    EXPECT_EQ(bench.EnabledNeedles(), "1234");
    EXPECT_EQ(bench.State(), "Needle 1");
    EXPECT_THAT(bench.Take(), ElementsAre("DriverSelect 1"));
}

TEST(CtlExperiment2ChoiceTest, WithoutANeedleTheViewIsAllThatMoves) {
    CtlExperiment2Rig bench;
    bench.EnterViewOnly();
    EXPECT_EQ(bench.EnabledNeedles(), "");
    EXPECT_EQ(bench.MoveLamp(), "4");
    EXPECT_TRUE(bench.ViewMoves().Value());
    EXPECT_TRUE(bench.PresentView().isHidden());
    EXPECT_FALSE(bench.Synchro().Enabled());
    EXPECT_FALSE(bench.Escape(1).Enabled());
}

TEST(CtlExperiment2ChoiceTest, ALostManipulatorLeavesTheCellPositions) {
    CtlExperiment2Rig bench;
    bench.Store(2);
    bench.Click(bench.Cell(2));
    bench.EnterViewOnly();
    EXPECT_EQ(bench.EnabledCells(), "C");
    EXPECT_EQ(bench.PressedTargets(), "C");
    EXPECT_EQ(bench.TargetLamp(), "2");
}

// Where to.

TEST(CtlExperiment2ChoiceTest, APositionButtonReleasesItsNeighboursAndMovesTheLamp) {
    CtlExperiment2Rig bench;
    for (int cell = 0; cell < CellCount; ++cell) {
        bench.SetCell(cell);
    }
    bench.panel.Shown();
    for (int cell = 0; cell < CellCount; ++cell) {
        bench.Click(bench.Cell(cell));
        EXPECT_EQ(bench.PressedTargets(), std::string(1, static_cast<char>('A' + cell)));
        EXPECT_EQ(bench.TargetLamp(), std::to_string(cell));
        EXPECT_EQ(bench.panel.intCellNo(), cell);
    }
    EXPECT_THAT(bench.Take(), IsEmpty());
}

TEST(CtlExperiment2ChoiceTest, APositionButtonPressedAgainStaysPressedIn) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.Click(bench.Cell(0));
    EXPECT_EQ(bench.PressedTargets(), "A");
}

TEST(CtlExperiment2ChoiceTest, APositionThatIsNotSetCannotBePressed) {
    CtlExperiment2Rig bench;
    bench.Store(1);
    bench.Click(bench.Cell(2));
    EXPECT_EQ(bench.panel.intCellNo(), 0);
    EXPECT_EQ(bench.TargetLamp(), "0");
}

TEST(CtlExperiment2ChoiceTest, PresentViewAsTargetReleasesTheCellsAndTellsTheCamera) {
    CtlExperiment2Rig bench;
    bench.Store(3);
    bench.Click(bench.Cell(3));
    bench.Forget();
    bench.Click(bench.PresentView());
    EXPECT_EQ(bench.PressedTargets(), "V");
    EXPECT_EQ(bench.TargetLamp(), "8");
    EXPECT_EQ(bench.panel.intCellNo(), CtlExperiment2::PresentView);
    EXPECT_EQ(bench.State(), "Needle 1");
    EXPECT_EQ(bench.Take(), Joined({bench.Start, {bench.End}}));
    bench.Click(bench.Cell(3));
    EXPECT_EQ(bench.PressedTargets(), "D");
}

}  // namespace
}  // namespace travo::test
