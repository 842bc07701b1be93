#include "workbench/tour/WindowAct.h"

#include <QDir>
#include <QPixmap>

#include "core/state/SettingsKeys.h"
#include "workbench/live/LiveClient.h"
#include "workbench/tour/CalibrationPlay.h"
#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"
#include "workbench/tour/WindowMarkerAct.h"
#include "workbench/tour/WindowMirrorAct.h"
#include "workbench/tour/WindowPlay.h"
#include "workbench/tour/WindowProgramAct.h"
#include "workbench/tour/WindowRestartAct.h"
#include "workbench/tour/WindowStillAct.h"

namespace workbench::tour {

namespace {

void OpenWindow(Stage& stage, QWidget& window, const QString& button) {
    Hands hands(stage);
    Require(!hands.PressedIn(button) && !window.isVisible(), button.toStdString() + " is open already");
    hands.Press(button);
    Require(hands.PressedIn(button), button.toStdString() + ": its button does not stay pressed");
    stage.WaitUntil([&] { return window.isVisible() && window.isActiveWindow(); },
                    button.toStdString() + " does not come to the front");
}

void OpenWindows(Stage& stage) {
    Hands(stage).OpenPanel(QStringLiteral("User"), QStringLiteral("CtlUser1"));
    travo::FormMainWindows& windows = stage.Program().Windows();
    OpenWindow(stage, windows.BirdView, BirdViewButton);
    OpenWindow(stage, windows.MirrorCtl, MirrorButton);
    OpenWindow(stage, windows.ManiInfo, NeedlesButton);
    OpenWindow(stage, windows.MirrorCtl2, MagnificationButton);
    Hands(stage).Press(CameraButton);
    Require(stage.State().LiveOpen, "the camera does not open");
    stage.RequireBoxesAsExpected();
    PrintLine(
        "bird's-eye view, mirror, needles, magnification and camera: each opened by its button, in front");
}

void SavePictures(Stage& stage) {
    travo::FormMainWindows& windows = stage.Program().Windows();
    const QDir pictures(stage.Where().pictures);
    const auto save = [&](QWidget& window, const QString& name) {
        window.grab().save(pictures.filePath(name));
    };
    save(windows.MirrorCtl, QStringLiteral("window-mirror.png"));
    save(windows.MirrorCtl2, QStringLiteral("window-magnification.png"));
    save(windows.ManiInfo, QStringLiteral("window-needles.png"));
}

}  // namespace

void PlayWindowAct(Stage& stage) {
    PrintHeading("Act 5: the operator at the small windows");
    stage.Workbench().WriteSettingsWithPorts(
        QDir(stage.Where().programFolder).filePath(travo::settings::FileName()).toStdString());
    stage.OpenProgram();
    WaitForInstruments(stage);
    PanelPlay play{stage, Hands(stage), {}};
    WaitFor035x(play);
    OpenWindows(stage);
    PlayWindowStillAct(stage);
    PlayWindowMagnificationAct(stage);
    PlayWindowPadAct(stage);
    PlayWindowFocusAct(stage);
    SavePictures(stage);
    PlayWindowMarkerAct(stage);
    PlayWindowRestartAct(stage);
    stage.CloseProgram();
    live::LiveClient camera;
    stage.WaitUntil([&] { return !camera.Running(); }, "the camera program outlives its last caller");
    PlayWindowProgramAct(stage);
}

}  // namespace workbench::tour
