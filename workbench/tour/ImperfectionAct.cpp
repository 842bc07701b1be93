#include "workbench/tour/ImperfectionAct.h"

#include <array>
#include <chrono>
#include <cmath>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

constexpr std::int32_t Cells = 3;
// Of needle 1, as the workbench is told; drift being 5 counts a second.
constexpr std::array<std::pair<const char*, const char*>, 4> Kinds = {
    {{"noise of 5 counts", "needle noise 1 5"},
     {"backlash of 10 counts on each axis", "needle backlash 1 10 10 10"},
     {"drift of 300 counts a minute on X and Y", "needle drift 1 300 300 0"},
     {"tip bent by (3, -4, 5)", "needle bend 1 3 -4 5"}}};

// The program may read other counts than those at which the needle stands, so that the world alone says when
// it rests.
void SendToCell(PanelPlay& play, std::int32_t cell) {
    PressNeedle(play, 0);
    play.hands.Press(CellButton(cell));
    const std::int64_t moves = play.stage.Workbench().Counters()["moveto"];
    PressMove(play);
    Require(play.stage.Workbench().Counters()["moveto"] > moves, "needle 1 has not been sent");
    play.stage.WaitUntil([&] { return !play.stage.Workbench().AnyNeedleMoves(); },
                         "needle 1 does not come to rest");
}

double PlanMiss(PanelPlay& play, const WorkbenchClient::Place& place) {
    const WorkbenchClient::Place tip = play.stage.Workbench().TipOf(1).now;
    return std::hypot(tip[0] - place[0], tip[1] - place[1]);
}

void PlayKind(PanelPlay& play, const std::string& name, const std::string& command) {
    play.stage.Workbench().Ask(command);
    std::string misses;
    for (std::int32_t cell = 0; cell < Cells; ++cell) {
        SendToCell(play, cell);
        const WorkbenchClient::Place& truth = play.cells.at(static_cast<std::size_t>(cell)).truth;
        misses += " " + NumberText(Miss(play, 0, truth)) + " (" + NumberText(PlanMiss(play, truth)) + ")";
    }
    play.stage.Workbench().ClearFaults();
    WaitUntilRead(play, 0);
    RetreatNeedle(play, 0);
    PrintLine(name + ": true landing errors, in plan in brackets:" + misses);
}

}  // namespace

void PlayImperfectLandings(PanelPlay& play) {
    PrintHeading("Needle 1 is not perfect any more: no limit, and what it costs");
    for (const auto& [name, command] : Kinds) {
        PlayKind(play, name, command);
    }
    play.stage.RequireBoxesAsExpected();
}

}  // namespace workbench::tour
