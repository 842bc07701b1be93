#include "workbench/window/HeldStep.h"

#include <utility>

namespace workbench {

HeldStep::HeldStep() {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Again(); });
}

void HeldStep::Begin(std::function<void()> step, std::function<bool()> arrived) {
    End();
    step_ = std::move(step);
    arrived_ = std::move(arrived);
    timer_.start(FirstPause);
    step_();
}

void HeldStep::End() { timer_.stop(); }

void HeldStep::Again() {
    if (!arrived_()) {
        timer_.start(LookAgain);
        return;
    }
    timer_.start(Pause);
    step_();
}

}  // namespace workbench
