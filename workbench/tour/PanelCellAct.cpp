#include "workbench/tour/PanelCellAct.h"

#include <algorithm>
#include <cmath>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using travo::PositionXYZ;

// Besides the world's six cells. With needle 1 at G the contact check refuses needle 2 at H, since it
// reckons with a needle that first goes forward from its retreat and then sideways; the straight way to H
// passes in front of needle 1's tip.
constexpr PositionXYZ PlaceG{-14, -14, 0};
constexpr PositionXYZ PlaceH{-21, -49, 20};

std::vector<PositionXYZ> PlacesToStore(PanelPlay& play) {
    std::vector<PositionXYZ> places;
    for (const WorkbenchClient::Cell& cell : play.stage.Workbench().Cells()) {
        places.push_back({cell.mirrorX, cell.mirrorY, static_cast<std::int32_t>(std::lround(cell.place[2]))});
    }
    places.push_back(PlaceG);
    places.push_back(PlaceH);
    Require(places.size() == travo::CellCount, "there are not eight places to store");
    return places;
}

// Between what a label says and the true view centre, on each axis: the rule's rounding and its bias.
double RequireLabels(PanelPlay& play, std::int32_t cell, const StoredCell& stored) {
    const PositionXYZ common = travo::MirrorToCommon(stored.raw);
    const PositionXYZ shown{common[0], -common[1], common[2]};
    const WorkbenchClient::Place truth{stored.truth[0], -stored.truth[1], stored.truth[2]};
    double worst = 0.0;
    for (std::size_t axis = 0; axis < shown.size(); ++axis) {
        const QString name = CellButton(cell) + QLatin1Char(' ') + QLatin1Char("XYZ"[axis]);
        const std::int32_t text = play.hands.Read(name).toInt();
        Require(play.hands.Read(name) == QString::number(shown[axis]),
                name.toStdString() + " reads " + play.hands.Read(name).toStdString());
        worst = std::max(worst, std::abs(text - truth[axis]));
    }
    Require(worst <= 1.0, "a label is more than a unit from the true view");
    return worst;
}

}  // namespace

void AimView(PanelPlay& play, const PositionXYZ& place) {
    Stage& stage = play.stage;
    stage.Workbench().MoveMirror(place[0], place[1]);
    stage.Workbench().MoveFocus(place[2] * travo::clsObjectiveUpDown::MotorStepsPerUnit);
    WaitForView(stage, place[0], place[1]);
    stage.WaitUntil([&] { return stage.State().CurrentXYZ(2) == place[2]; },
                    "the gauge does not read " + std::to_string(place[2]));
}

StoredCell StoreInRow(PanelPlay& play, std::int32_t cell, const PositionXYZ& place) {
    AimView(play, place);
    const auto centre = play.stage.Workbench().ViewCentreNow();
    const StoredCell stored{place, {centre[0], centre[1], play.stage.Workbench().Focus().now}};
    play.hands.Press(QStringLiteral("Set row %1").arg(cell % CellRowsOfAPage + 1));
    return stored;
}

void PlayPanelCellAct(PanelPlay& play) {
    play.hands.OpenPanel(QStringLiteral("Cell position"), QStringLiteral("CtlCellPosition1"));
    const std::vector<PositionXYZ> places = PlacesToStore(play);
    double worst = 0.0;
    for (std::int32_t cell = 0; cell < travo::CellCount; ++cell) {
        if (cell == CellRowsOfAPage) {
            play.stage.SavePicture(QStringLiteral("panel-cell-position"));
            play.hands.Press(QStringLiteral("Page E to H"));
        }
        play.cells.push_back(StoreInRow(play, cell, places[static_cast<std::size_t>(cell)]));
        worst = std::max(worst, RequireLabels(play, cell, play.cells.back()));
    }
    play.stage.SavePicture(QStringLiteral("panel-cell-position-2"));
    play.stage.RequireBoxesAsExpected();
    PrintLine("eight views stored as A to H on both pages: labels at most " + NumberText(worst) +
              " from the true view, Y with its sign reversed");
}

}  // namespace workbench::tour
