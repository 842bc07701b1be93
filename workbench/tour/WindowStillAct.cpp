#include "workbench/tour/WindowStillAct.h"

#include <QDir>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"
#include "workbench/tour/WindowLandmark.h"
#include "workbench/tour/WindowPicture.h"
#include "workbench/tour/WindowPlay.h"

namespace workbench::tour {

namespace {

const QString Adjust = QStringLiteral("Adjust panel");
const QString ShiftButton = QStringLiteral("Shift picture");
const QString Picture = QStringLiteral("Picture");
const QString Question = QStringLiteral("Did you set it at this position?");

// The still without a shift.
constexpr QPoint StillCorner(58, 138);
// In canvas pixels: the still goes to whole ones, and so does what is looked for.
constexpr double ShiftGoal = 2.0;

void OpenLowerPanel(Stage& stage) {
    SmallWindow(BirdViewTitle)
        .grab()
        .save(QDir(stage.Where().pictures).filePath(QStringLiteral("window-bird-closed.png")));
    AtBirdView(stage).Press(Adjust);
    // The window system's word on a size comes after the press.
    stage.WaitOneTick();
}

void SeeStill(Stage& stage) {
    const QImage still = StillFile(stage);
    const QRect mark = MarkOfView(stage);
    LookUntil(
        stage, [&](const QImage& picture) { return mark.contains(Differing(picture, still, StillCorner)); },
        "the still is not drawn as the camera has taken it");
    PrintLine(
        "still taken at 0.35x: drawn in the middle of the canvas, pixel by pixel as the camera saved it");
}

// Presses the point and looks at the landmark while the question is open.
QPointF PressForShift(Stage& stage, const QPointF& point, const Landmark& landmark, const QString& answer) {
    std::optional<QPointF> seen;
    stage.Boxes().Expect(Question, answer);
    stage.Boxes().LookFirst([&] { seen = LandmarkOn(BirdPicture(stage), landmark); });
    AtBirdView(stage).PressAt(Picture, point.toPoint());
    stage.RequireBoxesAsExpected();
    Require(seen.has_value(), "the landmark is not on show while the question is open");
    return *seen;
}

void LineUp(Stage& stage, const Landmark& landmark) {
    const QPointF middle(CanvasOrigin, CanvasOrigin);
    // On the still, which stands as if the view's centre were the origin's.
    const QPointF origin = middle + (middle - ViewOnCanvas(stage));
    const QPointF unshifted = FindLandmark(stage, landmark);
    AtBirdView(stage).Press(ShiftButton);
    Require(AtBirdView(stage).PressedIn(ShiftButton), "the shift's button is not pressed");
    const QPointF first = PressForShift(stage, origin, landmark, QStringLiteral("No"));
    Require(AtBirdView(stage).PressedIn(ShiftButton), "after No there is no other try");
    Require(FindLandmark(stage, landmark) == unshifted, "after No the still is not back where it was");
    PrintLine("shift: the landmark was drawn " + NumberText(Distance(unshifted, landmark.truth)) +
              " pixels from its true place; the origin pressed on the still leaves " +
              NumberText(Distance(first, landmark.truth)) + ", answered No: the still is back");
    // The press counts in parts of the canvas, the shift in parts of the still.
    const QPointF away = origin - middle;
    const QPointF further = middle + QPointF(away.x() * CanvasPixels / StillSize.width(),
                                             away.y() * CanvasPixels / StillSize.height());
    PressForShift(stage, further, landmark, QStringLiteral("Yes"));
    Require(!AtBirdView(stage).PressedIn(ShiftButton), "after Yes the shift's button is still pressed");
    const double error = Distance(FindLandmark(stage, landmark), landmark.truth);
    PrintLine("pressed further out in the ratio of canvas to still, answered Yes: the landmark stands " +
              NumberText(error) + " pixels from where the axes say");
    Require(error <= ShiftGoal, "the still is not lined up");
}

}  // namespace

void PlayWindowStillAct(Stage& stage) {
    OpenLowerPanel(stage);
    AtBirdView(stage).DragToSize(WholeSize);
    const Landmark landmark = TakeStill(stage);
    SeeStill(stage);
    LineUp(stage, landmark);
}

}  // namespace workbench::tour
