#include "workbench/tour/WindowRestartAct.h"

#include <QDir>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <array>

#include "workbench/tour/CalibrationPlay.h"
#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"
#include "workbench/tour/WindowLandmark.h"
#include "workbench/tour/WindowMarkerAct.h"
#include "workbench/tour/WindowPicture.h"
#include "workbench/tour/WindowPlay.h"

namespace workbench::tour {

namespace {

const QString Adjust = QStringLiteral("Adjust panel");
const QString LinesButton = QStringLiteral("Hide needle lines");

// Pixels of the screen, none the design's, so that nothing is found by chance.
constexpr QPoint BirdPlace(700, 60);
constexpr QSize BirdSize(520, 700);
constexpr QPoint MirrorPlace(1300, 80);
constexpr QSize MirrorSize(345, 278);
constexpr QPoint MagnificationPlace(1310, 450);
constexpr QPoint NeedlesPlace(1320, 720);
constexpr double ShiftGoal = 2.0;

struct Layout {
    QRect bird;
    QRect mirror;
    QRect magnification;
    QRect needles;

    bool operator==(const Layout&) const = default;
};

Layout LayoutNow() {
    return {SmallWindow(BirdViewTitle).geometry(), SmallWindow(MirrorTitle).geometry(),
            SmallWindow(MagnificationTitle).geometry(), SmallWindow(NeedlesTitle).geometry()};
}

void MoveWindow(Stage& stage, QWidget& window, const QPoint& place) {
    window.move(place);
    stage.WaitUntil([&] { return window.pos() == place; },
                    window.windowTitle().toStdString() + ": the window does not go where it is put");
}

void PutAbout(Stage& stage) {
    MoveWindow(stage, SmallWindow(BirdViewTitle), BirdPlace);
    AtBirdView(stage).DragToSize(BirdSize);
    MoveWindow(stage, SmallWindow(MirrorTitle), MirrorPlace);
    AtMirror(stage).DragToSize(MirrorSize);
    MoveWindow(stage, SmallWindow(MagnificationTitle), MagnificationPlace);
    MoveWindow(stage, SmallWindow(NeedlesTitle), NeedlesPlace);
    // The window system's word on all of this comes later.
    stage.WaitOneTick();
    Require(SmallWindow(BirdViewTitle).geometry() == QRect(BirdPlace, BirdSize) &&
                SmallWindow(MirrorTitle).geometry() == QRect(MirrorPlace, MirrorSize) &&
                SmallWindow(MagnificationTitle).pos() == MagnificationPlace &&
                SmallWindow(NeedlesTitle).pos() == NeedlesPlace,
            "a window does not stay where it is put");
}

void CloseNeedles(Stage& stage) {
    Hands hands(stage);
    hands.OpenPanel(QStringLiteral("User"), QStringLiteral("CtlUser1"));
    AtNeedles(stage).Press(QStringLiteral("Close"));
    Require(!SmallWindow(NeedlesTitle).isVisible() && !hands.PressedIn(NeedlesButton),
            "the needle window's CLOSE does not close it");
}

void Restart(Stage& stage) {
    stage.CloseProgram();
    stage.OpenProgram();
    WaitForInstruments(stage);
    stage.WaitUntil([&] { return stage.State().LiveOpen; }, "the camera has not come back");
    PanelPlay play{stage, Hands(stage), {}};
    WaitFor035x(play);
}

void FindWindows(Stage& stage, const Layout& before) {
    Require(LayoutNow() == before, "a window has not come back to its place and size");
    const Hands user(stage);
    const std::array<std::pair<QString, bool>, 5> open{{{CameraButton, true},
                                                        {BirdViewButton, true},
                                                        {MirrorButton, true},
                                                        {NeedlesButton, false},
                                                        {MagnificationButton, true}}};
    for (const auto& [button, isOpen] : open) {
        Require(user.PressedIn(button) == isOpen, button.toStdString() + " does not say how it was left");
    }
    Require(SmallWindow(BirdViewTitle).isVisible() && SmallWindow(MirrorTitle).isVisible() &&
                SmallWindow(MagnificationTitle).isVisible() && !SmallWindow(NeedlesTitle).isVisible(),
            "other windows are open than before");
    const Hands bird = AtBirdView(stage);
    Require(bird.PressedIn(Adjust) && bird.OnShow(QStringLiteral("Contrast")), "the lower panel is closed");
    Require(bird.PressedIn(LinesButton), "the lines are not hidden any more");
    PrintLine(
        "restart: four windows at their places and sizes, three open and one closed as left, lower panel "
        "open, "
        "camera back");
}

void FindShiftAndLines(Stage& stage) {
    AtBirdView(stage).DragToSize(WholeSize);
    const Landmark landmark = TakeStill(stage);
    const double error = Distance(FindLandmark(stage, landmark), landmark.truth);
    Require(error <= ShiftGoal, "the shift has not come back");
    Require(ShaftsSeen(stage) == 0.0, "lines are drawn although they are hidden");
    AtBirdView(stage).Press(LinesButton);
    LookUntil(
        stage, [&](const QImage&) { return ShaftsSeen(stage) > 0.95; }, "the lines do not come back");
    PrintLine("shift " +
              StoredSetting(stage, QStringLiteral("FormBirdView_Shift"), QStringLiteral("X")).toStdString() +
              ", " +
              StoredSetting(stage, QStringLiteral("FormBirdView_Shift"), QStringLiteral("Y")).toStdString() +
              " from the settings: a new still's landmark stands " + NumberText(error) +
              " pixels from where the axes say; lines hidden as left, shown by their button");
}

}  // namespace

void PlayWindowRestartAct(Stage& stage) {
    PutAbout(stage);
    CloseNeedles(stage);
    const Layout before = LayoutNow();
    Restart(stage);
    Hands hands(stage);
    hands.OpenPanel(QStringLiteral("User"), QStringLiteral("CtlUser1"));
    FindWindows(stage, before);
    FindShiftAndLines(stage);
    hands.Press(NeedlesButton);
    AtBirdView(stage).Press(QStringLiteral("Design size"));
    stage.RequireBoxesAsExpected();
    QGuiApplication::primaryScreen()->grabWindow(0).save(
        QDir(stage.Where().pictures).filePath(QStringLiteral("window-screen.png")));
}

}  // namespace workbench::tour
