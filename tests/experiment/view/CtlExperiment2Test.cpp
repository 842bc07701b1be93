// What the panel looks like from creation on, and what a change of panel, the magnification and the mirror's
// motors do to it.
#include <gmock/gmock.h>

#include "experiment/view/CtlExperiment2Rig.h"

namespace travo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A panel on which nobody has called anything yet.
class NewPanel {
public:
    PanelRig rig;
    NoNeedles needles;
    CtlExperiment2 panel{{rig.state, rig.communication, rig.needleMove, rig.needleSynchro, rig.escape,
                          rig.mirrorMove, rig.live, rig.boxes, rig.timers, rig.failures, needles},
                         QString(),
                         nullptr};
    bool Seen(const char* name, int index) const {
        return !panel.findChild<QWidget*>(Indexed(QString::fromLatin1(name), index))->isHidden();
    }
    usrKVCheckButton& Check(const char* name, int index) const {
        return *panel.findChild<usrKVCheckButton*>(Indexed(QString::fromLatin1(name), index));
    }
};

TEST(CtlExperiment2Test, AtCreationCellAAndNeedleOneAreLitAndAllPositionButtonsAreDisabled) {
    const NewPanel bench;
    EXPECT_EQ(bench.panel.objectName(), QStringLiteral("CtlExperiment1"));
    EXPECT_EQ(bench.panel.intCellNo(), 0);
    for (int cell = 0; cell < CellCount; ++cell) {
        EXPECT_FALSE(bench.Check("usrKVCheckButton2", cell).Enabled()) << cell;
        EXPECT_EQ(bench.Check("usrKVCheckButton2", cell).Value(), cell == 0) << cell;
        EXPECT_EQ(bench.Seen("imgMCellNo", cell), cell == 0) << cell;
    }
    EXPECT_FALSE(bench.Seen("imgMCellNo", 8));
    for (int lamp = 0; lamp <= 4; ++lamp) {
        EXPECT_EQ(bench.Seen("imgMManiNo", lamp), lamp == 0) << lamp;
    }
}

TEST(CtlExperiment2Test, AtCreationTheModesAreOffAndTheEscapesAreDisabled) {
    const NewPanel bench;
    EXPECT_FALSE(bench.Check("usrKVCheckButton3", 0).Value());
    EXPECT_FALSE(bench.Check("usrKVCheckButton3", 1).Value());
    for (int escape = 0; escape < 2; ++escape) {
        const QString name = Indexed(QStringLiteral("usrKVButton2"), escape);
        EXPECT_FALSE(bench.panel.findChild<usrKVButton*>(name)->Enabled()) << escape;
    }
    EXPECT_TRUE(bench.Seen("usrKVCheckButton4", 1));
}

TEST(CtlExperiment2Test, AtCreationTheArrowTimerRunsWithAPeriodOf500Milliseconds) {
    const NewPanel bench;
    ASSERT_EQ(bench.rig.timers.created.size(), 1U);
    EXPECT_TRUE(bench.rig.timers.created[0]->enabled);
    EXPECT_EQ(bench.rig.timers.created[0]->interval, 500);
    for (int frame = 0; frame <= 4; ++frame) {
        EXPECT_EQ(bench.Seen("Image2", frame), frame <= 1) << frame;
    }
}

TEST(CtlExperiment2Test, TheArrowRunsThroughItsThreeFramesAndTouchesNoDevice) {
    CtlExperiment2Rig bench;
    std::vector<std::string> frames{bench.Arrow()};
    for (int tick = 0; tick < 4; ++tick) {
        bench.Timer1.Fire();
        frames.push_back(bench.Arrow());
    }
    EXPECT_THAT(frames, ElementsAre("1", "2", "3", "1", "2"));
    EXPECT_THAT(bench.Take(), IsEmpty());
    EXPECT_FALSE(bench.Image("Image2", 0).isHidden());
}

// The panel comes.

