#include "workbench/tour/CalibrationAct.h"

#include <QDir>

#include "core/state/SettingsKeys.h"
#include "workbench/tour/CalibrationLandingAct.h"
#include "workbench/tour/CalibrationPanelAct.h"
#include "workbench/tour/CalibrationPlay.h"
#include "workbench/tour/Handling.h"
#include "workbench/tour/ImperfectionAct.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using live::LiveClient;

// The mounts for which the calibration is exact but for whole counts.
const NeedleSettings DefaultSettings{{{{45.0, 0.0, 0.0}, {0, 0}},
                                      {{135.0, 0.0, 0.0}, {0, 0}},
                                      {{225.0, 0.0, 0.0}, {0, 0}},
                                      {{315.0, 0.0, 0.0}, {0, 0}}}};
// What it cannot tell, or not as well: the view elsewhere, another heading, yaw, tilt.
const NeedleSettings FreeSettings{{{{45.0, 0.0, 0.0}, {60, -45}},
                                   {{120.0, 0.0, 0.0}, {0, 0}},
                                   {{225.0, 1.3, 0.0}, {0, 0}},
                                   {{315.0, 0.0, 0.5}, {-40, 50}}}};
constexpr std::int32_t DefaultCells = travo::CellCount;
constexpr std::int32_t FreeCells = 3;

const QString Camera = QStringLiteral("Camera window");

void OpenCamera(PanelPlay& play) {
    play.hands.OpenPanel(QStringLiteral("User"), QStringLiteral("CtlUser1"));
    play.hands.Press(Camera);
    LiveClient camera;
    Require(play.stage.State().LiveOpen && camera.Running() && camera.Now().visible,
            "the camera does not open");
}

void Restart(PanelPlay& play) {
    Stage& stage = play.stage;
    stage.CloseProgram();
    stage.OpenProgram();
    WaitForInstruments(stage);
    play.hands.TakeTheKeys();
    for (std::int32_t needle = 0; needle < travo::NeedleCount; ++needle) {
        Require(stage.State().CalibrationON(needle), NeedleName(needle) + " has lost its calibration");
    }
    WaitFor035x(play);
    SwitchTo2x(play);
    stage.WaitUntil([&] { return stage.State().LiveOpen; }, "the camera has not come back");
    PrintLine("closed and started anew on the same settings: four calibrations, three ports, the camera");
}

void CloseForGood(PanelPlay& play) {
    play.stage.CloseProgram();
    LiveClient camera;
    play.stage.WaitUntil([&] { return !camera.Running(); }, "the camera program outlives its last caller");
}

}  // namespace

std::string SettingText(PanelPlay& play, const NeedleSetting& setting) {
    const auto centre = play.stage.Workbench().ViewCentre(setting.mirror[0], setting.mirror[1]);
    return "heading " + NumberText(setting.mount.heading) + ", yaw " + NumberText(setting.mount.yaw) +
           ", tilt " + NumberText(setting.mount.tilt) + ", calibrated at " +
           PlaceText(centre[0], centre[1], 0.0);
}

void SteerNeedle(PanelPlay& play, std::int32_t needle, const travo::PositionXYZ& counts) {
    play.stage.Workbench().Move(needle + 1, counts);
    play.stage.WaitUntil([&] { return play.stage.Workbench().CountsOf(needle + 1) == counts; },
                         NeedleName(needle) + " does not get where it is steered to");
}

void WaitFor035x(PanelPlay& play) {
    Stage& stage = play.stage;
    stage.WaitUntil(
        [&] { return stage.State().CurrentMagnification() == 1 && stage.Workbench().Magnification() == 1; },
        "the start has not asked for 0.35x");
}

void SwitchTo2x(PanelPlay& play) {
    Stage& stage = play.stage;
    play.hands.OpenPanel(QStringLiteral("Connection"), QStringLiteral("CtlConnection1"));
    play.hands.Press(QStringLiteral("Test mirror"));
    stage.WaitUntil([&] { return stage.State().CurrentMagnification() == 2; }, "2x has not been reported");
    Require(stage.Workbench().Magnification() == 2, "the world does not stand at 2x");
}

void RequireMarks(Stage& stage, LiveClient& camera, const std::string& overlay) {
    // Nobody waits for the camera when it is told of them.
    stage.WaitUntil(
        [&] {
            Require(stage.State().LiveOpen, "the camera is lost before it shows the marks " + overlay);
            return camera.Now().overlay == overlay;
        },
        "the camera does not show the marks " + overlay);
}

void PlayCalibrationAct(Stage& stage) {
    PrintHeading("Act 4: the operator calibrates the needles");
    stage.Workbench().WriteSettingsWithPorts(
        QDir(stage.Where().programFolder).filePath(travo::settings::FileName()).toStdString());
    stage.OpenProgram();
    PanelPlay play{stage, Hands(stage), {}};
    play.hands.TakeTheKeys();
    WaitForInstruments(stage);
    OpenCamera(play);
    LookAtTheWarning(play);
    PlayCalibrations(play, DefaultSettings);
    Restart(play);
    PlayCalibratedLandings(play, DefaultCells, true);
    PlayImperfectLandings(play);
    PrintHeading("The same with free mounts and views off the centre: no limit, and what it costs");
    PlayCalibrations(play, FreeSettings);
    Restart(play);
    PlayCalibratedLandings(play, FreeCells, false);
    CloseForGood(play);
}

}  // namespace workbench::tour
