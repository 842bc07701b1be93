#include "workbench/tour/PanelMoveAct.h"

#include <algorithm>
#include <cmath>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using travo::PositionXYZ;

// Common units: what the conversion's rounding and bias can cost the view, in plan and in height.
constexpr double ViewTolerance = 1.0;

void SendNeedles(PanelPlay& play) {
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        double worst = 0.0;
        for (std::int32_t cell = 0; cell < travo::CellCount; ++cell) {
            SendNeedleToCell(play, needle, cell);
            worst = std::max(worst, Miss(play, needle, play.cells[static_cast<std::size_t>(cell)].truth));
        }
        RetreatNeedle(play, needle);
        PrintLine(NeedleName(needle) + ": sent to A to H by buttons, back by escape; greatest true miss " +
                  NumberText(worst) + " common units");
        Require(worst <= PanelLandingGoal, NeedleName(needle) + " landed too far from a cell");
    }
    play.stage.SavePicture(QStringLiteral("panel-experiment"));
    RequireNoCrossing(play.stage);
}

double ViewMiss(PanelPlay& play, const StoredCell& cell) {
    const auto centre = play.stage.Workbench().ViewCentreNow();
    return std::hypot(centre[0] - cell.truth[0], centre[1] - cell.truth[1],
                      play.stage.Workbench().Focus().now - cell.truth[2]);
}

void WaitForCell(PanelPlay& play, const StoredCell& cell) {
    WaitForView(play.stage, cell.raw[0], cell.raw[1]);
    play.stage.WaitUntil([&] { return play.stage.State().CurrentXYZ(2) == cell.raw[2]; },
                         "the view is not in focus on its cell");
}

void SendView(PanelPlay& play) {
    double worst = 0.0;
    PressView(play);
    for (std::int32_t cell = 0; cell < travo::CellCount; ++cell) {
        const StoredCell& stored = play.cells[static_cast<std::size_t>(cell)];
        play.hands.Press(CellButton(cell));
        PressMove(play);
        WaitForCell(play, stored);
        worst = std::max(worst, ViewMiss(play, stored));
    }
    PrintLine("view sent to A to H by Move: at most " + NumberText(worst) +
              " units from where they were stored");
    Require(worst <= ViewTolerance, "the view missed a cell");
}

void JumpDirectly(PanelPlay& play) {
    play.hands.Press(QStringLiteral("Direct"));
    for (const std::int32_t cell : {1, BarringCell, 3}) {
        play.hands.Press(CellButton(cell));
        const StoredCell& stored = play.cells[static_cast<std::size_t>(cell)];
        WaitForCell(play, stored);
        Require(ViewMiss(play, stored) <= ViewTolerance, "the view missed a cell in direct mode");
    }
    play.hands.Press(QStringLiteral("Direct"));
    play.stage.RequireBoxesAsExpected();
    PrintLine("direct mode: the view jumps to B, G and D as soon as each is chosen");
}

void BeRefusedAt035(PanelPlay& play) {
    SetMagnification(play, 1);
    for (const QString& dead : {QStringLiteral("View"), QStringLiteral("Direct")}) {
        Require(!play.hands.Enabled(dead), dead.toStdString() + " is open at 0.35x");
    }
    const auto before = play.stage.Workbench().Mirror().atRest;
    play.hands.Press(CellButton(0));
    play.stage.Boxes().Expect(QStringLiteral("Tiltig mirror doesn't move at 0.35x."));
    PressMove(play);
    Require(play.stage.Workbench().Mirror().atRest == before, "the mirror moved at 0.35x");
    SetMagnification(play, 2);
    Require(play.hands.Enabled(QStringLiteral("View")), "the view stays locked at 2x");
    PrintLine("Move of the view at 0.35x: refused in its box, mirror still; open again at 2x");
}

void SwitchMirrorMotors(PanelPlay& play, bool on) {
    play.stage.Objects().cCommunication->SendMotorLock(on ? 1 : 0);
    play.stage.WaitUntil([&] { return play.stage.State().bMirrorMotorONOFF == on; },
                         "the mirror's motors are not reported as switched");
    Require(play.stage.Workbench().Mirror().motorsOn == on, "the world has the mirror's motors otherwise");
    for (std::int32_t cell = 0; cell < travo::CellCount; ++cell) {
        Require(play.hands.Enabled(CellButton(cell)) == on, "the cells do not follow the mirror's motors");
    }
}

void BeRefusedForContact(PanelPlay& play) {
    SendNeedleToCell(play, 0, BarringCell);
    BeRefusedBehindNeedle1(play);
    RetreatNeedle(play, 0);
    SendNeedleToCell(play, 1, BarredCell);
    const double miss = Miss(play, 1, play.cells[BarredCell].truth);
    Require(miss <= PanelLandingGoal, "needle 2 landed too far from its cell");
    RetreatNeedle(play, 1);
    RequireNoCrossing(play.stage);
    PrintLine(
        "needle 2 past needle 1: refused for contact; needle 1 retreated, it goes, with a true miss of " +
        NumberText(miss) + "; no true crossing");
}

}  // namespace

void PlayPanelMoveAct(PanelPlay& play) {
    StoreRetreats(play, 60);
    play.hands.OpenPanel(QStringLiteral("Experiment"), QStringLiteral("CtlExperiment1"));
    SendNeedles(play);
    SendView(play);
    JumpDirectly(play);
    BeRefusedAt035(play);
    SwitchMirrorMotors(play, false);
    SwitchMirrorMotors(play, true);
    PrintLine("mirror motors off and on: the world's as well, and the cells' buttons go dead and come back");
    BeRefusedForContact(play);
    play.stage.RequireBoxesAsExpected();
}

}  // namespace workbench::tour
