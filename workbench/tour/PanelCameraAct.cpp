#include "workbench/tour/PanelCameraAct.h"

#include "workbench/live/LiveClient.h"
#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

using live::LiveClient;

const QString Camera = QStringLiteral("Camera window");

void OpenUser(PanelPlay& play) { play.hands.OpenPanel(QStringLiteral("User"), QStringLiteral("CtlUser1")); }

void RequireShown(PanelPlay& play, LiveClient& camera, bool shown) {
    Require(play.hands.PressedIn(Camera) == shown, "the camera's button does not say how its window is");
    Require(camera.Running() && camera.Now().visible == shown,
            "the camera's window is not as its button says");
    Require(play.stage.State().LiveOpen, "the program does not know that the camera is there");
    play.stage.RequireBoxesAsExpected();
}

void WaitUntilRaised(PanelPlay& play, const std::string& cause) {
    play.stage.WaitUntil([&] { return !play.hands.PressedIn(Camera); },
                         "the camera's button stays pressed after " + cause);
    play.stage.RequireBoxesAsExpected();
}

void WaitUntilGone(PanelPlay& play, LiveClient& camera) {
    play.stage.WaitUntil([&] { return !play.stage.State().LiveOpen && !camera.Running(); },
                         "the camera program has not gone");
}

void OpenAndHide(PanelPlay& play, LiveClient& camera) {
    Require(!camera.Running(), "a camera program runs already");
    play.hands.Press(Camera);
    RequireShown(play, camera, true);
    Require(camera.Now().attached, "the camera has not been told that the program is there");
    play.hands.Press(Camera);
    RequireShown(play, camera, false);
    play.hands.Press(Camera);
    RequireShown(play, camera, true);
    PrintLine("camera button: the camera program starts and shows its window, hides it, shows it again");
}

void FollowThePanels(PanelPlay& play, LiveClient& camera) {
    play.hands.OpenPanel(QStringLiteral("Connection"), QStringLiteral("CtlConnection1"));
    Require(play.hands.Read(QStringLiteral("Live camera state")) == QLatin1String("Connected"),
            "the connection panel does not know the camera");
    play.stage.SavePicture(QStringLiteral("panel-connection-camera"));
    play.hands.OpenPanel(QStringLiteral("Experiment"), QStringLiteral("CtlExperiment1"));
    PressView(play);
    auto before = camera.Counters();
    play.hands.Press(CellButton(1));
    PressMove(play);
    // What it is told without waiting for the answer comes when it comes.
    for (const char* const call : {"LiveActionStart", "LiveActionEnd"}) {
        play.stage.WaitUntil([&] { return camera.Counters()[call] == before[call] + 2; },
                             std::string("a move does not tell the camera ") + call);
    }
    Require(!camera.Now().action, "the camera thinks that the move still goes on");
    for (const std::int16_t index : {std::int16_t{3}, std::int16_t{2}}) {
        SetMagnification(play, index);
        play.stage.WaitUntil([&] { return camera.Now().toldMagnification == index; },
                             "the camera has not been told the magnification");
    }
    OpenUser(play);
    PrintLine("the camera is told of panels, of a move's beginning and end, and of 4x and 2x");
}

void LoseIt(PanelPlay& play, LiveClient& camera) {
    camera.Hide();
    WaitUntilRaised(play, "the window was hidden from its own side");
    RequireShown(play, camera, false);
    PrintLine("hidden from its own side: the button rises, the camera stays");
    play.hands.Press(Camera);
    RequireShown(play, camera, true);
    camera.Close();
    WaitUntilRaised(play, "the camera was closed from its own side");
    WaitUntilGone(play, camera);
    PrintLine("closed from its own side: the button rises, the camera is gone");
    play.hands.Press(Camera);
    RequireShown(play, camera, true);
    camera.Kill();
    WaitUntilRaised(play, "the camera was killed");
    WaitUntilGone(play, camera);
    PrintLine("opened anew and killed: the button rises without a box");
    play.hands.Press(Camera);
    RequireShown(play, camera, true);
    play.hands.Press(Camera);
    RequireShown(play, camera, false);
    PrintLine("opened anew and hidden by the button");
}

}  // namespace

void PlayPanelCameraAct(PanelPlay& play) {
    LiveClient camera;
    OpenUser(play);
    OpenAndHide(play, camera);
    FollowThePanels(play, camera);
    LoseIt(play, camera);
}

}  // namespace workbench::tour
