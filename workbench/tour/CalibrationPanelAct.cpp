#include "workbench/tour/CalibrationPanelAct.h"

#include <cmath>

#include "workbench/live/Marks.h"
#include "workbench/tour/Handling.h"
#include "workbench/tour/PanelCellAct.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using live::LiveClient;
using travo::PositionXYZ;

const QString Full = QStringLiteral("Full calibration");
const QString Again = QStringLiteral("Re-calibration");
const QString Set = QStringLiteral("Set");
const QString PositionZ = QStringLiteral("Position Z");
const QString PositionCentre = QStringLiteral("Position centre");

// By how much the panel raises the objective for the fourth position, in Z units.
constexpr double Raise = 100.0;

void OpenCalibration(PanelPlay& play) {
    play.hands.OpenPanel(QStringLiteral("Calibration"), QStringLiteral("CtlCalibration1"));
}

void ChooseOnPanel(PanelPlay& play, std::int32_t needle) {
    play.hands.Press(NeedleButton(needle));
    play.stage.WaitUntil([&] { return play.stage.State().intManipulatorNumber == needle; },
                         NeedleName(needle) + " has not become the selected one");
    play.stage.WaitOneTick();
    Require(play.hands.PressedIn(NeedleButton(needle)),
            "the button of " + NeedleName(needle) + " is not pressed in");
}

// Takes the tip onto a mark as the camera draws it, in focus.
void SteerOntoMark(PanelPlay& play, std::int32_t needle, const live::Mark& mark) {
    WorkbenchClient& bench = play.stage.Workbench();
    const auto centre = bench.ViewCentreNow();
    const WorkbenchClient::Place place{centre[0] + mark.offset.x(), centre[1] + mark.offset.y(),
                                       bench.Focus().now};
    SteerNeedle(play, needle, bench.Aim(needle + 1, place));
}

void WaitForFocus(PanelPlay& play, double z) {
    play.stage.WaitUntil(
        [&] {
            return play.stage.Workbench().Focus().now == z &&
                   play.stage.State().CurrentXYZ(2) == std::lround(z);
        },
        "the focus does not come to " + NumberText(z));
}

// A, B and C, up to the box that tells that the objective goes up.
void RecordMarks(PanelPlay& play, std::int32_t needle) {
    LiveClient camera;
    RequireMarks(play.stage, camera, "points");
    const std::vector<live::Mark> marks = live::MarksOf(live::Overlay::Points);
    for (std::size_t point = 0; point < marks.size(); ++point) {
        SteerOntoMark(play, needle, marks[point]);
        if (point + 1 == marks.size()) {
            play.stage.SavePicture(QStringLiteral("panel-calibration-marks"));
            play.stage.Boxes().Expect(
                QStringLiteral("Adjust manipulator Z axis until needle tip is in focus.\r\n"
                               "Do not adjust focus knob on microscope."));
        }
        play.hands.Press(QStringLiteral("Position ") + marks[point].name);
    }
    play.stage.RequireBoxesAsExpected();
}

void RecordRaised(PanelPlay& play, std::int32_t needle, double focus) {
    LiveClient camera;
    RequireMarks(play.stage, camera, "z");
    WaitForFocus(play, focus + Raise);
    // Back onto the first mark, since from there the way up is measured, and into focus.
    SteerOntoMark(play, needle, live::MarksOf(live::Overlay::Z).front());
    play.hands.Press(PositionZ);
    play.stage.SavePicture(QStringLiteral("panel-calibration-z"));
    RequireMarks(play.stage, camera, "points");
}

// Four positions and SET.
void CalibrateInFull(PanelPlay& play, std::int32_t needle) {
    play.hands.Press(Full);
    ChooseOnPanel(play, needle);
    const double focus = play.stage.Workbench().Focus().now;
    RecordMarks(play, needle);
    RecordRaised(play, needle, focus);
    play.hands.Press(Set);
    play.stage.RequireBoxesAsExpected();
    Require(play.stage.State().CalibrationON(needle), NeedleName(needle) + " is not calibrated after SET");
    WaitForFocus(play, focus);
}

// The centre and SET.
void CalibrateAgain(PanelPlay& play, std::int32_t needle) {
    LiveClient camera;
    play.hands.Press(Again);
    RequireMarks(play.stage, camera, "center");
    SteerOntoMark(play, needle, live::MarksOf(live::Overlay::Center).front());
    play.hands.Press(PositionCentre);
    play.stage.SavePicture(QStringLiteral("panel-calibration-centre"));
    play.hands.Press(Set);
    play.stage.RequireBoxesAsExpected();
}

}  // namespace

void LookAtTheWarning(PanelPlay& play) {
    WaitFor035x(play);
    OpenCalibration(play);
    play.stage.SavePicture(QStringLiteral("panel-calibration-warning"));
    SwitchTo2x(play);
}

void PlayCalibrations(PanelPlay& play, const NeedleSettings& settings) {
    OpenCalibration(play);
    play.hands.Press(QStringLiteral("Reset all"));
    play.stage.RequireBoxesAsExpected();
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        const NeedleSetting& setting = settings.at(static_cast<std::size_t>(needle));
        play.stage.Workbench().MountNeedle(needle + 1, setting.mount);
        const PositionXYZ view{setting.mirror[0], setting.mirror[1], 0};
        AimView(play, view);
        CalibrateInFull(play, needle);
        CalibrateAgain(play, needle);
        SteerNeedle(play, needle, PulledBack(needle));
        PrintLine(NeedleName(needle) + ", " + SettingText(play, setting) +
                  ": A, B, C, Z and SET, centre and SET");
    }
    RequireNoCrossing(play.stage);
}

}  // namespace workbench::tour