TEST(CtlExperiment2Test, ShownWithThePortClosedDisablesMoveCellsAndViewButtons) {
    CtlExperiment2Rig bench;
    bench.SetCell(0);
    bench.rig.communication.MirrorPortClose();
    bench.panel.Shown();
    EXPECT_FALSE(bench.Move().Enabled());
    EXPECT_EQ(bench.EnabledCells(), "");
    EXPECT_FALSE(bench.ViewMoves().Enabled());
    EXPECT_FALSE(bench.PresentView().Enabled());
    EXPECT_FALSE(bench.Direct().Enabled());
}

TEST(CtlExperiment2Test, ShownWithTheMirrorMotorsOffEnablesMoveAlone) {
    CtlExperiment2Rig bench;
    bench.SetCell(0);
    bench.rig.state.bMirrorMotorONOFF = false;
    bench.panel.Shown();
    EXPECT_TRUE(bench.Move().Enabled());
    EXPECT_EQ(bench.EnabledCells(), "");
    EXPECT_FALSE(bench.ViewMoves().Enabled());
    EXPECT_FALSE(bench.PresentView().Enabled());
    EXPECT_FALSE(bench.Direct().Enabled());
}

TEST(CtlExperiment2Test, ShownWithTheMirrorMotorsOnEnablesTheCellsThatAreSet) {
    CtlExperiment2Rig bench;
    bench.SetCell(1);
    bench.SetCell(7);
    // A row counts as set by its X alone.
    bench.SetCell(2, {NoPositionValue, 5, 5});
    bench.SetCell(4, {5, NoPositionValue, NoPositionValue});
    bench.panel.Shown();
    EXPECT_EQ(bench.EnabledCells(), "BEH");
    EXPECT_TRUE(bench.ViewMoves().Enabled());
    EXPECT_TRUE(bench.PresentView().Enabled());
    EXPECT_TRUE(bench.Direct().Enabled());
}

TEST(CtlExperiment2Test, ShownGivesTheObjectiveEscapeWithTheMotorPortAndTheNeedleEscapeWithANeedle) {
    CtlExperiment2Rig bench;
    bench.EnterView();
    EXPECT_FALSE(bench.Escape(1).Enabled());
    bench.panel.Shown();
    EXPECT_TRUE(bench.Escape(0).Enabled());
    EXPECT_TRUE(bench.Escape(1).Enabled());
    bench.rig.communication.MotorPortClose();
    bench.EnterViewOnly();
    bench.panel.Shown();
    EXPECT_FALSE(bench.Escape(0).Enabled());
    EXPECT_FALSE(bench.Escape(1).Enabled());
}

TEST(CtlExperiment2Test, HiddenOutsideTheSynchronisedModeChangesNothing) {
    CtlExperiment2Rig bench;
    bench.Store(1);
    bench.Click(bench.Cell(1));
    bench.Click(bench.Direct());
    bench.Forget();
    bench.panel.Hidden();
    EXPECT_EQ(bench.State(), "Needle 1");
    EXPECT_EQ(bench.PressedTargets(), "B");
    EXPECT_TRUE(bench.Direct().Value());
    EXPECT_THAT(bench.Take(), IsEmpty());
}

// Magnification.

TEST(CtlExperiment2Test, At035xTheViewButtonsAreDeadAndBothModesAreOff) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.Click(bench.Direct());
    bench.Magnification(1);
    EXPECT_FALSE(bench.ViewMoves().Enabled());
    EXPECT_FALSE(bench.PresentView().Enabled());
    EXPECT_FALSE(bench.Direct().Enabled());
    EXPECT_FALSE(bench.Direct().Value());
    EXPECT_FALSE(bench.Synchro().Enabled());
    // Needles and escapes stay.
    EXPECT_EQ(bench.EnabledNeedles(), "1234");
    EXPECT_TRUE(bench.Move().Enabled());
    EXPECT_TRUE(bench.Escape(0).Enabled());
    EXPECT_TRUE(bench.Escape(1).Enabled());
    EXPECT_EQ(bench.EnabledCells(), "A");
}

TEST(CtlExperiment2Test, Magnifications0And2And3BehaveAlike) {
    for (const std::int16_t magnification : std::initializer_list<std::int16_t>{0, 2, 3}) {
        CtlExperiment2Rig bench;
        bench.Magnification(1);
        bench.Magnification(magnification);
        EXPECT_TRUE(bench.ViewMoves().Enabled()) << magnification;
        EXPECT_TRUE(bench.PresentView().Enabled()) << magnification;
        EXPECT_TRUE(bench.Direct().Enabled()) << magnification;
        EXPECT_TRUE(bench.Synchro().Enabled()) << magnification;
    }
}

