// The move button, the direct mode and the escapes: what goes to camera, instruments and needle, in order.
#include <gmock/gmock.h>

#include "core/ground/Arithmetic.h"
#include "experiment/view/CtlExperiment2Rig.h"

namespace travo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Target = std::array<std::int32_t, 3>;

constexpr std::int32_t ZOffset = 100;

// Where a straight needle is sent for a place in the common frame.
Target ManipulatorTarget(const PositionXYZ& common) {
    return {common[0] + CtlExperiment2Rig::Centre, common[1] + CtlExperiment2Rig::Centre,
            common[2] + CtlExperiment2Rig::Centre + ZOffset};
}

// The mirror to the cell and the objective to its height, from TheView.
const Journal ViewToTheCell{"port 1 > cD2A500\r", "port 1 > cD1A-20\r", "port 3 > RELMOVEZ10000\r",
                            "ControlONOFF 0"};

TEST(CtlExperiment2MoveTest, ANeedleMovesOnceToTheCellAndThePanelFallsBackToTheView) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.Click(bench.Move());
    EXPECT_THAT(bench.rig.driver.moves, ElementsAre(ManipulatorTarget(CtlExperiment2Rig::TheCellInCommon)));
    EXPECT_EQ(bench.State(), "View");
    EXPECT_EQ(bench.PressedTargets(), "A");
    EXPECT_EQ(bench.Take(), Joined({bench.Start, {"DriverMoveTo"}, bench.Start, {bench.End, bench.End}}));
    EXPECT_THAT(bench.rig.boxes.Texts(), IsEmpty());
}

TEST(CtlExperiment2MoveTest, TheViewMovesToTheCellAndStaysChosen) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.EnterView();
    bench.Forget();
    bench.Click(bench.Move());
    EXPECT_EQ(bench.State(), "View");
    EXPECT_EQ(bench.Take(), Joined({bench.Start, ViewToTheCell, bench.Start, {bench.End, bench.End}}));
    EXPECT_THAT(bench.rig.driver.moves, IsEmpty());
}

TEST(CtlExperiment2MoveTest, AHundredQuickPressesMoveTheNeedleOnceAndThenTheView) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    for (int press = 0; press < 100; ++press) {
        bench.Click(bench.Move());
    }
    const Journal journal = bench.Take();
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "DriverMoveTo"), 1);
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "port 1 > cD2A500\r"), 99);
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "LiveActionStart"), 200);
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "LiveActionEnd"), 200);
    EXPECT_EQ(bench.rig.driver.moves.size(), 1U);
    EXPECT_EQ(bench.State(), "View");
    // Nothing is left for the event loop.
    EXPECT_THAT(bench.rig.eventLoop.queued, IsEmpty());
    QCoreApplication::processEvents();
    EXPECT_THAT(bench.Take(), IsEmpty());
}

TEST(CtlExperiment2MoveTest, ASelectedCellThatIsNotSetKeepsTheNeedleAndLeavesTheActionOpen) {
    CtlExperiment2Rig bench;
    bench.Click(bench.Move());
    EXPECT_EQ(bench.rig.boxes.Texts(), QStringList(QStringLiteral("Please set cell position.")));
    EXPECT_EQ(bench.rig.boxes.shown.at(0).buttons, platform::BoxButtons::OK);
    EXPECT_EQ(bench.rig.boxes.shown.at(0).icon, platform::BoxIcon::None);
    EXPECT_EQ(bench.Take(), Joined({bench.Start, {"box Please set cell position."}}));
    EXPECT_EQ(bench.State(), "Needle 1");
    EXPECT_EQ(bench.PressedMoves(), "1");
    EXPECT_EQ(bench.PressedTargets(), "A");
    EXPECT_THAT(bench.rig.driver.moves, IsEmpty());
}

TEST(CtlExperiment2MoveTest, TheMessageOfACellThatIsNotSetIsNotWrittenToTheLog) {
    CtlExperiment2Rig bench;
    bench.Click(bench.Move());
    EXPECT_FALSE(bench.rig.Log().contains("Please set cell position."));
}

