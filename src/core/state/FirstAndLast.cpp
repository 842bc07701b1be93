#include "core/state/FirstAndLast.h"

#include <utility>

namespace travo {

FirstAndLast::FirstAndLast(platform::Timers& timers, int period, std::function<void()> work)
    : work_(std::move(work)), period_(timers.Create([this] { Tick(); })) {
    period_->Interval(period);
}

void FirstAndLast::Tell() {
    if (period_->Enabled()) {
        isMore_ = true;
    } else {
        Work();
    }
}

void FirstAndLast::Tick() {
    period_->Enabled(false);
    if (std::exchange(isMore_, false)) {
        Work();
    }
}

void FirstAndLast::Work() {
    // On before the work, which may raise, and anew behind it, which may take longer than the period.
    period_->Enabled(true);
    work_();
    period_->Enabled(false);
    period_->Enabled(true);
}

}  // namespace travo
