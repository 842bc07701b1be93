#include "workbench/live/LiveProgram.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QStringList>
#include <QThread>
#include <QTimer>
#include <stdexcept>

#include "workbench/live/PicturePainter.h"
#include "workbench/live/StillFile.h"
#include "workbench/live/View.h"
#include "workbench/socket/SocketPath.h"

namespace workbench::live {

namespace {

constexpr double LongestHang = 60.0;  // s
constexpr std::int64_t MostFailures = 1'000'000;
constexpr int KilledExitCode = 9;

const char* const OverlayName[] = {"none", "points", "z", "center"};

QString MagnificationName(std::int32_t index) {
    const char* const names[] = {"between two objectives", "0.35x", "2x", "4x"};
    return index >= 0 && index <= 3 ? QLatin1String(names[index]) : QString();
}

QString Coordinate(double value) { return QString::number(value, 'f', 1); }

}  // namespace

LiveProgram::LiveProgram(const QString& folder)
    : folder_(folder),
      object_([this] { FollowState(); }, [] { QCoreApplication::quit(); }),
      feed_([this] { FollowScene(); }),
      window_({[this] { Save(); }, [this] { object_.HideByOperator(); }, [this] { CloseByOperator(); }}),
      socket_([this](const std::string& line) { return Answer(line); }) {
    FollowScene();
}

bool LiveProgram::Start() {
    socket_.Listen(QString::fromLocal8Bit(CameraSocketPath().c_str()));
    return object_.TakeName();
}

void LiveProgram::CloseByOperator() {
    object_.TellClosed();
    object_.GiveUpName();
    window_.hide();
    QCoreApplication::quit();
}

void LiveProgram::FollowState() {
    feed_.Run(object_.State().visible);
    // The scale of the marks may hang on what has been told.
    window_.ShowPicture(picture_, feed_.Scene() ? FieldOf(&*feed_.Scene(), 0)
                                                : FieldOf(nullptr, object_.State().toldMagnification));
    window_.ShowState(object_.State());
}

void LiveProgram::FollowScene() {
    picture_ = Picture();
    window_.ShowLine(Line());
    FollowState();
}

QImage LiveProgram::Picture() const {
    if (!feed_.Scene()) {
        return PaintEmptyPicture(QStringLiteral("No workbench is running: there is nothing to see."));
    }
    return PaintPicture(*feed_.Scene());
}

QString LiveProgram::Line() const {
    if (!feed_.Scene()) {
        return QStringLiteral("No workbench");
    }
    const WorkbenchClient::CameraState& scene = *feed_.Scene();
    return QStringLiteral("View X %1  Y %2    Focus Z %3    %4")
        .arg(Coordinate(scene.viewCentre[0]), Coordinate(scene.viewCentre[1]), Coordinate(scene.focusZ),
             MagnificationName(scene.magnification));
}

bool LiveProgram::Save() {
    feed_.Look();
    QImage still = Picture();
    QPainter painter(&still);
    PaintWorkbenchMark(painter, QRectF(QPointF(), QSizeF(still.size())));
    painter.end();
    if (!WriteStill(still, folder_)) {
        window_.ShowLine(QStringLiteral("The picture cannot be saved in %1").arg(folder_));
        return false;
    }
    ++saved_;
    const bool whole = feed_.Scene() && feed_.Scene()->magnification == 1;
    window_.ShowLine(
        whole ? QStringLiteral("Picture saved")
              : QStringLiteral("Picture saved; the bird's-eye view is drawn to the scale of 0.35x"));
    object_.TellSaved();
    return true;
}

std::string LiveProgram::Answer(const std::string& line) {
    try {
        const std::string values =
            Work(QString::fromStdString(line).split(QLatin1Char(' '), Qt::SkipEmptyParts));
        return values.empty() ? "ok" : "ok " + values;
    } catch (const std::exception& failure) {
        return std::string("error ") + failure.what();
    }
}

std::string LiveProgram::Work(const QStringList& words) {
    const QString command = words.value(0);
    bool isNumber = false;
    const double number = words.value(1).toDouble(&isNumber);
    // What ends or stops the program comes after its answer.
    const auto later = [this](auto procedure) { QTimer::singleShot(0, &window_, procedure); };
    if (command == QLatin1String("state")) {
        return StateText();
    }
    if (command == QLatin1String("counters")) {
        return CountersText();
    }
    if (command == QLatin1String("save")) {
        if (!Save()) {
            throw std::runtime_error("the picture cannot be saved");
        }
    } else if (command == QLatin1String("hide")) {
        object_.HideByOperator();
    } else if (command == QLatin1String("close")) {
        later([this] { CloseByOperator(); });
    } else if (command == QLatin1String("kill")) {
        later([] { _exit(KilledExitCode); });
    } else if (command == QLatin1String("hang") && isNumber && number >= 0.0 && number <= LongestHang) {
        later([this, number] { Hang(number); });
    } else if (command == QLatin1String("fail") && isNumber && number >= 0.0 && number <= MostFailures) {
        object_.FailNext(static_cast<std::int64_t>(number));
    } else {
        throw std::runtime_error("not understood");
    }
    return {};
}

std::string LiveProgram::StateText() const {
    const LiveState& state = object_.State();
    return "visible " + std::to_string(state.visible) + " overlay " +
           OverlayName[static_cast<std::size_t>(state.overlay)] + " magnification " +
           std::to_string(state.toldMagnification) + " action " + std::to_string(state.action) +
           " attached " + std::to_string(state.attached) + " callers " +
           std::to_string(object_.CallerCount()) + " saved " + std::to_string(saved_);
}

std::string LiveProgram::CountersText() const {
    std::string text;
    for (const auto& [name, count] : object_.Received()) {
        text += (text.empty() ? "" : " ") + name + " " + std::to_string(count);
    }
    return text;
}

void LiveProgram::Hang(double seconds) { QThread::msleep(static_cast<unsigned long>(seconds * 1000.0)); }

}  // namespace workbench::live
