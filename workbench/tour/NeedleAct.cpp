#include "workbench/tour/NeedleAct.h"

#include <algorithm>
#include <array>
#include <cmath>

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

std::string Number(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f", value);
    return text.data();
}

std::string NeedleName(std::int32_t needle) { return "needle " + std::to_string(needle + 1); }

void ChooseNeedle(Stage& stage, std::int32_t needle) {
    stage.Objects().cCommunication->ChangeManipulator(static_cast<std::int16_t>(needle + 1));
    stage.WaitUntil([&] { return stage.State().intManipulatorNumber == needle; },
                    NeedleName(needle) + " has not become the selected one");
    stage.WaitOneTick();
}

void Send(Stage& stage, std::int32_t needle, const PositionXYZ& target) {
    stage.Objects().cNeedleMove->NeedleMoveCellPosition(static_cast<std::int16_t>(needle), target,
                                                        stage.State().intTotalManipulatorNumber);
    stage.RequireBoxesAsExpected();
}

double LandingError(Stage& stage, std::int32_t needle, const PositionXYZ& target) {
    stage.WaitUntil([&] { return !stage.Workbench().AnyNeedleMoves(); }, "a needle does not come to rest");
    const WorkbenchClient::Place tip = stage.Workbench().TipOf(needle + 1).now;
    return std::hypot(tip[0] - target[0], tip[1] - target[1], tip[2] - target[2]);
}

// The place of the tip as the world has it now, in whole common units.
PositionXYZ TruePlace(Stage& stage, std::int32_t needle) {
    const WorkbenchClient::Place tip = stage.Workbench().TipOf(needle + 1).now;
    PositionXYZ place{};
    std::transform(tip.begin(), tip.end(), place.begin(),
                   [](double value) { return static_cast<std::int32_t>(std::lround(value)); });
    return place;
}

void RequireNoCrossing(Stage& stage) {
    const WorkbenchClient::Crossings crossings = stage.Workbench().ShaftCrossings();
    for (const WorkbenchClient::Crossing& crossing : crossings.last) {
        PrintLine("needles " + std::to_string(crossing.needleA) + " and " + std::to_string(crossing.needleB) +
                  " truly crossed at " + PlaceText(crossing.x, crossing.y, 0.0));
    }
    Require(crossings.inAll == 0, "shafts truly crossed " + std::to_string(crossings.inAll) + " times");
}

void SendToTargets(Stage& stage, std::int32_t needle) {
    ChooseNeedle(stage, needle);
    const PositionXYZ home = TruePlace(stage, needle);
    const auto& side = Sides.at(static_cast<std::size_t>(needle));
    double worst = 0.0;
    for (const PositionXYZ& reach : Reaches) {
        const PositionXYZ target{side[0] * reach[0], side[1] * reach[1], reach[2]};
        Send(stage, needle, target);
        worst = std::max(worst, LandingError(stage, needle, target));
        stage.WaitOneTick();
    }
    stage.SavePicture(QStringLiteral("needles-%1").arg(needle + 1));
    Send(stage, needle, home);
    worst = std::max(worst, LandingError(stage, needle, home));
    stage.WaitOneTick();
    PrintLine(NeedleName(needle) + ": " + std::to_string(Reaches.size() + 1) +
              " moves, greatest true landing error " + Number(worst) + " common units");
    Require(worst <= LandingGoal, NeedleName(needle) + " landed too far from its target");
}

void BeRefusedForContact(Stage& stage) {
    // Needle 1 lies across the field; needle 2 is to go to the far side of it.
    ChooseNeedle(stage, 0);
    const PositionXYZ home = TruePlace(stage, 0);
    Send(stage, 0, {300, 300, 0});
    LandingError(stage, 0, {300, 300, 0});
    stage.WaitOneTick();
    ChooseNeedle(stage, 1);
    const PositionXYZ before = stage.Workbench().CountsOf(2);
    stage.Boxes().Expect(
        QStringLiteral("WARNING!\r\n"
                       "There is a possibility  the needles will come in contact.\r\n"
                       "Movement is discontinued.  Please move the needles manually."));
    Send(stage, 1, {-300, 300, 0});
    Require(stage.Workbench().CountsOf(2) == before, "needle 2 moved although it was refused");
    RequireNoCrossing(stage);
    PrintLine("needle 2 across needle 1: refused for contact, nothing moved, no true crossing");
    ChooseNeedle(stage, 0);
    Send(stage, 0, home);
    LandingError(stage, 0, home);
    stage.WaitOneTick();
}

void BeRefusedForRange(Stage& stage) {
    ChooseNeedle(stage, 2);
    const PositionXYZ before = stage.Workbench().CountsOf(3);
    stage.Boxes().Expect(QStringLiteral("Manipulator : Outside the movement range"));
    Send(stage, 2, {0, 0, 20000});
    Require(stage.Workbench().CountsOf(3) == before, "needle 3 moved although its target is out of range");
    PrintLine("needle 3 beyond its range: refused, nothing moved");
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

void FindTheCalibrationAgain(Stage& stage) {
    stage.CloseProgram();
    stage.OpenProgram();
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        Require(stage.State().CalibrationON(needle), NeedleName(needle) + " has lost its calibration");
    }
    PrintLine("closed and started anew: all four calibrations are there");
    SendToTargets(stage, 3);
}

}  // namespace

void PlayNeedleAct(Stage& stage) {
    PrintHeading("Act 1: needles, sent through contact check, maps, stand-offs and range check");
    stage.OpenProgram();
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        SendToTargets(stage, needle);
    }
    RequireNoCrossing(stage);
    PrintLine("no true crossing of two shafts");
    BeRefusedForContact(stage);
    BeRefusedForRange(stage);
    PullTheDriverAndReconnect(stage);
    FindTheCalibrationAgain(stage);
    RequireNoCrossing(stage);
    stage.CloseProgram();
}

}  // namespace workbench::tour
