#include "workbench/window/WorkbenchWindow.h"

#include <QDateTime>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "workbench/window/BenchPalette.h"
#include "workbench/window/DepthStrip.h"
#include "workbench/window/FaultPlate.h"
#include "workbench/window/FocusPlate.h"
#include "workbench/window/HeaderStrip.h"
#include "workbench/window/JoystickPlate.h"
#include "workbench/window/LessonCard.h"
#include "workbench/window/MirrorPlate.h"
#include "workbench/window/SceneReader.h"
#include "workbench/window/ScorePlate.h"
#include "workbench/window/TrafficPlate.h"
#include "workbench/window/TruthLine.h"
#include "workbench/window/TruthView.h"
#include "workbench/window/WindowIcon.h"

namespace workbench {

namespace {

constexpr std::size_t ErrorLength = 6;  // "error" and a blank

// ms since 1970 at which the bench's time was 0.
std::int64_t BeganAt(const Ask& ask) {
    const std::string answer = ask("world clock");
    const double time = answer.starts_with("ok ") ? QString::fromStdString(answer).mid(3).toDouble() : 0;
    return QDateTime::currentMSecsSinceEpoch() - static_cast<std::int64_t>(time);
}

}  // namespace

WorkbenchWindow::WorkbenchWindow(Ask ask, WindowMemory memory)
    : ask_(std::move(ask)), memory_(std::move(memory)), kept_(memory_.Read()) {
    setWindowTitle(QStringLiteral("Workbench - simulated instruments"));
    setAccessibleName(QStringLiteral("WORKBENCH, simulated instruments"));
    setWindowIcon(WorkbenchIcon());
    clock_.start();
    scene_.beganAt = BeganAt(ask_);
    MakeParts();
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { Refresh(); });
    setMinimumSize(LeastWindowSize);
    Open();
    Refresh();
}

WorkbenchWindow::~WorkbenchWindow() { Keep(); }

void WorkbenchWindow::Open() {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const QRect available = screen == nullptr ? QRect() : screen->availableGeometry();
    const std::optional<QRect> place = OpeningPlace(kept_.place, available);
    if (place) {
        setGeometry(*place);
        return;
    }
    const QSize wanted = kept_.place ? kept_.place->size() : FirstWindowSize;
    resize(available.isEmpty() ? wanted : wanted.boundedTo(available.size()));
}

void WorkbenchWindow::Refresh() {
    scene_ = ReadScene(ask_, scene_);
    parts_.header->Show(scene_, clock_.elapsed());
    parts_.plan->Show(scene_);
    parts_.heights->Show(scene_);
    parts_.line->Show(scene_);
    parts_.score->Show(scene_);
    parts_.joystick->Show(scene_);
    parts_.mirror->Show(scene_);
    parts_.focus->Show(scene_);
    parts_.traffic->Show(scene_);
    parts_.faults->Show(scene_);
    ShowLesson();
    const bool isQuick =
        AnythingMoves(scene_) || QGuiApplication::mouseButtons() != Qt::NoButton || !scene_.traffic.empty();
    ReadAgainIn(isQuick ? QuickPeriod : SlowPeriod);
}

void WorkbenchWindow::ReadAgainIn(int milliseconds) {
    if (isVisible() && !isMinimized()) {
        timer_.start(milliseconds);
    } else {
        timer_.stop();
    }
}

void WorkbenchWindow::ShowLesson() {
    lesson_.Take(scene_, parts_.plan->Sight(), clock_.elapsed());
    parts_.card->Show(lesson_);
    parts_.plan->ShowLesson(
        {lesson_.AsksForMarks(), {lesson_.MarkTouched(0), lesson_.MarkTouched(1), lesson_.MarkTouched(2)}});
}

std::string WorkbenchWindow::Say(const std::string& line) {
    std::string answer = ask_(line);
    ShowRefusal(answer);
    Refresh();
    return answer;
}

std::string WorkbenchWindow::SayFromPlan(const std::string& line) {
    std::string answer = ask_(line);
    ShowRefusal(answer);
    if (timer_.isActive() && timer_.remainingTime() > QuickPeriod) {
        timer_.start(QuickPeriod);
    }
    return answer;
}

void WorkbenchWindow::ShowRefusal(const std::string& answer) {
    if (answer.starts_with("error ")) {
        parts_.line->Refuse(QString::fromStdString(answer.substr(ErrorLength)));
    }
}

void WorkbenchWindow::Pick(int needle) {
    scene_.picked = needle;
    Refresh();
}

void WorkbenchWindow::SwitchCard() {
    kept_.isCardShown = !kept_.isCardShown;
    Place();
    Keep();
}

void WorkbenchWindow::ShowTab(bool mirror) {
    isMirrorTab_ = mirror;
    Place();
}

void WorkbenchWindow::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), palette::Frame); }

void WorkbenchWindow::Keep() {
    // A window that never was on show has no place of its own.
    if (isVisible() && !isMinimized() && !isMaximized() && !isFullScreen()) {
        kept_.place = geometry();
    }
    memory_.Write(kept_);
}

}  // namespace workbench
