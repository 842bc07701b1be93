#include "workbench/tour/CalibrationPanelAct.h"

#include <cmath>

#include "workbench/live/Marks.h"
#include "workbench/tour/CalibrationKeys.h"
#include "workbench/tour/Handling.h"
#include "workbench/tour/PanelCellAct.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using live::LiveClient;
using travo::PositionXYZ;

const QString Warning = QStringLiteral("Please adjust the magnification to 2X.");
const QString Full = QStringLiteral("Full calibration");
const QString Again = QStringLiteral("Re-calibration");
const QString Set = QStringLiteral("Set");
const QString PositionA = QStringLiteral("Position A");
const QString PositionZ = QStringLiteral("Position Z");
const QString PositionCentre = QStringLiteral("Position centre");

// By how much the panel raises the objective for the fourth position, in Z units.
constexpr double Raise = 100.0;
void OpenCalibration(PanelPlay& play) {
    play.hands.OpenPanel(QStringLiteral("Calibration"), QStringLiteral("CtlCalibration1"));
}

void ClearAll(PanelPlay& play) {
    play.hands.Press(QStringLiteral("Reset all"));
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        Require(ReadCalibrationKeys(play.stage, needle) == ClearedKeys(),
                NeedleName(needle) + " has not been cleared in the settings file");
        Require(!play.stage.State().CalibrationON(needle), NeedleName(needle) + " is still calibrated");
    }
    play.stage.RequireBoxesAsExpected();
}

void ChooseOnPanel(PanelPlay& play, std::int32_t needle) {
    play.hands.Press(NeedleButton(needle));
    play.stage.WaitUntil([&] { return play.stage.State().intManipulatorNumber == needle; },
                         NeedleName(needle) + " has not become the selected one");
    play.stage.WaitOneTick();
    Require(play.hands.PressedIn(NeedleButton(needle)),
            "the button of " + NeedleName(needle) + " is not pressed in");
}

