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
    BeRefusedForContact(play);
    play.stage.RequireBoxesAsExpected();
}

}  // namespace workbench::tour
