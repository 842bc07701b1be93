#include "workbench/tour/PanelPlay.h"

#include <cmath>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

// Between where a needle is to retreat to and where the program reads it then, on each axis.
constexpr double RetreatTolerance = 3.0;

bool HasBeenRead(Stage& stage, std::int32_t needle) {
    if (stage.Workbench().AnyNeedleMoves()) {
        return false;
    }
    const travo::PositionXYZ counts = stage.Workbench().CountsOf(needle + 1);
    for (std::int32_t axis = 0; axis < travo::AxisCount; ++axis) {
        if (stage.State().Needle(needle, axis) !=
            stage.Objects().cNeedleMove->Calibration(needle, axis, counts)) {
            return false;
        }
    }
    return true;
}

}  // namespace

QString NeedleButton(std::int32_t needle) { return QStringLiteral("Needle %1").arg(needle + 1); }

QString CellButton(std::int32_t cell) { return QStringLiteral("Cell ") + QChar(u'A' + cell); }

void PressNeedle(PanelPlay& play, std::int32_t needle) {
    play.hands.Press(NeedleButton(needle));
    play.stage.WaitUntil([&] { return play.stage.State().intManipulatorNumber == needle; },
                         NeedleName(needle) + " has not become the selected one");
    play.stage.WaitOneTick();
    Require(play.hands.OnShow(NeedleButton(needle) + QStringLiteral(" lamp")),
            "the lamp of " + NeedleName(needle) + " is dark");
}

void PressView(PanelPlay& play) {
    play.hands.Press(QStringLiteral("View"));
    Require(play.hands.OnShow(QStringLiteral("View lamp")), "the lamp of the view is dark");
}

void PressMove(PanelPlay& play) {
    play.hands.Press(QStringLiteral("Move"));
    play.stage.RequireBoxesAsExpected();
    Require(play.hands.PressedIn(QStringLiteral("View")) && play.hands.OnShow(QStringLiteral("View lamp")),
            "after a move the view is not what moves next");
}

void WaitUntilRead(PanelPlay& play, std::int32_t needle) {
    play.stage.WaitUntil([&] { return HasBeenRead(play.stage, needle); },
                         NeedleName(needle) + " has not been read where it stands");
}

void SendNeedleToCell(PanelPlay& play, std::int32_t needle, std::int32_t cell) {
    PressNeedle(play, needle);
    play.hands.Press(CellButton(cell));
    PressMove(play);
    Require(!play.hands.PressedIn(NeedleButton(needle)), "a needle's button is still pressed after its move");
    WaitUntilRead(play, needle);
}

void BeRefusedBehindNeedle1(PanelPlay& play) {
    PressNeedle(play, 1);
    const travo::PositionXYZ before = play.stage.Workbench().CountsOf(2);
    play.hands.Press(CellButton(BarredCell));
    play.stage.Boxes().Expect(
        QStringLiteral("WARNING!\r\n"
                       "There is a possibility  the needles will come in contact.\r\n"
                       "Movement is discontinued.  Please move the needles manually."));
    PressMove(play);
    Require(play.stage.Workbench().CountsOf(2) == before, "needle 2 moved although it was refused");
}

void RetreatNeedle(PanelPlay& play, std::int32_t needle) {
    PressNeedle(play, needle);
    play.hands.Press(QStringLiteral("Needle escape"));
    play.stage.RequireBoxesAsExpected();
    WaitUntilRead(play, needle);
    const travo::clsEscape& escape = *play.stage.Objects().cEscape;
    for (std::int32_t axis = 0; axis < travo::AxisCount; ++axis) {
        const double apart = play.stage.State().Needle(needle, axis) - escape.NeedleEscape(needle, axis);
        Require(std::abs(apart) <= RetreatTolerance, NeedleName(needle) + " has not retreated");
    }
}

void StoreRetreats(PanelPlay& play, std::int32_t objective) {
    travo::clsEscape& escape = *play.stage.Objects().cEscape;
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        for (std::int32_t axis = 0; axis < travo::AxisCount; ++axis) {
            escape.NeedleEscape(needle, axis, play.stage.State().Needle(needle, axis));
        }
    }
    escape.ZEscapePosition(objective);
}

void SetMagnification(PanelPlay& play, std::int16_t index) {
    play.stage.Objects().cCommunication->SendMirrorMagnificationData(index);
    play.stage.WaitUntil([&] { return play.stage.State().CurrentMagnification() == index; },
                         "the magnification has not been reported");
}

double Miss(PanelPlay& play, std::int32_t needle, const WorkbenchClient::Place& place) {
    const WorkbenchClient::Place tip = play.stage.Workbench().TipOf(needle + 1).now;
    return std::hypot(tip[0] - place[0], tip[1] - place[1], tip[2] - place[2]);
}

}  // namespace workbench::tour
