// A step that goes on while a key or a button is held.
#pragma once

#include <QTimer>
#include <functional>

namespace workbench {

// Steps at once, again after 300 ms, then every 80 ms; never before the step before has been carried out.
class HeldStep {
public:
    static constexpr int FirstPause = 300;  // ms
    static constexpr int Pause = 80;
    // How long it waits before it looks again whether the last step has been carried out.
    static constexpr int LookAgain = 10;

    HeldStep();

    // `arrived` says whether the last step has been carried out. One that is held already ends first.
    void Begin(std::function<void()> step, std::function<bool()> arrived);
    void End();
    bool IsHeld() const { return timer_.isActive(); }

private:
    void Again();

    std::function<void()> step_;
    std::function<bool()> arrived_;
    QTimer timer_;
};

}  // namespace workbench
