#include "workbench/tour/SerialAct.h"

#include <cmath>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Hands.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using travo::PositionXYZ;

void SetTheZeroPoint(Stage& stage) {
    stage.Workbench().MoveFocus(4000);
    WaitForZ(stage, 40);
    const PositionXYZ before = TruePlace(stage, 0);
    Hands hands(stage);
    hands.OpenPanel(QStringLiteral("Cell position"), QStringLiteral("CtlCellPosition1"));
    hands.Press(QStringLiteral("Reset zero point"));
    WaitForZ(stage, 0);
    Require(std::abs(stage.Workbench().Gauge().zero - 40.0) <= 1.0,
            "the gauge's zero is not where it should be");
    stage.WaitOneTick();
    const std::int32_t z = stage.State().Needle(0, 2);
    Require(std::abs(z - (before[2] - 40)) <= 2, "the needles' heights did not follow the zero point");
    PrintLine("zero point set at 40: gauge, motor and needles count from there");
}

}  // namespace

void PlaySerialAct(Stage& stage) {
    PrintHeading("Act 2: mirror, focus and gauge on their wires");
    stage.OpenProgram();
    OpenPorts(stage);
    PrintLine("three ports opened: mirror, gauge and motor have answered");
    SetMagnification2x(stage);
    PrintLine("2x set and reported");
    SetTheZeroPoint(stage);
    RequireNoCrossing(stage);
}

}  // namespace workbench::tour
