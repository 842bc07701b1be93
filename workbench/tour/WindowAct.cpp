#include "workbench/tour/WindowAct.h"

#include <QDir>
#include <QPixmap>
#include <utility>

#include "core/state/SettingsKeys.h"
#include "workbench/live/LiveClient.h"
#include "workbench/tour/CalibrationPlay.h"
#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"
#include "workbench/tour/WindowMarkerAct.h"
#include "workbench/tour/WindowPlay.h"
#include "workbench/tour/WindowProgramAct.h"
#include "workbench/tour/WindowRestartAct.h"
#include "workbench/tour/WindowStillAct.h"

namespace workbench::tour {

namespace {

void OpenWindows(Stage& stage) {
    Hands hands(stage);
    hands.OpenPanel(QStringLiteral("User"), QStringLiteral("CtlUser1"));
    for (const auto& [button, title] : {std::pair{BirdViewButton, BirdViewTitle},
                                        {MirrorButton, MirrorTitle},
                                        {NeedlesButton, NeedlesTitle},
                                        {MagnificationButton, MagnificationTitle}}) {
        hands.Press(button);
        QWidget& window = SmallWindow(title);
        stage.WaitUntil([&] { return window.isVisible() && window.isActiveWindow(); },
                        button.toStdString() + " does not come to the front");
    }
    hands.Press(CameraButton);
    Require(stage.State().LiveOpen, "the camera does not open");
    stage.RequireBoxesAsExpected();
    PrintLine(
        "bird's-eye view, mirror, needles, magnification and camera: each opened by its button, in front");
}

void SavePictures(Stage& stage) {
    const QDir pictures(stage.Where().pictures);
    for (const auto& [title, name] : {std::pair{MirrorTitle, QStringLiteral("window-mirror.png")},
                                      {MagnificationTitle, QStringLiteral("window-magnification.png")},
                                      {NeedlesTitle, QStringLiteral("window-needles.png")}}) {
        SmallWindow(title).grab().save(pictures.filePath(name));
    }
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
    PressMagnification(stage, 2);
    TurnMirror(stage, 0, 0);
    SavePictures(stage);
    PlayWindowMarkerAct(stage);
    PlayWindowRestartAct(stage);
    stage.CloseProgram();
    live::LiveClient camera;
    stage.WaitUntil([&] { return !camera.Running(); }, "the camera program outlives its last caller");
    PlayWindowProgramAct(stage);
}

}  // namespace workbench::tour
