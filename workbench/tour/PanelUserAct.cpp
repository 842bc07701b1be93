#include "workbench/tour/PanelUserAct.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <sstream>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using travo::PositionXYZ;

const QString XYOffset = QStringLiteral("XY offset");
const QString ZOffset = QStringLiteral("Z offset");
const QString MinimumOff = QStringLiteral("Offset minimum off");
const QString ContactOff = QStringLiteral("Contact check off");

void OpenUser(PanelPlay& play) { play.hands.OpenPanel(QStringLiteral("User"), QStringLiteral("CtlUser1")); }

void OpenExperiment(PanelPlay& play) {
    play.hands.OpenPanel(QStringLiteral("Experiment"), QStringLiteral("CtlExperiment1"));
}

void ApplyOffsets(PanelPlay& play, std::int32_t xy, std::int32_t z) {
    play.hands.Type(XYOffset, QString::number(xy));
    play.hands.Type(ZOffset, QString::number(z));
    play.hands.Press(QStringLiteral("Apply offsets"));
    play.stage.RequireBoxesAsExpected();
}

void RequireOffsets(PanelPlay& play, std::int32_t xy, std::int32_t z) {
    Require(play.hands.Read(XYOffset).toInt() == xy && play.hands.Read(ZOffset).toInt() == z,
            "the boxes show other offsets");
    Require(play.stage.Objects().cNeedleMove->lngXYOffset == xy &&
                play.stage.Objects().cObjectiveUpDown->lngOffset == z,
            "the moves keep other offsets");
}

// Where a needle is to stop for a place: short of it along its own axis in plan, and above it.
WorkbenchClient::Place WithOffsets(PanelPlay& play, std::int32_t needle, const WorkbenchClient::Place& place,
                                   double xy, double z) {
    std::istringstream mount(play.stage.Workbench().Ask("mount " + std::to_string(needle + 1)));
    double heading = 0.0;
    Require(static_cast<bool>(mount >> heading), "the world does not tell how a needle is mounted");
    const double radians = heading * std::numbers::pi / 180.0;
    return {place[0] - xy * std::cos(radians), place[1] - xy * std::sin(radians), place[2] + z};
}

void ChangeOffsets(PanelPlay& play) {
    OpenUser(play);
    Require(play.hands.Read(QStringLiteral("Minimum Z offset")) == QLatin1String("100"),
            "the least Z offset is not shown as 100");
    ApplyOffsets(play, 40, 130);
    RequireOffsets(play, 40, 130);
    play.stage.Boxes().Expect(QStringLiteral("Z Offset changes to minimum value"));
    ApplyOffsets(play, 40, 50);
    RequireOffsets(play, 40, 100);
    play.stage.SavePicture(QStringLiteral("panel-user"));
    PrintLine("offsets 40 and 50 applied: Z below its minimum told in its box, 100 in force");
}

void SeeOffsetsInLandings(PanelPlay& play) {
    OpenExperiment(play);
    double worst = 0.0;
    double across = 0.0;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        for (const std::int32_t cell : {needle, 7 - needle}) {
            const WorkbenchClient::Place& truth = play.cells[static_cast<std::size_t>(cell)].truth;
            SendNeedleToCell(play, needle, cell);
            worst = std::max(worst, Miss(play, needle, WithOffsets(play, needle, truth, 40.0, 100.0)));
            across = std::max(across, Miss(play, needle, truth));
        }
        RetreatNeedle(play, needle);
    }
    PrintLine(
        "needles 1 to 4 at two cells each: true tips 40 back along their own axes and 100 above, within " +
        NumberText(worst) + " (from the cells themselves up to " + NumberText(across) + ")");
    Require(worst <= PanelLandingGoal, "a stand-off is not where it should be");
    RequireNoCrossing(play.stage);
}

void SwitchOffsetMinimum(PanelPlay& play) {
    OpenUser(play);
    play.hands.Press(MinimumOff);
    ApplyOffsets(play, 40, 20);
    RequireOffsets(play, 40, 20);
    play.hands.Press(MinimumOff);
    play.stage.RequireBoxesAsExpected();
    RequireOffsets(play, 40, 100);
    PrintLine("offset minimum off: 20 accepted without a box; on again: 100 in silence");
}

