#include "workbench/tour/WindowPlay.h"

#include <QApplication>
#include <array>
#include <cmath>
#include <cstdio>

#include "workbench/tour/Handling.h"
#include "workbench/tour/Report.h"

namespace workbench::tour {

namespace {

constexpr int LookLimit = 5000;

}  // namespace

const QString CameraButton = QStringLiteral("Camera window");
const QString BirdViewButton = QStringLiteral("Bird's-eye window");
const QString MirrorButton = QStringLiteral("Mirror window");
const QString NeedlesButton = QStringLiteral("Needle window");
const QString MagnificationButton = QStringLiteral("Magnification window");

const QString BirdViewTitle = QStringLiteral("Bird's-eye view");
const QString MirrorTitle = QStringLiteral("Mirror and focus");
const QString NeedlesTitle = QStringLiteral("Needles");
const QString MagnificationTitle = QStringLiteral("Magnification");

QWidget& SmallWindow(const QString& title) {
    QWidget* found = nullptr;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->windowTitle() == title) {
            found = window;
        }
    }
    Require(found != nullptr, "there is no window " + title.toStdString());
    return *found;
}

Hands AtBirdView(Stage& stage) { return {stage, SmallWindow(BirdViewTitle)}; }
Hands AtMirror(Stage& stage) { return {stage, SmallWindow(MirrorTitle)}; }
Hands AtMagnification(Stage& stage) { return {stage, SmallWindow(MagnificationTitle)}; }
Hands AtNeedles(Stage& stage) { return {stage, SmallWindow(NeedlesTitle)}; }

QImage BirdPicture(Stage& stage) { return AtBirdView(stage).Look(QStringLiteral("Picture")); }

void LookUntil(Stage& stage, const std::function<bool(const QImage& picture)>& found,
               const std::string& sentence) {
    stage.WaitUntil([&] { return found(BirdPicture(stage)); }, sentence, LookLimit);
}

void TurnMirror(Stage& stage, std::int32_t x, std::int32_t y) {
    stage.Workbench().MoveMirror(x, y);
    WaitForView(stage, x, y);
}

QString MagnificationName(std::int16_t index) {
    const std::array<const char*, 3> names{"0.35x", "2x", "4x"};
    return QStringLiteral("Magnification ") + QLatin1String(names.at(static_cast<std::size_t>(index - 1)));
}

void PressMagnification(Stage& stage, std::int16_t index) {
    AtMagnification(stage).Press(MagnificationName(index));
    stage.WaitUntil(
        [&] {
            return stage.Workbench().Magnification() == index &&
                   stage.State().CurrentMagnification() == index;
        },
        MagnificationName(index).toStdString() + " does not come about");
}

double Distance(const QPointF& one, const QPointF& other) {
    return std::hypot(one.x() - other.x(), one.y() - other.y());
}

std::string PointText(const QPointF& point) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "(%.1f, %.1f)", point.x(), point.y());
    return text.data();
}

}  // namespace workbench::tour
