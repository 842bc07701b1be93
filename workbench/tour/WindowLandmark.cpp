#include "workbench/tour/WindowLandmark.h"

#include <QDir>

#include "workbench/live/LiveClient.h"
#include "workbench/tour/Report.h"
#include "workbench/tour/WindowPicture.h"
#include "workbench/tour/WindowPlay.h"

namespace workbench::tour {

namespace {

// Mirror counts of the view while the still is taken, and the cell of the world that is the landmark.
constexpr std::int32_t BesideX = 40;
constexpr std::int32_t BesideY = -30;
constexpr std::size_t LandmarkCell = 2;
constexpr int PatchSide = 31;
constexpr QPoint PatchMiddle(PatchSide / 2, PatchSide / 2);
constexpr QPoint MarkReach(12, 12);

}  // namespace

QImage StillFile(Stage& stage) {
    const QImage still(QDir(stage.Where().programFolder).filePath(QStringLiteral("BirdView.bmp")));
    Require(still.size() == StillSize, "the camera's still has another size");
    return still.convertToFormat(QImage::Format_RGB32);
}

QPointF ViewOnCanvas(Stage& stage) {
    const auto centre = stage.Workbench().ViewCentreNow();
    return CanvasPlace(centre[0], centre[1]);
}

QRect MarkOfView(Stage& stage) {
    const QPoint middle = ViewOnCanvas(stage).toPoint();
    return {middle - MarkReach, middle + MarkReach};
}

Landmark TakeStill(Stage& stage) {
    TurnMirror(stage, BesideX, BesideY);
    live::LiveClient().Save();
    const auto place = stage.Workbench().Cells().at(LandmarkCell).place;
    const QPointF truth = CanvasPlace(place[0], place[1]);
    const QPointF onStill =
        truth - ViewOnCanvas(stage) + QPointF(StillSize.width(), StillSize.height()) / 2.0;
    const QRect around(onStill.toPoint() - PatchMiddle, QSize(PatchSide, PatchSide));
    Require(QRect({}, StillSize).contains(around), "the landmark is not on the still");
    return {truth, StillFile(stage).copy(around)};
}

std::optional<QPointF> LandmarkOn(const QImage& picture, const Landmark& landmark) {
    const std::optional<QPoint> corner = FindPatch(picture, landmark.patch);
    return corner ? std::optional<QPointF>(*corner + PatchMiddle) : std::nullopt;
}

QPointF FindLandmark(Stage& stage, const Landmark& landmark) {
    std::optional<QPointF> seen;
    LookUntil(
        stage,
        [&](const QImage& picture) {
            seen = LandmarkOn(picture, landmark);
            return seen.has_value();
        },
        "the landmark of the still is not drawn");
    return *seen;
}

}  // namespace workbench::tour
