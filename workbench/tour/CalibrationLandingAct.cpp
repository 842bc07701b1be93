#include "workbench/tour/CalibrationLandingAct.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "workbench/tour/Handling.h"
#include "workbench/tour/PanelCellAct.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using travo::PositionXYZ;
using Truths = std::array<WorkbenchClient::Place, travo::NeedleCount>;

// Z units.
constexpr std::int32_t ObjectiveRetreat = 60;
// Of the cells from the centre, in common units.
constexpr double FieldRadius = 900.0;
// Mirror counts and Z, in all directions from the centre and nearly as far as the field goes, and at it.
constexpr std::array<PositionXYZ, travo::CellCount> Places{{{126, 126, 20},
                                                            {-178, 0, -30},
                                                            {-60, -110, 40},
                                                            {0, 0, 0},
                                                            {126, -126, 0},
                                                            {-20, 177, 10},
                                                            {-126, -126, -20},
                                                            {40, 15, 30}}};

void RecordObjective(PanelPlay& play) {
    AimView(play, {0, 0, ObjectiveRetreat});
    play.hands.Press(QStringLiteral("Set objective"));
}

// Where the needles truly stand then.
Truths RecordEscapes(PanelPlay& play) {
    play.hands.OpenPanel(QStringLiteral("Escape"), QStringLiteral("CtlEscape1"));
    Truths truths{};
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        play.hands.Press(QStringLiteral("Set needle %1").arg(needle + 1));
        truths.at(static_cast<std::size_t>(needle)) = play.stage.Workbench().TipOf(needle + 1).now;
    }
    RecordObjective(play);
    play.stage.SavePicture(QStringLiteral("panel-escape"));
    play.stage.RequireBoxesAsExpected();
    return truths;
}

void StoreCells(PanelPlay& play, std::int32_t cells) {
    play.hands.OpenPanel(QStringLiteral("Cell position"), QStringLiteral("CtlCellPosition1"));
    play.cells.clear();
    double furthest = 0.0;
    for (std::int32_t cell = 0; cell < cells; ++cell) {
        if (cell == CellRowsOfAPage) {
            play.hands.Press(QStringLiteral("Page E to H"));
        }
        play.cells.push_back(StoreInRow(play, cell, Places.at(static_cast<std::size_t>(cell))));
        const WorkbenchClient::Place& truth = play.cells.back().truth;
        furthest = std::max(furthest, std::hypot(truth[0], truth[1]));
    }
    Require(furthest <= FieldRadius, "a cell lies outside the field");
    PrintLine("escape positions of needles and objective recorded, " + std::to_string(cells) +
              " cells stored, up to " + NumberText(furthest) + " from the centre");
}

// The greatest true miss.
double SendToCells(PanelPlay& play, std::int32_t needle) {
    std::string misses;
    double worst = 0.0;
    for (std::size_t cell = 0; cell < play.cells.size(); ++cell) {
        SendNeedleToCell(play, needle, static_cast<std::int32_t>(cell));
        const double miss = Miss(play, needle, play.cells[cell].truth);
        worst = std::max(worst, miss);
        misses += " " + NumberText(miss);
    }
    PrintLine(NeedleName(needle) + ": true landing errors" + misses + "; greatest " + NumberText(worst));
    return worst;
}

// The distance of the true tip from where it stood when its escape was recorded.
double Escape(PanelPlay& play, std::int32_t needle, const Truths& truths) {
    RetreatNeedle(play, needle);
    Require(std::abs(play.stage.Workbench().Focus().now - ObjectiveRetreat) < 1.0,
            "the objective is not at its escape");
    const double apart = Miss(play, needle, truths.at(static_cast<std::size_t>(needle)));
    Require(apart <= PanelLandingGoal, NeedleName(needle) + " has escaped to " + NumberText(apart) +
                                           " from where its escape was recorded");
    return apart;
}

}  // namespace

void PlayCalibratedLandings(PanelPlay& play, std::int32_t cells, bool limited) {
    const Truths truths = RecordEscapes(play);
    StoreCells(play, cells);
    play.hands.OpenPanel(QStringLiteral("Experiment"), QStringLiteral("CtlExperiment1"));
    double furthestFromEscape = 0.0;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        const double worst = SendToCells(play, needle);
        Require(!limited || worst <= PanelLandingGoal, NeedleName(needle) + " landed too far from a cell");
        furthestFromEscape = std::max(furthestFromEscape, Escape(play, needle, truths));
    }
    RequireNoCrossing(play.stage);
    play.stage.RequireBoxesAsExpected();
    PrintLine("needles 1 to 4 back by escape: true places within " + NumberText(furthestFromEscape) +
              " of those recorded; no true crossing");
}

}  // namespace workbench::tour