void SwitchContactCheck(PanelPlay& play) {
    OpenExperiment(play);
    SendNeedleToCell(play, 0, BarringCell);
    BeRefusedBehindNeedle1(play);
    RequireNoCrossing(play.stage);
    OpenUser(play);
    play.hands.Press(ContactOff);
    OpenExperiment(play);
    SendNeedleToCell(play, 1, BarredCell);
    const double miss = Miss(play, 1, WithOffsets(play, 1, play.cells[BarredCell].truth, 40.0, 100.0));
    Require(miss <= PanelLandingGoal, "needle 2 landed too far from its cell");
    RetreatNeedle(play, 1);
    const std::int64_t crossings = play.stage.Workbench().ShaftCrossings().inAll;
    OpenUser(play);
    play.hands.Press(ContactOff);
    OpenExperiment(play);
    BeRefusedBehindNeedle1(play);
    RetreatNeedle(play, 0);
    RequireNoCrossing(play.stage);
    PrintLine("contact check off: the refused move is made, true miss " + NumberText(miss) + ", " +
              std::to_string(crossings) + " true crossings; on again: refused as before");
}

void RequireStep(PanelPlay& play, const QString& panel, bool previous, bool next) {
    // A step whose panel this program does not have shows none.
    const QString expected = play.hands.HasPanel(panel) ? panel : QString();
    Require(play.hands.ShownPanel() == expected,
            "the step shows " + play.hands.ShownPanel().toStdString() + " instead of " + panel.toStdString());
    Require(play.hands.Enabled(QStringLiteral("Previous")) == previous &&
                play.hands.Enabled(QStringLiteral("Next")) == next,
            "Previous and Next are not as they should be at " + panel.toStdString());
}

void GoStepByStep(PanelPlay& play) {
    const std::array<QString, 5> steps{QStringLiteral("CtlConnection1"), QStringLiteral("CtlCalibration1"),
                                       QStringLiteral("CtlEscape1"), QStringLiteral("CtlCellPosition1"),
                                       QStringLiteral("CtlExperiment1")};
    const QString userSettings = QStringLiteral("User settings");
    const std::size_t last = steps.size() - 1;
    OpenUser(play);
    play.hands.Press(QStringLiteral("Step mode"));
    Require(!play.hands.OnShow(QStringLiteral("Experiment")), "the tabs are on show in step mode");
    for (std::size_t step = 0; step <= last; ++step) {
        RequireStep(play, steps[step], step > 0, step < last);
        play.stage.SavePicture(QStringLiteral("panel-step-%1").arg(step));
        if (step < last) {
            play.hands.Press(QStringLiteral("Next"));
        }
    }
    play.hands.Press(userSettings);
    RequireStep(play, QStringLiteral("CtlUser1"), false, false);
    play.stage.SavePicture(QStringLiteral("panel-step-user"));
    play.hands.Press(userSettings);
    for (std::size_t step = last; step > 0; --step) {
        RequireStep(play, steps[step], step > 0, step < last);
        play.hands.Press(QStringLiteral("Previous"));
    }
    RequireStep(play, steps[0], false, true);
    play.hands.Press(userSettings);
    play.hands.Press(QStringLiteral("Tab mode"));
    Require(play.hands.ShownPanel() == QLatin1String("CtlExperiment1"),
            "tab mode does not begin at its first");
    play.stage.RequireBoxesAsExpected();
    PrintLine("step mode: five steps forth and back, the user settings from the last one, then tabs again");
}

void TakeOffsetsAway(PanelPlay& play) {
    OpenUser(play);
    play.hands.Press(MinimumOff);
    ApplyOffsets(play, 0, 0);
    RequireOffsets(play, 0, 0);
}

}  // namespace

void PlayPanelUserAct(PanelPlay& play) {
    ChangeOffsets(play);
    SeeOffsetsInLandings(play);
    SwitchOffsetMinimum(play);
    SwitchContactCheck(play);
    GoStepByStep(play);
    TakeOffsetsAway(play);
}

}  // namespace workbench::tour