TEST(CtlExperiment2MoveTest, TheViewAt035xIsRefusedAndTheActionIsEnded) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.EnterView();
    bench.Magnification(1);
    bench.Forget();
    bench.Click(bench.Move());
    EXPECT_EQ(bench.rig.boxes.Texts(), QStringList(QStringLiteral("Tiltig mirror doesn't move at 0.35x.")));
    EXPECT_EQ(bench.rig.boxes.shown.at(0).buttons, platform::BoxButtons::OK);
    EXPECT_EQ(bench.Take(), Joined({bench.Start,
                                    {"box Tiltig mirror doesn't move at 0.35x."},
                                    bench.Start,
                                    {bench.End, bench.End}}));
    EXPECT_EQ(bench.State(), "View");
}

TEST(CtlExperiment2MoveTest, ANeedleStillMovesAt035x) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.Magnification(1);
    bench.Click(bench.Move());
    EXPECT_EQ(bench.rig.driver.moves.size(), 1U);
    EXPECT_EQ(bench.State(), "View");
    EXPECT_THAT(bench.rig.boxes.Texts(), IsEmpty());
}

TEST(CtlExperiment2MoveTest, WithTheMirrorMotorsOffMoveTakesWhateverIsSelected) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.panel.checkMotor(false);
    bench.Click(bench.Move());
    EXPECT_THAT(bench.rig.driver.moves, ElementsAre(ManipulatorTarget(CtlExperiment2Rig::TheCellInCommon)));
}

TEST(CtlExperiment2MoveTest, TheOperatorMustChooseTheNeedleAgainForItsNextMove) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.Click(bench.Move());
    bench.Click(bench.Needle(0));
    bench.Click(bench.Move());
    EXPECT_EQ(bench.rig.driver.moves.size(), 2U);
    EXPECT_EQ(bench.State(), "View");
}

TEST(CtlExperiment2MoveTest, ARefusedNeedleMoveGoesToTheViewInTheSameWay) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.OnlyCalibrated(3);
    bench.Click(bench.Move());
    EXPECT_EQ(bench.rig.boxes.Texts(), QStringList(QStringLiteral("Please do the calibration. ")));
    EXPECT_EQ(bench.State(), "View");
    EXPECT_EQ(
        bench.Take(),
        Joined({bench.Start, {"box Please do the calibration. "}, bench.Start, {bench.End, bench.End}}));
}

TEST(CtlExperiment2MoveTest, AFailedNeedleMoveGoesToTheViewInTheSameWay) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.rig.driver.failing = {"DriverMoveTo"};
    bench.Click(bench.Move());
    EXPECT_EQ(bench.State(), "View");
    EXPECT_EQ(bench.rig.boxes.shown.size(), 1U);
    EXPECT_EQ(bench.Take().back(), bench.End);
}

TEST(CtlExperiment2MoveTest, AFailureOfTheStandOffReachesTheCallerAndNothingIsRolledBack) {
    CtlExperiment2Rig bench;
    bench.Store(0, {0, 0, std::numeric_limits<std::int32_t>::max()});
    EXPECT_THROW(bench.Click(bench.Move()), OverflowFailure);
    EXPECT_EQ(bench.State(), "Needle 1");
    EXPECT_EQ(bench.Take(), bench.Start);
}

TEST(CtlExperiment2MoveTest, WithThePresentViewANeedleMovesToTheViewAndTheGaugeGivesItsZ) {
    CtlExperiment2Rig bench;
    bench.Click(bench.PresentView());
    bench.Forget();
    bench.Click(bench.Move());
    EXPECT_THAT(bench.rig.driver.moves, ElementsAre(ManipulatorTarget({-50, 26, 300})));
    // The present view cannot be the view's own target.
    EXPECT_EQ(bench.State(), "View");
    EXPECT_EQ(bench.PressedTargets(), "A");
}

TEST(CtlExperiment2MoveTest, WithThePresentViewAndNoGaugeTheTargetsZIs0) {
    CtlExperiment2Rig bench;
    bench.View({10, -5, NoPositionValue});
    bench.Click(bench.PresentView());
    bench.Forget();
    bench.Click(bench.Move());
    EXPECT_THAT(bench.rig.driver.moves, ElementsAre(ManipulatorTarget({-50, 26, 0})));
}

