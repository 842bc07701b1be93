#include "workbench/tour/SerialAct.h"

#include <cmath>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using travo::PositionXYZ;

// The world's view centre lies where the system's conversion says, but for its rounding and its bias of
// a half.
constexpr double ViewTolerance = 1.0;

void RequireTrueView(Stage& stage, std::int32_t x, std::int32_t y) {
    const PositionXYZ common = travo::MirrorToCommon({x, y, 0});
    const auto centre = stage.Workbench().ViewCentreNow();
    const double apart = std::hypot(centre[0] - common[0], centre[1] - common[1]);
    Require(apart <= ViewTolerance, "the view's centre is truly " + NumberText(apart) + " units off");
}

void MoveBySteps(Stage& stage) {
    travo::clsMirrorMove& mirror = *stage.Objects().cMirrorMove;
    mirror.MirrorMoveToCenter();
    WaitForView(stage, 0, 0);
    mirror.MirrorMove(0, 0, 10);
    WaitForView(stage, 10, 0);
    mirror.MirrorMove(1, 1, 1);
    WaitForView(stage, 10, -1);
    RequireTrueView(stage, 10, -1);
    PrintLine("view moved by steps: the world has it where the program says");
}

void GoToCells(Stage& stage) {
    double worst = 0.0;
    for (const WorkbenchClient::Cell& cell : stage.Workbench().Cells()) {
        const auto z = static_cast<std::int32_t>(std::lround(cell.place[2]));
        stage.Objects().cMirrorMove->MirrorMoveToCell({cell.mirrorX, cell.mirrorY, z});
        WaitForView(stage, cell.mirrorX, cell.mirrorY);
        WaitForZ(stage, z);
        const auto centre = stage.Workbench().ViewCentreNow();
        worst = std::max(worst, std::hypot(centre[0] - cell.place[0], centre[1] - cell.place[1]));
        Require(std::abs(stage.Workbench().Focus().now - z) <= 1.0, "a cell is not in focus");
    }
    PrintLine("view sent to every cell: at most " + NumberText(worst) + " units off, each in focus");
    Require(worst <= ViewTolerance, "the view truly missed a cell");
}

void MeetTheLimits(Stage& stage) {
    travo::clsMirrorMove& mirror = *stage.Objects().cMirrorMove;
    mirror.MirrorMoveToCell({175, 0, stage.State().CurrentXYZ(2)});
    WaitForView(stage, 175, 0);
    stage.Boxes().Expect(QStringLiteral("Movement limit X"));
    mirror.MirrorMove(0, 0, 6);
    stage.RequireBoxesAsExpected();
    Require(stage.Workbench().Mirror().atRest[0] == 175, "the mirror moved beyond its limit");
    // A cell beyond the range is sent as it stands; the controller itself reports its limit, once.
    stage.Boxes().Expect(QStringLiteral("Movement limit X"));
    stage.Objects().cCommunication->SendMirrorData(0, 500);
    stage.WaitUntil([&] { return stage.Boxes().AllCame(); }, "the controller's limit was not shown");
    mirror.MirrorMoveToCenter();
    WaitForView(stage, 0, 0);
    stage.RequireBoxesAsExpected();
    PrintLine("limits: refused by the program at 181, reported by the controller beyond 180, each told once");
}

void SetTheZeroPoint(Stage& stage) {
    stage.Workbench().MoveFocus(4000);
    WaitForZ(stage, 40);
    const PositionXYZ before = TruePlace(stage, 0);
    stage.Program().Loop().ZeroPointReset();
    WaitForZ(stage, 0);
    Require(std::abs(stage.Workbench().Gauge().zero - 40.0) <= 1.0,
            "the gauge's zero is not where it should be");
    stage.WaitOneTick();
    const std::int32_t z = stage.State().Needle(0, 2);
    Require(std::abs(z - (before[2] - 40)) <= 2, "the needles' heights did not follow the zero point");
    PrintLine("zero point set at 40: gauge, motor and needles count from there");
}

void RaiseAndEscape(Stage& stage) {
    ChooseNeedle(stage, 0);
    travo::clsEscape& escape = *stage.Objects().cEscape;
    const PositionXYZ home = {stage.State().Needle(0, 0), stage.State().Needle(0, 1),
                              stage.State().Needle(0, 2)};
    for (std::int32_t axis = 0; axis < travo::AxisCount; ++axis) {
        escape.NeedleEscape(0, axis, home[static_cast<std::size_t>(axis)]);
    }
    escape.ZEscapePosition(200);
    const PositionXYZ homeCounts = stage.Workbench().CountsOf(1);
    SendNeedle(stage, 0, {-100, -100, 0});
    stage.WaitOneTick();
    Require(stage.Workbench().CountsOf(1) != homeCounts, "needle 1 did not leave its home");
    std::int32_t z = stage.State().CurrentXYZ(2);
    escape.HomePositionEscape({}, z, stage.State().intTotalManipulatorNumber);
    stage.RequireBoxesAsExpected();
    WaitForZ(stage, 200);
    const double apart = LandingError(stage, 0, {home[0], home[1], home[2] + 40});
    PrintLine("escape: objective raised to 200, needle 1 home with an error of " + NumberText(apart));
    Require(apart <= 2.0, "needle 1 is not home");
    z = stage.State().CurrentXYZ(2);
    stage.Objects().cObjectiveUpDown->ObjectiveUpDown(z, 0);
    WaitForZ(stage, 0);
}

}  // namespace

void PlaySerialAct(Stage& stage) {
    PrintHeading("Act 2: mirror, focus and gauge on their wires");
    stage.OpenProgram();
    OpenPorts(stage);
    PrintLine("three ports opened: mirror, gauge and motor have answered");
    SetMagnification2x(stage);
    PrintLine("2x set and reported");
    MoveBySteps(stage);
    GoToCells(stage);
    MeetTheLimits(stage);
    SetTheZeroPoint(stage);
    RaiseAndEscape(stage);
    RequireNoCrossing(stage);
}

}  // namespace workbench::tour
