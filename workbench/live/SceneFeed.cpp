#include "workbench/live/SceneFeed.h"

#include <exception>
#include <utility>

#include "workbench/socket/SocketPath.h"

namespace workbench::live {

namespace {

// So many equal answers in a row say that nothing moves.
constexpr int AnswersAtRest = 12;

}  // namespace

SceneFeed::SceneFeed(std::function<void()> changed)
    : changed_(std::move(changed)), exchange_(SocketPath()), client_(SocketPath()) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
}

void SceneFeed::Run(bool on) {
    if (!on) {
        timer_.stop();
    } else if (!timer_.isActive()) {
        unchanged_ = 0;
        Look();
        timer_.start(NextPause());
    }
}

void SceneFeed::Look() {
    std::string answer;
    std::optional<WorkbenchClient::CameraState> scene = scene_;
    if (exchange_.Ask("camera state", AnswerLimit, answer) != Exchange::Outcome::Answered) {
        answer.clear();
        scene.reset();
    } else if (answer != last_ || !scene_) {
        try {
            scene = client_.Camera();
        } catch (...) {
            scene.reset();
        }
    }
    const bool changed = answer != last_ || scene.has_value() != scene_.has_value();
    unchanged_ = changed ? 0 : unchanged_ + 1;
    last_ = std::move(answer);
    scene_ = std::move(scene);
    if (timer_.isActive()) {
        timer_.setInterval(NextPause());
    }
    if (changed) {
        changed_();
    }
}

int SceneFeed::NextPause() const {
    if (!scene_) {
        return WithoutWorkbench;
    }
    return unchanged_ < AnswersAtRest ? WhileChanging : WhileStill;
}

}  // namespace workbench::live