TEST(CtlExperiment2MoveTest, AHeightThatIsNotSetBecomes0ForANeedleOnly) {
    CtlExperiment2Rig bench;
    bench.Store(0, {500, -20, NoPositionValue});
    bench.Click(bench.Move());
    EXPECT_THAT(bench.rig.driver.moves, ElementsAre(ManipulatorTarget({-2500, 101, 0})));
    bench.Forget();
    bench.Click(bench.Move());
    EXPECT_EQ(bench.Take(), Joined({bench.Start,
                                    {"port 1 > cD2A500\r", "port 1 > cD1A-20\r",
                                     "box Escape : Prease setting objective escape position"},
                                    bench.Start,
                                    {bench.End, bench.End}}));
}

TEST(CtlExperiment2MoveTest, ExactTiesOfTheMirrorsXGoToTheEvenNeighbour) {
    struct Row {
        std::int32_t mirrorX;
        std::int32_t commonX;
    };
    for (const Row& row : {Row{1, -4}, Row{2, -10}, Row{-1, 6}, Row{-2, 10}, Row{0, 0}}) {
        CtlExperiment2Rig bench;
        bench.Store(0, {row.mirrorX, 0, 0});
        bench.Click(bench.Move());
        EXPECT_THAT(bench.rig.driver.moves, ElementsAre(ManipulatorTarget({row.commonX, 0, 0})))
            << row.mirrorX;
    }
}

TEST(CtlExperiment2MoveTest, WithoutANeedleThePresentViewAsTargetSendsTheMirrorWhereItStands) {
    CtlExperiment2Rig bench;
    bench.Click(bench.PresentView());
    bench.EnterViewOnly();
    EXPECT_EQ(bench.panel.intCellNo(), CtlExperiment2::PresentView);
    bench.Forget();
    bench.Click(bench.Move());
    EXPECT_EQ(
        bench.Take(),
        Joined(
            {bench.Start, {"port 1 > cD2A10\r", "port 1 > cD1A-5\r"}, bench.Start, {bench.End, bench.End}}));
    EXPECT_EQ(bench.State(), "ViewOnly");
    EXPECT_EQ(bench.PressedTargets(), "A");
}

TEST(CtlExperiment2MoveTest, AnIllCameraDoesNotKeepTheNeedleFromItsMove) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.rig.camera.failing = {"LiveActionStart"};
    bench.Click(bench.Move());
    EXPECT_EQ(bench.rig.driver.moves.size(), 1U);
    EXPECT_EQ(bench.State(), "View");
    bench.rig.camera.TellFailure();
    EXPECT_FALSE(bench.rig.state.LiveOpen);
    EXPECT_THAT(bench.rig.boxes.Texts(), IsEmpty());
}

// The direct mode.

TEST(CtlExperiment2DirectTest, TheViewGoesToACellAsSoonAsItIsChosenAndTheCameraIsAskedNothing) {
    CtlExperiment2Rig bench;
    bench.Store(0, {1, 2, 300});
    bench.Store(4);
    bench.EnterView();
    bench.Forget();
    bench.Click(bench.Direct());
    EXPECT_THAT(bench.Take(), IsEmpty());
    bench.Click(bench.Cell(4));
    EXPECT_EQ(bench.Take(), ViewToTheCell);
    EXPECT_EQ(bench.PressedTargets(), "E");
    bench.Click(bench.Cell(0));
    EXPECT_THAT(bench.Take(), ElementsAre("port 1 > cD2A1\r", "port 1 > cD1A2\r"));
}

TEST(CtlExperiment2DirectTest, SwitchedOffAgainAChoiceOnlyChooses) {
    CtlExperiment2Rig bench;
    bench.Store(4);
    bench.EnterView();
    bench.Click(bench.Direct());
    bench.Click(bench.Direct());
    bench.Forget();
    bench.Click(bench.Cell(4));
    EXPECT_THAT(bench.Take(), IsEmpty());
}