TEST(CtlExperiment2Test, AMagnificationInTheViewLeavesSynchroAsItIs) {
    CtlExperiment2Rig bench;
    bench.EnterView();
    bench.Magnification(1);
    bench.Magnification(2);
    EXPECT_FALSE(bench.Synchro().Enabled());
    // The needle escape comes back with any magnification while a needle is connected.
    EXPECT_TRUE(bench.Escape(1).Enabled());
}

TEST(CtlExperiment2Test, AMagnificationWithoutANeedleLeavesSynchroAndNeedleEscapeDisabled) {
    CtlExperiment2Rig bench;
    bench.EnterViewOnly();
    bench.Magnification(2);
    EXPECT_FALSE(bench.Synchro().Enabled());
    EXPECT_FALSE(bench.Escape(1).Enabled());
    bench.rig.communication.MotorPortClose();
    bench.Magnification(3);
    EXPECT_FALSE(bench.Escape(0).Enabled());
}

TEST(CtlExperiment2Test, DirectModeIsReallyOffAfter035xAndBack) {
    CtlExperiment2Rig bench;
    bench.Store(1);
    bench.EnterView();
    bench.Click(bench.Direct());
    bench.Magnification(1);
    bench.Magnification(2);
    bench.Forget();
    bench.Click(bench.Cell(1));
    EXPECT_THAT(bench.Take(), IsEmpty());
}

// Mirror motors.

TEST(CtlExperiment2Test, MirrorMotorsOffDisableCellsViewButtonsAndDirectButNotMove) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.panel.checkMotor(false);
    EXPECT_EQ(bench.EnabledCells(), "");
    EXPECT_FALSE(bench.Direct().Enabled());
    EXPECT_FALSE(bench.ViewMoves().Enabled());
    EXPECT_FALSE(bench.PresentView().Enabled());
    EXPECT_TRUE(bench.Move().Enabled());
    bench.panel.checkMotor(true);
    EXPECT_EQ(bench.EnabledCells(), "A");
    EXPECT_TRUE(bench.Direct().Enabled());
    EXPECT_TRUE(bench.ViewMoves().Enabled());
    EXPECT_TRUE(bench.PresentView().Enabled());
    EXPECT_TRUE(bench.Move().Enabled());
}

TEST(CtlExperiment2Test, AnyMotorReportButZeroIsOn) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    for (const std::int16_t report : std::initializer_list<std::int16_t>{1, 2, -1}) {
        bench.panel.checkMotor(false);
        bench.panel.checkMotor(report);
        EXPECT_EQ(bench.EnabledCells(), "A") << report;
    }
    constexpr std::int16_t Two = 2;
    bench.panel.checkMotor(false);
    bench.panel.checkMotor(Two);
    EXPECT_TRUE(bench.ViewMoves().Enabled());
}

TEST(CtlExperiment2Test, MirrorMotorsAt035xTouchTheCellsAlone) {
    CtlExperiment2Rig bench;
    bench.Store(0);
    bench.Magnification(1);
    bench.panel.checkMotor(false);
    EXPECT_EQ(bench.EnabledCells(), "");
    bench.panel.checkMotor(true);
    EXPECT_EQ(bench.EnabledCells(), "A");
    EXPECT_FALSE(bench.Direct().Enabled());
    EXPECT_FALSE(bench.ViewMoves().Enabled());
    EXPECT_FALSE(bench.PresentView().Enabled());
}

TEST(CtlExperiment2Test, ACellStoredWhileThePanelIsOnShowIsEnabledWithTheNextMotorReport) {
    CtlExperiment2Rig bench;
    bench.SetCell(6);
    EXPECT_EQ(bench.EnabledCells(), "");
    bench.panel.checkMotor(true);
    EXPECT_EQ(bench.EnabledCells(), "G");
}

}  // namespace
}  // namespace travo::test
