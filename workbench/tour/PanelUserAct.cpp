#include "workbench/tour/PanelUserAct.h"

#include <algorithm>
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

// Where a needle is to stop for a place: short of it along its own axis in plan, and above it.
WorkbenchClient::Place WithOffsets(PanelPlay& play, std::int32_t needle, const WorkbenchClient::Place& place,
                                   double xy, double z) {
    std::istringstream mount(play.stage.Workbench().Ask("mount " + std::to_string(needle + 1)));
    double heading = 0.0;
    Require(static_cast<bool>(mount >> heading), "the world does not tell how a needle is mounted");
    const double radians = heading * std::numbers::pi / 180.0;
    return {place[0] - xy * std::cos(radians), place[1] - xy * std::sin(radians), place[2] + z};
}

void SeeOffsetsInLandings(PanelPlay& play) {
    OpenUser(play);
    ApplyOffsets(play, 40, 100);
    play.stage.SavePicture(QStringLiteral("panel-user"));
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

// Pictures alone: the way through the steps is proved by the tests of the main window.
void LookAtTheSteps(PanelPlay& play) {
    constexpr int LastStep = 4;
    OpenUser(play);
    play.hands.Press(QStringLiteral("Step mode"));
    for (int step = 0; step <= LastStep; ++step) {
        play.stage.SavePicture(QStringLiteral("panel-step-%1").arg(step));
        play.hands.Press(step < LastStep ? QStringLiteral("Next") : QStringLiteral("User settings"));
    }
    play.stage.SavePicture(QStringLiteral("panel-step-user"));
    play.hands.Press(QStringLiteral("Tab mode"));
}

void TakeOffsetsAway(PanelPlay& play) {
    OpenUser(play);
    play.hands.Press(MinimumOff);
    ApplyOffsets(play, 0, 0);
}

}  // namespace

void PlayPanelUserAct(PanelPlay& play) {
    SeeOffsetsInLandings(play);
    SwitchContactCheck(play);
    LookAtTheSteps(play);
    TakeOffsetsAway(play);
}

}  // namespace workbench::tour