TEST(CtlExperiment2DirectTest, WithANeedleChosenAChoiceOnlyChooses) {
    CtlExperiment2Rig bench;
    bench.Store(4);
    bench.Click(bench.Direct());
    bench.Click(bench.Cell(4));
    EXPECT_THAT(bench.Take(), IsEmpty());
    EXPECT_THAT(bench.rig.driver.moves, IsEmpty());
}

TEST(CtlExperiment2DirectTest, InDirectModeAtMagnification1TheSelectionChangesAndTheMirrorStaysStill) {
    CtlExperiment2Rig bench;
    bench.Store(4);
    bench.EnterView();
    bench.Click(bench.Direct());
    // Before the panel hears of it: then the mode would be off.
    bench.rig.state.CurrentMagnification(1);
    bench.Forget();
    bench.Click(bench.Cell(4));
    EXPECT_EQ(bench.PressedTargets(), "E");
    EXPECT_EQ(bench.TargetLamp(), "4");
    EXPECT_THAT(bench.Take(), IsEmpty());
    EXPECT_THAT(bench.rig.boxes.Texts(), IsEmpty());
}

TEST(CtlExperiment2DirectTest, ACellThatIsNotSetCannotBePressed) {
    CtlExperiment2Rig bench;
    bench.EnterView();
    bench.Click(bench.Direct());
    bench.Forget();
    EXPECT_FALSE(bench.Cell(4).Enabled());
    bench.Click(bench.Cell(4));
    EXPECT_THAT(bench.Take(), IsEmpty());
    EXPECT_EQ(bench.TargetLamp(), "0");
}

// The escapes.

TEST(CtlExperiment2EscapeTest, TheObjectiveGoesToItsEscapeHeightAndNothingElseHappens) {
    CtlExperiment2Rig bench;
    bench.rig.escape.ZEscapePosition(1300);
    bench.Click(bench.Escape(0));
    EXPECT_THAT(bench.Take(), ElementsAre("port 3 > RELMOVEZ100000\r", "ControlONOFF 0"));
    EXPECT_EQ(bench.State(), "Needle 1");
}

TEST(CtlExperiment2EscapeTest, WithNoGaugeTheObjectiveGoesFrom0AndTheViewsZStaysNotSet) {
    CtlExperiment2Rig bench;
    bench.View({10, -5, NoPositionValue});
    bench.rig.escape.ZEscapePosition(50);
    bench.Forget();
    bench.Click(bench.Escape(0));
    EXPECT_THAT(bench.Take(), ElementsAre("port 3 > RELMOVEZ5000\r", "ControlONOFF 0"));
    EXPECT_EQ(bench.rig.state.CurrentXYZ(2), NoPositionValue);
}

TEST(CtlExperiment2EscapeTest, TheNeedleGoesHomeAfterTheObjectiveAndTheSelectionStays) {
    CtlExperiment2Rig bench;
    bench.rig.escape.ZEscapePosition(305);
    const PositionXYZ home{-1000, 2000, 3000};
    for (std::int32_t axis = 0; axis < AxisCount; ++axis) {
        bench.rig.escape.NeedleEscape(0, axis, home[static_cast<std::size_t>(axis)]);
    }
    bench.Click(bench.Escape(1));
    EXPECT_THAT(bench.Take(), ElementsAre("port 3 > RELMOVEZ500\r", "ControlONOFF 0", "DriverMoveTo"));
    EXPECT_THAT(bench.rig.driver.moves, ElementsAre(Target{11000, 14000, 15000}));
    EXPECT_EQ(bench.State(), "Needle 1");
}

TEST(CtlExperiment2EscapeTest, DuringTheWaitForTheObjectiveFurtherButtonsCanBePressed) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.rig.escape.ZEscapePosition(10000);
    bool pressed = false;
    bench.rig.eventLoop.whileServed = [&] {
        if (!pressed) {
            pressed = true;
            EXPECT_TRUE(bench.Move().Enabled());
            bench.Click(bench.Move());
        }
    };
    bench.Click(bench.Escape(1));
    EXPECT_TRUE(pressed);
    EXPECT_EQ(bench.rig.driver.moves.size(), 1U);
    EXPECT_EQ(bench.State(), "View");
}

}  // namespace
}  // namespace travo::test
