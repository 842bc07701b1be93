#include "workbench/tour/NeedleAct.h"

#include <algorithm>
#include <array>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using travo::PositionXYZ;

// Greatest distance between target and true tip, in common units, with stand-offs of 0.
constexpr double LandingGoal = 2.0;
// Tip offset of a move that every needle can make without nearing another: its own quarter of the
// field, which it enters from its own side.
constexpr std::array<PositionXYZ, 3> Reaches{{{120, 120, 0}, {450, 300, 40}, {880, 870, -150}}};
// The side from which each needle comes: where it is pulled back to.
constexpr std::array<std::array<std::int32_t, 2>, 4> Sides{{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};

void SendToTargets(Stage& stage, std::int32_t needle) {
    ChooseNeedle(stage, needle);
    const PositionXYZ home = TruePlace(stage, needle);
    const auto& side = Sides.at(static_cast<std::size_t>(needle));
    double worst = 0.0;
    for (const PositionXYZ& reach : Reaches) {
        const PositionXYZ target{side[0] * reach[0], side[1] * reach[1], reach[2]};
        SendNeedle(stage, needle, target);
        worst = std::max(worst, LandingError(stage, needle, target));
        stage.WaitOneTick();
    }
    stage.SavePicture(QStringLiteral("needles-%1").arg(needle + 1));
    SendNeedle(stage, needle, home);
    worst = std::max(worst, LandingError(stage, needle, home));
    stage.WaitOneTick();
    PrintLine(NeedleName(needle) + ": " + std::to_string(Reaches.size() + 1) +
              " moves, greatest true landing error " + NumberText(worst) + " common units");
    Require(worst <= LandingGoal, NeedleName(needle) + " landed too far from its target");
}

void PullTheDriverAndReconnect(Stage& stage) {
    for (int read = 0; read < travo::PositionLoop::FailedReadsBeforeQuestion; ++read) {
        stage.Boxes().Expect(QStringLiteral("Manipulator : Communication failed"));
    }
    stage.Workbench().FailDriverAlways();
    stage.WaitUntil([&] { return stage.Boxes().AllCame(); }, "ten failed reads did not bring ten boxes");
    stage.Workbench().ClearFaults();
    stage.Workbench().FailDriverCalls(0);
    stage.RequireBoxesAsExpected();
    PrintLine("driver pulled: ten failed reads, each with the link's own box");
    stage.Boxes().Expect(QStringLiteral("Manipulator was disconnected. Reconnect Manipulator?"));
    stage.WaitUntil([&] { return stage.Boxes().AllCame(); }, "the eleventh tick did not ask");
    stage.WaitUntil([&] { return stage.State().intManipulatorNumber == 0; }, "no needle after reconnection");
    stage.RequireBoxesAsExpected();
    Require(stage.State().intTotalManipulatorNumber == 3, "not all four needles came back");
    PrintLine("reconnected through the dialog: four needles are read again");
}

}  // namespace

void PlayNeedleAct(Stage& stage) {
    PrintHeading("Act 1: needles on the driver alone");
    stage.OpenProgram();
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        SendToTargets(stage, needle);
    }
    RequireNoCrossing(stage);
    PrintLine("no true crossing of two shafts");
    PullTheDriverAndReconnect(stage);
    RequireNoCrossing(stage);
    stage.CloseProgram();
}

}  // namespace workbench::tour
