// What the parts of the window act share.
#pragma once

#include <QImage>
#include <QPointF>
#include <QSize>
#include <cstdint>
#include <functional>
#include <string>

#include "workbench/tour/Hands.h"
#include "workbench/tour/PanelPlay.h"
#include "workbench/tour/Stage.h"

namespace workbench::tour {

// Hands on the small windows of the present run.
Hands AtBirdView(Stage& stage);
Hands AtMirror(Stage& stage);
Hands AtMagnification(Stage& stage);
Hands AtNeedles(Stage& stage);

// The small window of that title, shown or not; ActFailure where the program has none.
QWidget& SmallWindow(const QString& title);
extern const QString BirdViewTitle;
extern const QString MirrorTitle;
extern const QString NeedlesTitle;
extern const QString MagnificationTitle;

// Names of the controls of the user panel.
extern const QString CameraButton;
extern const QString BirdViewButton;
extern const QString MirrorButton;
extern const QString NeedlesButton;
extern const QString MagnificationButton;

// The bird's-eye view with its lower panel open, in pixels: at its design size the canvas is shown at half
// its size, at the other one pixel to a pixel.
constexpr QSize DesignSize{410, 578};
constexpr QSize WholeSize{788, 956};

// The picture of the bird's-eye view as it is shown now.
QImage BirdPicture(Stage& stage);
// Until the next compositions the picture may lack what blinks: waits until the finding is there.
// ActFailure with the sentence after 5 s.
void LookUntil(Stage& stage, const std::function<bool(const QImage& picture)>& found,
               const std::string& sentence);

// By hand at the mirror, whatever the magnification: to counts; waits until the program knows.
void TurnMirror(Stage& stage, std::int32_t x, std::int32_t y);
// Presses a button of the magnification window, index 1 to 3, and waits for the world and the report.
void PressMagnification(Stage& stage, std::int16_t index);
// "Magnification 2x" for 2.
QString MagnificationName(std::int16_t index);

double Distance(const QPointF& one, const QPointF& other);
// "(12.0, -3.4)"
std::string PointText(const QPointF& point);

}  // namespace workbench::tour
