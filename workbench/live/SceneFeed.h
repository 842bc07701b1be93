// Asks the workbench what the camera sees: often while something changes, seldom while nothing does.
#pragma once

#include <QTimer>
#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "workbench/client/WorkbenchClient.h"
#include "workbench/socket/Exchange.h"

namespace workbench::live {

class SceneFeed {
public:
    // Pauses between two questions, in ms.
    static constexpr int WhileChanging = 40;
    static constexpr int WhileStill = 120;
    static constexpr int WithoutWorkbench = 1000;
    // A workbench that hangs must not keep TRAVO's calls waiting.
    static constexpr std::chrono::milliseconds AnswerLimit{200};

    // changed: the scene is another one than before.
    explicit SceneFeed(std::function<void()> changed);

    // Nothing is asked while nobody looks.
    void Run(bool on);
    // Asks once, now.
    void Look();

    // What the camera sees, or nothing where no workbench answers.
    const std::optional<WorkbenchClient::CameraState>& Scene() const { return scene_; }

private:
    int NextPause() const;

    std::function<void()> changed_;
    Exchange exchange_;
    WorkbenchClient client_;
    QTimer timer_;
    std::string last_;
    int unchanged_ = 0;  // questions in a row
    std::optional<WorkbenchClient::CameraState> scene_;
};

}  // namespace workbench::live