// Takes the tip onto a mark as the camera draws it, in focus. The counts where it then stands.
PositionXYZ SteerOntoMark(PanelPlay& play, std::int32_t needle, const live::Mark& mark) {
    WorkbenchClient& bench = play.stage.Workbench();
    const auto centre = bench.ViewCentreNow();
    const WorkbenchClient::Place place{centre[0] + mark.offset.x(), centre[1] + mark.offset.y(),
                                       bench.Focus().now};
    SteerNeedle(play, needle, bench.Aim(needle + 1, place));
    return bench.CountsOf(needle + 1);
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
void RecordMarks(PanelPlay& play, std::int32_t needle, CalibrationKeys& expected) {
    LiveClient camera;
    RequireMarks(play.stage, camera, "points");
    const std::vector<live::Mark> marks = live::MarksOf(live::Overlay::Points);
    for (std::size_t point = 0; point < marks.size(); ++point) {
        expected.points.at(point) = SteerOntoMark(play, needle, marks[point]);
        if (point + 1 == marks.size()) {
            play.stage.SavePicture(QStringLiteral("panel-calibration-marks"));
            play.stage.Boxes().Expect(
                QStringLiteral("Adjust manipulator Z axis until needle tip is in focus.\r\n"
                               "Do not adjust focus knob on microscope."));
        }
        play.hands.Press(QStringLiteral("Position ") + marks[point].name);
    }
    play.stage.RequireBoxesAsExpected();
    Require(!play.hands.OnShow(PositionA) && play.hands.OnShow(PositionZ), "the panel does not ask for Z");
}

void RecordRaised(PanelPlay& play, std::int32_t needle, double focus, CalibrationKeys& expected) {
    LiveClient camera;
    RequireMarks(play.stage, camera, "z");
    WaitForFocus(play, focus + Raise);
    // Back onto the first mark, since from there the way up is measured, and into focus.
    expected.points.back() = SteerOntoMark(play, needle, live::MarksOf(live::Overlay::Z).front());
    Require(!play.hands.Enabled(Set), "SET is open before Z has been recorded");
    play.hands.Press(PositionZ);
    play.stage.SavePicture(QStringLiteral("panel-calibration-z"));
    RequireMarks(play.stage, camera, "points");
}

void RequireKeys(PanelPlay& play, std::int32_t needle, const CalibrationKeys& expected) {
    const CalibrationKeys stored = ReadCalibrationKeys(play.stage, needle);
    Require(stored.points == expected.points,
            NeedleName(needle) + ": other positions are stored than recorded");
    Require(stored.zero == expected.zero,
            NeedleName(needle) + ": ZERO is not the view at which it was recorded");
    Require(stored.centre == expected.centre, NeedleName(needle) + ": Center is not as it should be");
}

// Four positions and SET; what the settings file then holds.
CalibrationKeys CalibrateInFull(PanelPlay& play, std::int32_t needle, const PositionXYZ& zero) {
    play.hands.Press(Full);
    ChooseOnPanel(play, needle);
    CalibrationKeys expected = ReadCalibrationKeys(play.stage, needle);
    expected.zero = zero;
    const double focus = play.stage.Workbench().Focus().now;
    RecordMarks(play, needle, expected);
    RecordRaised(play, needle, focus, expected);
    play.hands.Press(Set);
    play.stage.RequireBoxesAsExpected();
    Require(play.stage.State().CalibrationON(needle), NeedleName(needle) + " is not calibrated after SET");
    RequireKeys(play, needle, expected);
    const CalibrationKeys stored = ReadCalibrationKeys(play.stage, needle);
    RequirePresentTime(stored.time);
    Require(stored.reTime == expected.reTime, "a full calibration has changed the time of re-calibration");
    WaitForFocus(play, focus);
    return stored;
}

// The centre and SET.
void CalibrateAgain(PanelPlay& play, std::int32_t needle, CalibrationKeys expected) {
    LiveClient camera;
    play.hands.Press(Again);
    RequireMarks(play.stage, camera, "center");
    expected.centre = SteerOntoMark(play, needle, live::MarksOf(live::Overlay::Center).front());
    play.hands.Press(PositionCentre);
    play.stage.SavePicture(QStringLiteral("panel-calibration-centre"));
    play.hands.Press(Set);
    play.stage.RequireBoxesAsExpected();
    RequireKeys(play, needle, expected);
    const CalibrationKeys stored = ReadCalibrationKeys(play.stage, needle);
    Require(stored.time == expected.time, "a re-calibration has changed the time of the full one");
    RequirePresentTime(stored.reTime);
}

}  // namespace

void PlayMagnificationWarning(PanelPlay& play) {
    Stage& stage = play.stage;
    WaitFor035x(play);
    OpenCalibration(play);
    stage.WaitUntil([&] { return play.hands.OnShow(Warning); }, "nothing warns of 0.35x");
    stage.SavePicture(QStringLiteral("panel-calibration-warning"));
    stage.Boxes().Expect(Warning);
    play.hands.Press(PositionA);
    stage.RequireBoxesAsExpected();
    Require(!play.hands.PressedIn(PositionA), "a position counts as recorded at 0.35x");
    SwitchTo2x(play);
    OpenCalibration(play);
    Require(!play.hands.OnShow(Warning), "the warning stays at 2x");
    PrintLine("calibration at 0.35x: warned of, refused in its box; at 2x the warning is gone");
}

void PlayCalibrations(PanelPlay& play, const NeedleSettings& settings) {
    OpenCalibration(play);
    ClearAll(play);
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        const NeedleSetting& setting = settings.at(static_cast<std::size_t>(needle));
        play.stage.Workbench().MountNeedle(needle + 1, setting.mount);
        const PositionXYZ view{setting.mirror[0], setting.mirror[1], 0};
        AimView(play, view);
        const CalibrationKeys full = CalibrateInFull(play, needle, travo::MirrorToCommon(view));
        CalibrateAgain(play, needle, full);
        Require(!play.hands.OnShow(Warning), "the warning has come back at 2x");
        SteerNeedle(play, needle, PulledBack(needle));
        PrintLine(NeedleName(needle) + ", " + SettingText(play, setting) +
                  ": A, B, C, Z and SET, centre and SET; the file holds what was recorded");
    }
    RequireNoCrossing(play.stage);
}

}  // namespace workbench::tour
